// The wheel over the forms: without the focus it changes nothing.

#include "factory/FactorySettings.h"
#include "factory/LiveEdit.h"
#include "support/captureddiagnostics.h"
#include "support/formundertest.h"
#include "support/records.h"
#include "support/wheel.h"

#include <QAbstractSpinBox>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSlider>

namespace {

/// What is seen and enabled in a window and turns with the wheel.
QList<QWidget *> turning(QWidget *window)
{
    QList<QWidget *> found;
    const auto children = window->findChildren<QWidget *>();
    for (QWidget *child : children)
        if (child->window() == window && child->isVisible() && child->isEnabled() &&
            (qobject_cast<QAbstractSpinBox *>(child) || qobject_cast<QComboBox *>(child) ||
             qobject_cast<QSlider *>(child)))
            found << child;
    return found;
}

QStringList values(const QList<QWidget *> &inputs)
{
    QStringList values;
    for (QWidget *input : inputs)
        values << input->objectName() + ' ' + widgetvalues::value(input);
    return values;
}

} // namespace

class TestWheel : public QObject
{
    Q_OBJECT

private slots:
    void changesNothingOnAnyPage_data()
    {
        QTest::addColumn<quint32>("model");
        QTest::newRow("Blend") << records::keyBlend;
        QTest::newRow("Blend Zoom") << records::keyBlendZoom;
    }
    void changesNothingOnAnyPage()
    {
        QFETCH(quint32, model);
        CapturedDiagnostics lines;
        FormUnderTest form(model);
        form.window.resize(1400, 1000);
        form.window.show();
        QVERIFY(QTest::qWaitForWindowActive(&form.window));
        // All that can be enabled is: nothing else hides a change.
        form.set("cb_pheriphery_externalshutter_installed", 1);
        form.set("cbTriggerPinMode", 1);
        form.set("cbIsothermsState", 1);
        auto *port = form.get<QComboBox>("comboBoxPort");
        port->addItems({"/dev/a", "/dev/b"});
        auto *tabs = form.get<QTabWidget>("tabWidget");
        auto *button = form.get<QPushButton>("btConnectDisconnect");
        button->setFocus();
        lines.clear();
        int met = 0;
        for (int tab = 0; tab < tabs->count(); ++tab) {
            tabs->setCurrentIndex(tab);
            tabs->currentWidget()->setEnabled(true);
            QCoreApplication::processEvents();
            const QList<QWidget *> inputs = turning(&form.window);
            for (QWidget *input : inputs) {
                const QStringList before = values(inputs);
                for (const int notches : {-1, 1, 1})
                    wheel::turn(input, notches);
                QCOMPARE(values(inputs), before);
                QVERIFY2(!input->hasFocus(), qPrintable(input->objectName()));
                ++met;
            }
        }
        QVERIFY(met > 30);
        QCOMPARE(lines.err(), QString());
        QCOMPARE(lines.out(), QString());
    }

    void sendsNothingFromTheLiveEditor()
    {
        CapturedDiagnostics lines;
        kovoPacketManager packetManager(nullptr);
        LiveEdit editor;
        editor.setPacketManager(&packetManager);
        editor.connectDevice(true);
        editor.show();
        QVERIFY(QTest::qWaitForWindowActive(&editor));
        auto *button = editor.findChild<QPushButton *>("btnCalcABCDEFG");
        button->setFocus();
        const QSignalSpy sent(&editor, &LiveEdit::signalSendPackage);
        const QList<QWidget *> inputs = turning(&editor);
        QVERIFY(inputs.size() > 20);
        const QStringList before = values(inputs);
        for (QWidget *input : inputs)
            wheel::turn(input, 1);
        QCOMPARE(values(inputs), before);
        QCOMPARE(sent.count(), 0);
        QVERIFY(button->hasFocus());

        // With the focus it steers, as ever.
        auto *a = editor.findChild<QWidget *>("sbFpgaA");
        a->setFocus();
        wheel::turn(a, 1);
        QCOMPARE(sent.count(), 1);
    }

    void writesNothingFromTheFactorySettings()
    {
        CapturedDiagnostics lines;
        kovoPacketManager packetManager(nullptr);
        KovoDevices devices(nullptr);
        FactorySettings dialog;
        dialog.setPacketManager(&packetManager);
        dialog.setDevices(&devices);
        devices.setDevice(KovoDevice_QXBlend);
        dialog.slotDeviceChanged(KovoDevice_QXBlend);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        const QSignalSpy sent(&dialog, &FactorySettings::signalSendPackage);
        dialog.findChild<QWidget *>("leSerialNumber")->setFocus();
        const QList<QWidget *> inputs = turning(&dialog);
        QCOMPARE(inputs.size(), 5);
        const QStringList before = values(inputs);
        for (QWidget *input : inputs)
            wheel::turn(input, 1);
        QCOMPARE(values(inputs), before);
        QCOMPARE(sent.count(), 0);
    }

    void scrollsPagesWithoutRoom_data() { changesNothingOnAnyPage_data(); }
    void scrollsPagesWithoutRoom()
    {
        QFETCH(quint32, model);
        CapturedDiagnostics lines;
        FormUnderTest form(model);
        form.window.show();
        QVERIFY(QTest::qWaitForWindowActive(&form.window));
        form.get<QPushButton>("btConnectDisconnect")->setFocus();
        auto *tabs = form.get<QTabWidget>("tabWidget");
        int met = 0;
        for (int tab = 0; tab < tabs->count(); ++tab) {
            tabs->setCurrentIndex(tab);
            tabs->currentWidget()->setEnabled(true);
            auto *area = tabs->currentWidget()->findChild<QScrollArea *>();
            QVERIFY(area != nullptr);
            QScrollBar *bar = area->verticalScrollBar();
            area->setMaximumHeight(50);
            QCoreApplication::processEvents();
            QVERIFY2(bar->maximum() > 0, qPrintable(area->objectName()));
            for (QWidget *input : turning(&form.window)) {
                if (!area->widget()->isAncestorOf(input))
                    continue;
                area->ensureWidgetVisible(input);
                const bool up = bar->value() > 0;
                const int before = bar->value();
                wheel::turn(input, up ? 1 : -1);
                QVERIFY2(up ? bar->value() < before : bar->value() > before,
                         qPrintable(input->objectName()));
                ++met;
            }
        }
        QVERIFY2(met > 20, qPrintable(QString::number(met)));
    }

    void scrollsTheFactorySettings()
    {
        CapturedDiagnostics lines;
        FactorySettings dialog;
        dialog.slotDeviceChanged(KovoDevice_QXBlend);
        auto *area = dialog.findChild<QScrollArea *>();
        area->widget()->setMinimumHeight(5000);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        auto *box = dialog.findChild<QWidget *>("sbScale");
        area->ensureWidgetVisible(box);
        area->verticalScrollBar()->setValue(0);
        dialog.findChild<QWidget *>("leSerialNumber")->setFocus();
        QVERIFY(
            area->viewport()->rect().contains(box->mapTo(area->viewport(), box->rect().center())));
        wheel::turn(box, -1);
        QVERIFY(area->verticalScrollBar()->value() > 0);
    }
};

QTEST_MAIN(TestWheel)
#include "tst_wheel.moc"
