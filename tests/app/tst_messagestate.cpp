#include "app/messageState.h"
#include "support/exchange.h"
#include "support/modal.h"

#include <QDateTime>

/// The record of the outstanding command, and what of the line outlives a command or a connection.
class TestMessageState : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { modal::useQtDialogs(); }

    void sendIsRecorded()
    {
        Exchange e;
        const qint64 before = QDateTime::currentMSecsSinceEpoch();
        messageState.timeout = 0;
        e.send(COMIO_CMD_GET_CONFIG);
        QCOMPARE(messageState.command, COMIO_CMD_GET_CONFIG);
        QVERIFY(!messageState.replied);
        QCOMPARE(messageState.timeout, qint64(500));
        QCOMPARE(messageState.frame, reference::frame(102, {}));
        QVERIFY(messageState.sendTime >= before);
        QVERIFY(messageState.sendTime <= QDateTime::currentMSecsSinceEpoch());
    }

    void timerOfTheWindowIsNeverStartedBySends()
    {
        Exchange e;
        QVERIFY(messageState.timer);
        QCOMPARE(messageState.timer->parent(), &e.tool.window);
        e.send(COMIO_CMD_GET_CONFIG);
        QVERIFY(!messageState.timer->isActive());
    }

    void timeoutOfTheTimerRunsTheCheck()
    {
        Exchange e;
        e.send(COMIO_CMD_TRIGGER, "\1");
        QVERIFY(e.settle());
        messageState.timer->setSingleShot(true);
        messageState.timer->start(0);
        QTRY_COMPARE(e.lines.err(), notSent);
        messageState.timer->setSingleShot(false);
    }

    void answersStopTheTimer_data()
    {
        QTest::addColumn<quint32>("code");
        QTest::newRow("acknowledged") << 224U;
        QTest::newRow("rejected") << 324U;
    }

    void answersStopTheTimer()
    {
        QFETCH(quint32, code);
        Exchange e;
        e.send(COMIO_CMD_TRIGGER, "\1");
        messageState.timer->start(60000);
        std::unique_ptr<modal::Answer<QMessageBox>> answer;
        if (code == 324)
            answer = std::make_unique<modal::Answer<QMessageBox>>(modal::click(QMessageBox::Ok));
        e.camera.send(code);
        QTRY_VERIFY(messageState.replied);
        QTRY_COMPARE(e.lines.out().right(1), QStringLiteral("\n"));
        QVERIFY(!messageState.timer->isActive());
    }

    void everySendHasItsOwnCheck()
    {
        Exchange e;
        QVERIFY(e.settle());
        e.send(COMIO_CMD_TRIGGER, "\1");
        e.send(COMIO_CMD_TRIGGER, "\0");
        QTRY_COMPARE(e.lines.err(), notSent + notSent);
        QVERIFY(e.settle());
        QVERIFY(e.lines.err().isEmpty());
    }

    void checksLookAtWhateverIsOutstandingThen()
    {
        Exchange e;
        QVERIFY(e.settle());
        e.send(COMIO_CMD_TRIGGER, "\1");
        e.camera.send(224);
        QTRY_VERIFY(messageState.replied);
        e.send(COMIO_CMD_GET_CONFIG); // unanswered when the first one's check comes
        QTRY_COMPARE(e.lines.err(), notSent + notSent);
    }

    void frameCutByADisconnectIsCompletedAfterIt()
    {
        Exchange e;
        const QByteArray frame = reference::frame(226, "joined");
        e.camera.sendBytes(reference::frame(0, {}) + frame.left(11));
        QTRY_VERIFY(e.lines.out().contains("COMIO_CMD_UNKNOWN")); // so the cut frame came as well
        reconnect(e);
        e.camera.sendBytes(frame.mid(11));
        QTRY_COMPARE(e.gpsText(), QStringLiteral("joined"));
    }

    void partsOfAMessageMayLieOnBothSidesOfADisconnect()
    {
        Exchange e;
        e.camera.sendBytes(reference::frame(226, "one ", 1, 2) + reference::frame(0, {}, 2, 2));
        QTRY_VERIFY(e.lines.out().contains("COMIO_CMD_UNKNOWN"));
        e.camera.sendBytes(reference::frame(226, "two ", 1, 2) + "KOVO");
        e.lines.clear();
        e.camera.sendBytes(
            QByteArray::fromHex("00000401")); // refused length: all before it is read
        QTRY_COMPARE(e.lines.out(), QStringLiteral("--Reset parser\n"));
        reconnect(e);
        e.camera.sendBytes(reference::frame(226, QByteArray("too\0", 4), 2, 2));
        QTRY_COMPARE(e.gpsText(), QStringLiteral("two too"));
    }

    void gpsTextKeepsItsOwnLineEnds()
    {
        Exchange e;
        e.camera.send(226, QByteArray("$GPGGA,1\r\n\0\0", 12));
        e.camera.send(226, QByteArray("$GPGGA,2\0\0\0\0", 12));
        QTRY_COMPARE(e.gpsText(), QStringLiteral("$GPGGA,1\n\n$GPGGA,2"));
    }

private:
    static void reconnect(Exchange &e)
    {
        auto *button = e.tool.get<QPushButton>("btConnectDisconnect");
        button->click();
        QCOMPARE(button->text(), QStringLiteral("Connect"));
        button->click();
        QCOMPARE(button->text(), QStringLiteral("Disconnect"));
    }
};

QTEST_MAIN(TestMessageState)
#include "tst_messagestate.moc"
