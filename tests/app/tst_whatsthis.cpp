#include "app/whatsthis.h"
#include "support/formundertest.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QDialog>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabBar>

/// Help for one field, by Shift+F1: every input of every window has it.
class tst_whatsthis : public QObject
{
    Q_OBJECT

private slots:
    void everyInputOfAllWindowsIsExplained();
    void theTableNamesInputsThatExist();
    void textsSayMoreThanTheTooltipWhereFieldsHangTogether_data();
    void textsSayMoreThanTheTooltipWhereFieldsHangTogether();

private:
    static QList<QWidget *> inputsOf(MainWindow &window);
};

QList<QWidget *> tst_whatsthis::inputsOf(MainWindow &window)
{
    QList<QWidget *> inputs;
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        const bool input =
            qobject_cast<QComboBox *>(widget) || qobject_cast<QAbstractSpinBox *>(widget) ||
            qobject_cast<QAbstractSlider *>(widget) || qobject_cast<QLineEdit *>(widget) ||
            qobject_cast<QPlainTextEdit *>(widget) || qobject_cast<QAbstractButton *>(widget) ||
            qobject_cast<QAbstractItemView *>(widget);
        const bool part = widget->objectName().isEmpty() ||
                          widget->objectName().startsWith("qt_") ||
                          qobject_cast<QTabBar *>(widget->parentWidget());
        if (input && !part)
            inputs << widget;
    }
    return inputs;
}

void tst_whatsthis::everyInputOfAllWindowsIsExplained()
{
    FormUnderTest form(0xA0AF139E);
    QSet<QWidget *> windows;
    for (QWidget *input : inputsOf(form.window)) {
        windows << input->window();
        QVERIFY2(!input->whatsThis().isEmpty(), qPrintable(input->objectName()));
        // What the mouse pointer with the question mark asks.
        QHelpEvent query(QEvent::QueryWhatsThis, QPoint(1, 1), QPoint(1, 1));
        QApplication::sendEvent(input, &query);
        QVERIFY2(query.isAccepted(), qPrintable(input->objectName()));
    }
    QCOMPARE(windows.count(), 4);
    QVERIFY(windows.contains(&form.window));
}

void tst_whatsthis::theTableNamesInputsThatExist()
{
    FormUnderTest form(0xA0AF139E);
    QStringList inputs;
    for (const QWidget *input : inputsOf(form.window))
        inputs << input->objectName();
    QStringList names = whatsthis::names();
    for (const QString &name : qAsConst(names)) {
        QVERIFY2(inputs.contains(name), qPrintable(name));
        // A text of the form would hide that of the table.
        QVERIFY2(form.widget(qPrintable(name))->whatsThis() !=
                     form.widget(qPrintable(name))->toolTip(),
                 qPrintable(name));
    }
    QCOMPARE(names.removeDuplicates(), 0);
}

void tst_whatsthis::textsSayMoreThanTheTooltipWhereFieldsHangTogether_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("part");
    const auto row = [](const char *name, const char *part) {
        QTest::newRow(name) << QString(name) << QString(part);
    };
    // Never read back from the camera
    row("cBOverlayMode", "never read back");
    row("cbSbusColorMapSwitchMode", "not from a Blend Zoom");
    // Sent without a press of a button
    row("sbTamronZoom", "whole form");
    row("hsTamronfocusvalue", "One second after a change");
    row("pbLivePreview", "two seconds");
    // Which other field locks, hides or sets it
    row("hs_JPEGcompressionDaylight", "Changing to 60 Hz sets");
    row("cbPeripheryGimbalrc", "does not lock the channels");
    row("cbPeripheryGPS", "gimbal remote control of a Blend Zoom");
    row("cbBaudrate", "gimbal remote control of a Blend Zoom");
    row("pbSetHDMI", "zoom factor which is selected in the main window");
}

void tst_whatsthis::textsSayMoreThanTheTooltipWhereFieldsHangTogether()
{
    QFETCH(QString, name);
    QFETCH(QString, part);
    FormUnderTest form(0);
    const QString text = form.widget(qPrintable(name))->whatsThis();
    QVERIFY2(text.contains(part), qPrintable(text));
}

QTEST_MAIN(tst_whatsthis)
#include "tst_whatsthis.moc"
