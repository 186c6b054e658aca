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

    void circleIsSeenOnAnyWindow_data()
    {
        QTest::addColumn<QColor>("ground");
        QTest::addColumn<QColor>("text");
        QTest::newRow("light") << QColor(239, 239, 239) << QColor(Qt::black);
        QTest::newRow("dark") << QColor(53, 53, 53) << QColor(Qt::white);
    }
    void circleIsSeenOnAnyWindow()
    {
        QFETCH(QColor, ground);
        QFETCH(QColor, text);
        const QPalette before = QApplication::palette();
        QPalette palette = before;
        palette.setColor(QPalette::Window, ground);
        palette.setColor(QPalette::WindowText, text);
        QApplication::setPalette(palette);
        guistatus status;
        QQuickWidget view;
        view.setResizeMode(QQuickWidget::SizeRootObjectToView);
        view.resize(32, 32);
        busyindicator::load(&view, &status, ground);
        view.show();
        status.setBusy(true);
        // The circle has pixels that stand out as its text does, if less.
        const int least = qAbs(qGray(text.rgb()) - qGray(ground.rgb())) * 2 / 3;
        const auto clearPixels = [&] {
            const QImage image = view.grabFramebuffer();
            int count = 0;
            for (int x = 0; x < image.width(); ++x)
                for (int y = 0; y < image.height(); ++y)
                    count += qAbs(qGray(image.pixel(x, y)) - qGray(ground.rgb())) >= least;
            return count;
        };
        QTRY_VERIFY(clearPixels() > 20);
        status.setBusy(false);
        QTRY_COMPARE(clearPixels(), 0);
        QApplication::setPalette(before);
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
