#include "forms/busyindicator.h"
#include "forms/guistatus.h"

#include <QQmlContext>
#include <QQuickItem>
#include <QQuickWidget>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

class TestBusyIndicator : public QObject
{
    Q_OBJECT

private slots:
    void busyStateAnnouncesOnlyChanges()
    {
        guistatus status;
        QSignalSpy changed(&status, &guistatus::busyChanged);
        QVERIFY(!status.isBusy());
        status.setBusy(false);
        QCOMPARE(changed.count(), 0);
        status.setBusy(true);
        status.setBusy(true);
        QCOMPARE(changed.count(), 1);
        QVERIFY(status.property("isbusy").toBool());
        status.setProperty("isbusy", false);
        QCOMPARE(changed.count(), 2);
    }

    void indicatorRunsWhileBusy()
    {
        guistatus status;
        QQuickWidget view;
        busyindicator::load(&view, &status, Qt::darkGray);
        QCOMPARE(view.status(), QQuickWidget::Ready);
        QVERIFY(!view.rootObject()->property("running").toBool());
        status.setBusy(true);
        QVERIFY(view.rootObject()->property("running").toBool());
        status.setBusy(false);
        QVERIFY(!view.rootObject()->property("running").toBool());
    }

    void backgroundFollowsThePalette()
    {
        guistatus status;
        QWidget window;
        QQuickWidget view(&window);
        busyindicator::load(&view, &status, Qt::white);
        QCOMPARE(view.quickWindow()->color(), QColor(Qt::white));
        QPalette dark;
        dark.setColor(QPalette::Window, QColor(20, 30, 40));
        window.setPalette(dark);
        QCOMPARE(view.quickWindow()->color(), QColor(20, 30, 40));
    }

    void unloadedIndicatorOutlivesItsState()
    {
        QQuickWidget view;
        {
            guistatus status;
            busyindicator::load(&view, &status, Qt::darkGray);
            busyindicator::unload(&view);
        }
        QVERIFY(!view.rootObject());
    }

    /// Lasts for the rest of the program: these are the last.
    void windowMayBePaintedFirst()
    {
        busyindicator::loadAfterFirstPaint();
        guistatus status;
        status.setBusy(true);
        QWidget window;
        QQuickWidget view(&window);
        busyindicator::load(&view, &status, Qt::white);
        QCOMPARE(view.quickWindow()->color(), QColor(Qt::white));
        QVERIFY(view.source().isEmpty());
        window.show();
        QTRY_COMPARE(view.status(), QQuickWidget::Ready);
        QVERIFY(view.rootObject()->property("running").toBool());
        busyindicator::unload(&view);
    }

    void windowThatIsNeverShownLoadsNothing()
    {
        guistatus status;
        QWidget window;
        QQuickWidget view(&window);
        busyindicator::load(&view, &status, Qt::white);
        busyindicator::unload(&view);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCoreApplication::processEvents();
        QVERIFY(view.source().isEmpty());
    }
};

QTEST_MAIN(TestBusyIndicator)
#include "tst_busyindicator.moc"
