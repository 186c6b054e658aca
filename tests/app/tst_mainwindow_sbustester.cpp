#include "support/captureddiagnostics.h"
#include "support/livesession.h"
#include "support/records.h"

#include <QDialog>
#include <QLCDNumber>
#include <QSlider>

namespace {

/// Sixteen levels: channel n has 100 * n plus `round`.
QByteArray levels(int round)
{
    QByteArray payload(32, '\0');
    for (int channel = 1; channel <= 16; ++channel)
        records::put<quint16>(payload, 2 * (channel - 1), quint16(100 * channel + round));
    return payload;
}

} // namespace

/// The SBUS tester as the main window opens, feeds and ends it.
class TestMainWindowSbusTester : public QObject
{
    Q_OBJECT

    CapturedDiagnostics m_lines;

private slots:
    void init() { m_lines.clear(); }

    void channelTestShowsTheTester()
    {
        WindowUnderTest tool;
        auto *tester = tool.window.findChild<QDialog *>("sbusTester");
        QVERIFY(tester);
        QVERIFY(!tester->isVisible());
        tester->resize(3000, 3000);
        // The button stands on the tab of the channels, which a trigger mode opens.
        tool.get<QComboBox>("cbTriggerPinMode")->setCurrentIndex(1);
        tool.get<QPushButton>("pbSbusTest")->click();
        QVERIFY(tester->isVisible());
        QVERIFY(!tester->isEnabled()); // nothing to test while disconnected
        QVERIFY(tester->width() < 3000 && tester->height() < 3000);
    }

    void testerSession()
    {
        LiveSession session(records::keyBlendZoom);
        session.get<QComboBox>("cbTriggerPinMode")->setCurrentIndex(1);
        session.click("pbSbusTest");
        auto *tester = session.window.findChild<QDialog *>("sbusTester");
        QVERIFY(tester->isEnabled());
        auto *startStop = tester->findChild<QPushButton *>("pbSbusTester_startstream");
        auto *last = tester->findChild<QLCDNumber *>("lcd16");
        QVERIFY(session.arrived());
        QCOMPARE(session.camera.count(123), 0);
        const auto outstanding = messageState.command;
        m_lines.clear();

        startStop->click();
        for (int round = 1; round <= 4; ++round) {
            QTRY_VERIFY(session.camera.count(123) >= round);
            QVERIFY(session.camera.last(123).isEmpty());
            QVERIFY(session.camera.send(223, levels(round)));
            QTRY_COMPARE(last->intValue(), 1600 + round);
            for (int channel = 1; channel <= 16; ++channel) {
                QCOMPARE(tester->findChild<QLCDNumber *>(QStringLiteral("lcd%1").arg(channel))
                             ->intValue(),
                         100 * channel + round);
                QCOMPARE(
                    tester->findChild<QSlider *>(QStringLiteral("hs_clv%1").arg(channel))->value(),
                    100 * channel + round);
            }
            QCOMPARE(m_lines.out().count("sbusTester::parseSbusLevels()\n"), round);
        }
        // These requests are no commands of the main window: its own stays the outstanding one.
        QCOMPARE(messageState.command, outstanding);
        QVERIFY(session.busy());

        tester->close();
        QVERIFY(session.arrived());
        const int requests = m_lines.out().count("sbusTester::slotTimerRequestSbusLevels())\n");
        QCOMPARE(session.camera.count(123), requests);
        Shot interval(600); // a poll would be due before
        QTRY_VERIFY(interval.fired);
        QVERIFY(session.arrived());
        QCOMPARE(session.camera.count(123), requests);
        QCOMPARE(last->intValue(), 0);
    }

    void disconnectingEndsTheTesterSession()
    {
        LiveSession session(records::keyBlend);
        session.window.on_pbSbusTest_clicked();
        auto *tester = session.window.findChild<QDialog *>("sbusTester");
        tester->findChild<QPushButton *>("pbSbusTester_startstream")->click();
        QTRY_VERIFY(session.camera.count(123) >= 1);
        session.click("btConnectDisconnect");
        QVERIFY(!tester->isEnabled());
        QVERIFY(tester->isVisible());
        m_lines.clear();
        Shot interval(600);
        QTRY_VERIFY(interval.fired);
        QVERIFY(m_lines.out().isEmpty());
    }
};

QTEST_MAIN(TestMainWindowSbusTester)
#include "tst_mainwindow_sbustester.moc"
