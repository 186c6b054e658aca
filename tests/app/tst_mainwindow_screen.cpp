// Keys, focus and marks of the main window, and its pages that scroll.

#include "forms/FitScrollArea.h"
#include "support/cameraend.h"
#include "support/modelwindow.h"

#include <QAction>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QWheelEvent>

namespace {

bool activate(QWidget &window)
{
    window.show();
    QApplication::setActiveWindow(&window);
    return QTest::qWaitForWindowActive(&window);
}

FitScrollArea *areaOf(QWidget *page)
{
    return page->findChild<FitScrollArea *>();
}

/// Less room than any page wants, as a very small screen would give it.
void shrink(QWidget *page)
{
    page->setMinimumSize(1, 1);
    page->resize(150, 60);
    areaOf(page)->setGeometry(0, 0, 150, 60);
}

void turnWheelDown(QWidget *over)
{
    const QPointF at = over->rect().center();
    QWheelEvent event(at, over->mapToGlobal(at.toPoint()), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(over, &event);
}

} // namespace

class TestMainWindowScreen : public QObject
{
    Q_OBJECT

private slots:
    void keyDisconnectsWhileItsButtonIsHidden()
    {
        ModelWindow tool;
        CameraEnd camera;
        QVERIFY(activate(tool.window));
        QVERIFY(tool.connectTo(camera.path()));
        QVERIFY(!tool.chooseModel(key20));
        QVERIFY(tool.hidden("btConnectDisconnect"));
        QTest::keyClick(&tool.window, Qt::Key_K, Qt::ControlModifier);
        QTRY_VERIFY(!tool.connected());
        QVERIFY(tool.hidden("btConnectDisconnect"));
        QTest::keyClick(&tool.window, Qt::Key_K, Qt::ControlModifier);
        QTRY_VERIFY(tool.connected());
    }

    void keysActWhileTheirButtonsAreHidden_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::newRow("read") << "btnReadConf" << int(Qt::Key_F5) << int(Qt::NoModifier);
        QTest::newRow("preview") << "pbLivePreview" << int(Qt::Key_F6) << int(Qt::NoModifier);
        QTest::newRow("write") << "btnSetConf" << int(Qt::Key_S)
                               << int(Qt::ControlModifier | Qt::ShiftModifier);
    }
    void keysActWhileTheirButtonsAreHidden()
    {
        QFETCH(QString, button);
        QFETCH(int, key);
        QFETCH(int, modifiers);
        ModelWindow tool;
        QVERIFY(activate(tool.window));
        auto *pressed = tool.get<QPushButton>(qPrintable(button));
        disconnect(pressed, nullptr, &tool.window, nullptr); // what it does is tested elsewhere
        QSignalSpy clicks(pressed, &QPushButton::clicked);
        const auto press = [&] {
            QTest::keyClick(&tool.window, static_cast<Qt::Key>(key),
                            static_cast<Qt::KeyboardModifier>(modifiers));
        };
        press();
        QCOMPARE(clicks.count(), 0); // disabled: there is no camera
        pressed->setEnabled(true);
        press();
        QTRY_COMPARE(clicks.count(), 1);
        pressed->hide();
        press();
        QTRY_COMPARE(clicks.count(), 2);
        pressed->setEnabled(false);
        press();
        QCOMPARE(clicks.count(), 2);
        pressed->setEnabled(true);
        pressed->show();
        press();
        QTRY_COMPARE(clicks.count(), 3);
    }

    void firstFocusIsSeenAndChangesNothing()
    {
        ModelWindow tool;
        QVERIFY(activate(tool.window));
        QWidget *ports = tool.widget("comboBoxPort");
        QTRY_COMPARE(QApplication::focusWidget(), ports);
        const QImage focused = ports->grab().toImage();
        tool.widget("btConnectDisconnect")->setFocus();
        QVERIFY(focused != ports->grab().toImage());
        ports->setFocus();
        for (const int key : {int(Qt::Key_Down), int(Qt::Key_Up), int(Qt::Key_Q),
                              int(Qt::Key_Return), int(Qt::Key_PageDown), int(Qt::Key_End)})
            QTest::keyClick(ports, static_cast<Qt::Key>(key));
        QCOMPARE(tool.deviceIndex(), 0);
        QVERIFY(!tool.connected());
        QCOMPARE(QApplication::focusWidget(), ports);
    }

    void nonsenseInFramesToSkipIsMarked_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("marked");
        QTest::newRow("zero") << "0" << false;
        QTest::newRow("greatest") << "4294967295" << false;
        QTest::newRow("too great") << "4294967296" << true;
        QTest::newRow("letters") << "abc" << true;
        QTest::newRow("nothing") << "" << true;
        QTest::newRow("negative") << "-1" << true;
        QTest::newRow("fraction") << "1.5" << true;
        QTest::newRow("hexadecimal") << "0x10" << true;
        QTest::newRow("number with letters") << "12 frames" << true;
    }
    void nonsenseInFramesToSkipIsMarked()
    {
        QFETCH(QString, text);
        QFETCH(bool, marked);
        ModelWindow tool;
        auto *edit = tool.get<QLineEdit>("leFrameSkip");
        const QColor plain = edit->palette().base().color();
        const QString what = edit->accessibleDescription();
        edit->setText("1");
        edit->setText(text);
        QCOMPARE(edit->text(), text);
        QCOMPARE(edit->palette().base().color() != plain, marked);
        QCOMPARE(edit->accessibleDescription() != what, marked);
        QCOMPARE(edit->actions().count(), marked ? 1 : 0);
        if (marked) {
            QVERIFY(!edit->actions().constFirst()->icon().isNull());
            QVERIFY(edit->actions().constFirst()->toolTip().contains("0 is stored"));
        }
        edit->setText("7");
        QCOMPARE(edit->palette().base().color(), plain);
        QCOMPARE(edit->accessibleDescription(), what);
        QVERIFY(edit->actions().isEmpty());
    }

    void focusBringsItsFieldIntoView()
    {
        ModelWindow tool;
        QVERIFY(activate(tool.window));
        QWidget *page = tool.widget("tab_5");
        shrink(page);
        QWidget *last = tool.widget("cbTestmodesTaucore");
        QVERIFY(last->visibleRegion().isEmpty());
        last->setFocus(Qt::ShortcutFocusReason);
        QTRY_VERIFY(!last->visibleRegion().isEmpty());
        QTRY_COMPARE(last->visibleRegion().boundingRect().height(), last->height());
    }

    void disabledPageScrolls()
    {
        ModelWindow tool;
        tool.get<QTabWidget>("tabWidget")->setCurrentIndex(3);
        QWidget *page = tool.widget("tab_SBUS");
        page->setEnabled(false);
        shrink(page);
        QScrollBar *bar = areaOf(page)->verticalScrollBar();
        QTRY_VERIFY(bar->maximum() > 0);
        const auto scrolls = [&] {
            bar->setValue(0);
            turnWheelDown(areaOf(page)->viewport());
            const bool byWheel = bar->value() > 0;
            bar->setValue(0);
            QTest::keyClick(bar, Qt::Key_Down);
            return byWheel && bar->value() > 0;
        };
        QVERIFY(scrolls());
        QVERIFY(!tool.widget("cbSbusColormap")->isEnabled());
        page->setEnabled(true);
        QVERIFY(scrolls());
        page->setEnabled(false);
        QVERIFY(scrolls());
    }

    void disabledFromTheStartScrolls()
    {
        ModelWindow tool;
        QWidget *page = tool.widget("tab_liveview"); // until the first connection
        QVERIFY(!page->isEnabled());
        QVERIFY(areaOf(page)->verticalScrollBar()->isEnabled());
    }
};

QTEST_MAIN(TestMainWindowScreen)
#include "tst_mainwindow_screen.moc"
