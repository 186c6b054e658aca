// The windows on small screens: a display of 1366x768 pixels, at the scales of its desktop. The
// program runs itself on such a display; where there is none, these tests are skipped.

#include "app/translation.h"
#include "factory/FactorySettings.h"
#include "factory/LiveEdit.h"
#include "forms/FitScrollArea.h"
#include "sbus/sbusTester.h"
#include "support/modelwindow.h"
#include "support/xdisplay.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QLayout>
#include <QLocale>
#include <QProcess>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QScreen>
#include <QScrollBar>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTabBar>

namespace {

const char *const onScreenOption = "--on-screen";
constexpr QSize panel(1366, 768); // pixels of the display

/// What a desktop puts around a window: side borders, title bar.
constexpr QSize windowFrame(8, 36);

QSize room()
{
    return QGuiApplication::primaryScreen()->availableSize() - windowFrame;
}

bool fits(const QSize &size, const QSize &room)
{
    return size.width() <= room.width() && size.height() <= room.height();
}

QByteArray text(const QWidget *widget, const QSize &size)
{
    return QStringLiteral("%1 %2x%3 in %4x%5")
        .arg(widget->objectName())
        .arg(size.width())
        .arg(size.height())
        .arg(room().width())
        .arg(room().height())
        .toUtf8();
}

/// Lets layouts follow what was shown and hidden.
void settle()
{
    for (int i = 0; i < 5; ++i) {
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }
}

/// All of the widget is in view, none of it cut off by what it stands in.
bool isWhole(const QWidget *widget)
{
    return widget->isVisible() && widget->visibleRegion() == QRegion(widget->rect());
}

} // namespace

/// What is demanded of the windows on the screen that this process has.
class OnScreen : public QObject
{
    Q_OBJECT

private slots:
    void windowFits_data()
    {
        QTest::addColumn<quint32>("model");
        QTest::newRow("no model") << 0u;
        QTest::newRow("Blend") << keyBlend;
        QTest::newRow("Blend Zoom") << keyBlendZoom;
        QTest::newRow("2.0") << key20;
    }
    void windowFits()
    {
        QFETCH(quint32, model);
        WindowUnderTest tool;
        CapturedDiagnostics lines;
        tool.window.showFactoryButtons();
        tool.window.show();
        tool.window.adjustSize();
        if (model)
            tool.chooseModel(model);
        tool.get<QCheckBox>("cb_pheriphery_externalshutter_installed")->setChecked(true);
        auto *tabs = tool.get<QTabWidget>("tabWidget");
        for (int page = 0; page < tabs->count(); ++page) {
            tabs->setCurrentIndex(page);
            settle();
            QVERIFY2(fits(tool.window.size(), room()), text(&tool.window, tool.window.size()));
            for (const char *name : {"pbFactorySettings", "pb_TestWindow", "pbLivePreview",
                                     "btnReadConf", "btnSetConf", "statusBar", "cBDevice"})
                QVERIFY2(isWhole(tool.widget(name)), name);
            auto *area = tabs->currentWidget()->findChild<FitScrollArea *>();
            QVERIFY(area);
            reachesEveryField(area);
            if (QGuiApplication::primaryScreen()->size() == panel)
                QVERIFY2(!area->verticalScrollBar()->isVisible() &&
                             !area->horizontalScrollBar()->isVisible(),
                         qPrintable(area->objectName()));
        }
    }

    void dialogsFit_data()
    {
        QTest::addColumn<quint32>("model");
        QTest::newRow("Blend") << keyBlend;
        QTest::newRow("Blend Zoom") << keyBlendZoom;
    }
    void dialogsFit()
    {
        QFETCH(quint32, model);
        WindowUnderTest tool;
        CapturedDiagnostics lines;
        tool.chooseModel(model);
        for (QDialog *dialog : tool.window.findChildren<QDialog *>()) {
            dialog->setEnabled(true);
            dialog->show();
            dialog->adjustSize();
            settle();
            QVERIFY2(fits(dialog->size(), room()), text(dialog, dialog->size()));
            auto *area = dialog->findChild<FitScrollArea *>();
            for (const QAbstractButton *button : dialog->findChildren<QPushButton *>())
                if (!area || !area->isAncestorOf(button))
                    QVERIFY2(isWhole(button), qPrintable(button->objectName()));
            if (area)
                reachesEveryField(area);
        }
    }

private:
    /// Each field that takes the focus comes into view with it.
    static void reachesEveryField(FitScrollArea *area)
    {
        area->activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), area->window());
        for (QWidget *field : area->widget()->findChildren<QWidget *>()) {
            if (!(field->focusPolicy() & Qt::TabFocus) || !field->isEnabled() ||
                !field->isVisible() || field->objectName().startsWith("qt_"))
                continue;
            field->setFocus(Qt::ShortcutFocusReason);
            field = QApplication::focusWidget(); // the bar of a tab widget, say
            QVERIFY(field && area->isAncestorOf(field));
            const QRect view = area->viewport()->rect();
            const QRect place(field->mapTo(area->viewport(), QPoint()), field->size());
            // As far as the view has the room.
            const QRect seen = place & view;
            QVERIFY2(seen.width() >= qMin(place.width(), view.width() / 2) &&
                         seen.height() >= qMin(place.height(), view.height() / 2),
                     qPrintable(QStringLiteral("%1: %2,%3 %4x%5 in %6x%7")
                                    .arg(field->objectName())
                                    .arg(place.x())
                                    .arg(place.y())
                                    .arg(place.width())
                                    .arg(place.height())
                                    .arg(view.width())
                                    .arg(view.height())));
        }
    }
};

class TestSmallScreens : public QObject
{
    Q_OBJECT

private slots:
    void windowsFitTheScreen_data()
    {
        QTest::addColumn<QString>("scale");
        QTest::addColumn<QString>("language");
        for (const char *scale : {"1", "1.25", "2"})
            for (const char *language : {"en_US", "de_DE"})
                QTest::addRow("%s, %s", scale, language) << scale << language;
    }
    void windowsFitTheScreen()
    {
        QFETCH(QString, scale);
        QFETCH(QString, language);
        if (QStandardPaths::findExecutable("Xvfb").isEmpty())
            QSKIP("needs Xvfb");
        Display display;
        QVERIFY(display.start(QStringLiteral("%1x%2x24").arg(panel.width()).arg(panel.height())));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", "xcb");
        environment.insert("DISPLAY", display.name());
        environment.insert("QT_SCALE_FACTOR", scale);
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QCoreApplication::applicationFilePath(), {onScreenOption, language});
        QVERIFY(process.waitForFinished(120000));
        const QByteArray report = process.readAll();
        QVERIFY2(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0,
                 report.constData());
        QVERIFY2(report.contains("Totals: "), report.constData()); // it has run
    }
};

int main(int argc, char *argv[])
{
    QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets); // as the program does
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication application(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], onScreenOption) == 0) {
        translation::install(QLocale(QString::fromLatin1(argv[2])));
        OnScreen test;
        return QTest::qExec(&test, {QString::fromLocal8Bit(argv[0])});
    }
    TestSmallScreens test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_smallscreens.moc"
