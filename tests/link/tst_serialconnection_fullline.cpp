// A device that does not read: what is sent waits for it, in order and bounded, and only a device
// that vanishes closes the port.

#include "link/SerialConnection.h"

#include "support/captureddiagnostics.h"
#include "support/eventloop.h"
#include "support/processortime.h"
#include "support/pseudoterminal.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QtTest>

#include <atomic>
#include <memory>
#include <thread>

static constexpr int frameSize = 245; // a live-settings frame
static constexpr int frames = 400;    // 98 kB; the line itself holds far less

static QByteArray numbered(int frame)
{
    return QByteArray::number(frame).rightJustified(frameSize, '.');
}

class tst_SerialConnection_FullLine : public QObject
{
    Q_OBJECT

private slots:
    void portStaysOpenAndNothingIsLostOrReordered();
    void waitingIsAnnouncedOnceAndItsEndToo();
    void writesDoNotPutOffTheAnnouncement();
    void aLineThatDrainsInTimeIsNotAnnounced();
    void waitingBytesAreBounded();
    void waitingTakesNoProcessorTime();
    void vanishedDeviceClosesThePortOnceWhileBytesWait();
    void vanishedDeviceIsNoStalledOne();
    void closingForgetsWhatWaits();
    void everyEndForgetsWhatTheDeviceDoesNotTake_data();
    void everyEndForgetsWhatTheDeviceDoesNotTake();
    void everyEndLetsTheDeviceTakeWhatItReads_data();
    void everyEndLetsTheDeviceTakeWhatItReads();
    void frameBeyondTheBoundIsRefused();
};

namespace {

struct Line
{
    Line()
    {
        if (!connection.openSerialPort(terminal.path()))
            qFatal("no connection");
        lines.clear();
    }
    /// Closes the port, by the operator or with the connection itself.
    void end(bool byDestruction)
    {
        if (byDestruction)
            owned.reset();
        else
            connection.closeSerialPort();
    }
    /// Writes frames that nobody reads.
    QByteArray fill(int count = frames)
    {
        QByteArray sent;
        for (int frame = 0; frame < count; ++frame) {
            sent += numbered(frame);
            connection.writeSerialPortData(numbered(frame));
        }
        return sent;
    }

    PseudoTerminal terminal;
    std::unique_ptr<SerialConnection> owned = std::make_unique<SerialConnection>(nullptr);
    SerialConnection &connection = *owned;
    QSignalSpy changed{&connection, &SerialConnection::signalPortConnectionChanged};
    QSignalSpy stalled{&connection, &SerialConnection::signalWriteStalled};
    CapturedDiagnostics lines;
};

} // namespace

void tst_SerialConnection_FullLine::portStaysOpenAndNothingIsLostOrReordered()
{
    Line line;
    line.changed.clear();
    const QByteArray sent = line.fill();
    turnEventLoop(100);
    QVERIFY(line.connection.isOpen());
    QTRY_COMPARE(line.terminal.received().size(), sent.size());
    QCOMPARE(line.terminal.received(), sent);
    line.connection.writeSerialPortData("and on");
    QTRY_COMPARE(line.terminal.received(), sent + "and on");
    QCOMPARE(line.changed.size(), 0);
    QCOMPARE(line.lines.out() + line.lines.err(), QString());
}

void tst_SerialConnection_FullLine::waitingIsAnnouncedOnceAndItsEndToo()
{
    Line line;
    const QByteArray sent = line.fill();
    QCOMPARE(line.stalled.size(), 0);
    QTRY_COMPARE(line.stalled.size(), 1);
    QCOMPARE(line.stalled.at(0).at(0).toBool(), true);
    line.connection.writeSerialPortData("more");
    QTRY_COMPARE(line.terminal.received().size(), sent.size() + 4);
    QTRY_COMPARE(line.stalled.size(), 2);
    QCOMPARE(line.stalled.at(1).at(0).toBool(), false);
    QVERIFY(line.connection.isOpen());
}

void tst_SerialConnection_FullLine::writesDoNotPutOffTheAnnouncement()
{
    Line line;
    line.fill();
    QTimer writer;
    connect(&writer, &QTimer::timeout, this, [&] { line.connection.writeSerialPortData("poll"); });
    writer.start(100);
    QTRY_COMPARE(line.stalled.size(), 1);
}

void tst_SerialConnection_FullLine::aLineThatDrainsInTimeIsNotAnnounced()
{
    Line line;
    const QByteArray sent = line.fill();
    QTRY_COMPARE(line.terminal.received().size(), sent.size());
    turnEventLoop(1200); // longer than anything may wait
    QCOMPARE(line.stalled.size(), 0);
}

void tst_SerialConnection_FullLine::waitingBytesAreBounded()
{
    Line line;
    const QByteArray block(64 * 1024, 'x');
    int refused = 0;
    qint64 accepted = 0;
    while (refused < 3 && accepted < 4 * SerialConnection::MaximumWaiting) {
        line.lines.clear();
        line.connection.writeSerialPortData(block);
        if (line.lines.out().isEmpty()) {
            accepted += block.size();
            continue;
        }
        ++refused;
        QVERIFY2(QRegularExpression("\\A<<< ERROR writeData: \\d+ bytes are waiting for the device,"
                                    " 65536 more are lost\n\\z")
                     .match(line.lines.out())
                     .hasMatch(),
                 qPrintable(line.lines.out()));
    }
    QCOMPARE(refused, 3);
    QVERIFY(accepted >= SerialConnection::MaximumWaiting - block.size());
    QVERIFY(line.connection.isOpen());
    QTRY_COMPARE_WITH_TIMEOUT(line.terminal.received().size(), int(accepted), 20000);
    line.lines.clear();
    line.connection.writeSerialPortData("fits again");
    QTRY_VERIFY(line.terminal.received().endsWith("fits again"));
    QCOMPARE(line.lines.out(), QString());
}

void tst_SerialConnection_FullLine::waitingTakesNoProcessorTime()
{
    Line line;
    line.fill();
    QTRY_COMPARE(line.stalled.size(), 1);
    const double before = processorTime();
    turnEventLoop(2000);
    QVERIFY2(processorTime() - before < 0.2, qPrintable(QString::number(processorTime() - before)));
}

void tst_SerialConnection_FullLine::vanishedDeviceClosesThePortOnceWhileBytesWait()
{
    Line line;
    line.fill();
    QTRY_COMPARE(line.stalled.size(), 1);
    line.changed.clear();
    line.terminal.hangUp();
    QTRY_COMPARE(line.changed.size(), 1);
    QVERIFY(!line.connection.isOpen());
    QCOMPARE(line.stalled.size(), 2);
    QCOMPARE(line.stalled.at(1).at(0).toBool(), false);
    turnEventLoop(100);
    QCOMPARE(line.changed.size(), 1);
    QCOMPARE(line.lines.out().count("<<< serial interface closed\n"), 1);
}

void tst_SerialConnection_FullLine::vanishedDeviceIsNoStalledOne()
{
    Line line;
    line.changed.clear();
    line.terminal.hangUp();
    line.fill(3);
    QTRY_COMPARE(line.changed.size(), 1);
    turnEventLoop(1200); // longer than anything may wait
    QCOMPARE(line.stalled.size(), 0);
}

void tst_SerialConnection_FullLine::closingForgetsWhatWaits()
{
    Line line;
    line.fill();
    QTRY_COMPARE(line.stalled.size(), 1);
    line.connection.closeSerialPort();
    QCOMPARE(line.stalled.size(), 2);
    QVERIFY(!line.connection.isOpen());
    line.terminal.received();
    QVERIFY(line.connection.openSerialPort(line.terminal.path()));
    const int before = line.terminal.received().size();
    line.connection.writeSerialPortData("anew");
    QTRY_COMPARE(line.terminal.received().mid(before), QByteArray("anew"));
    QCOMPARE(line.stalled.size(), 2);
}

static void ends()
{
    QTest::addColumn<bool>("byDestruction");
    QTest::newRow("closing") << false;
    QTest::newRow("destruction") << true;
}

void tst_SerialConnection_FullLine::everyEndForgetsWhatTheDeviceDoesNotTake_data()
{
    ends();
}

void tst_SerialConnection_FullLine::everyEndForgetsWhatTheDeviceDoesNotTake()
{
    QFETCH(bool, byDestruction);
    Line line;
    line.fill(); // and no stall was announced yet
    QElapsedTimer time;
    time.start();
    line.end(byDestruction);
    QVERIFY2(time.elapsed() < 1000, qPrintable(QString::number(time.elapsed())));
    // What has reached the other end of the line stays there, up to a page.
    const int received = line.terminal.received().size();
    QVERIFY2(received <= 4096, qPrintable(QString::number(received)));
    QCOMPARE(line.stalled.size(), 0);
}

void tst_SerialConnection_FullLine::everyEndLetsTheDeviceTakeWhatItReads_data()
{
    ends();
}

void tst_SerialConnection_FullLine::everyEndLetsTheDeviceTakeWhatItReads()
{
    QFETCH(bool, byDestruction);
    Line line;
    std::atomic<bool> ended{false};
    const QByteArray sent = line.fill(120); // 29 kB: more than the line holds
    std::thread reader([&] {
        while (!ended) {
            line.terminal.received();
            std::this_thread::yield();
        }
    });
    line.end(byDestruction);
    ended = true;
    reader.join();
    QCOMPARE(line.terminal.received(), sent);
}

void tst_SerialConnection_FullLine::frameBeyondTheBoundIsRefused()
{
    Line line;
    QVERIFY(line.connection.writeSerialPortData(QByteArray(SerialConnection::MaximumWaiting, 'x')));
    QVERIFY(line.connection.writeSerialPortData("fits"));
    const QByteArray block(64 * 1024, 'x');
    QVERIFY(!line.connection.writeSerialPortData(block));
    line.connection.closeSerialPort();
    QVERIFY(!line.connection.writeSerialPortData("closed"));
}

QTEST_GUILESS_MAIN(tst_SerialConnection_FullLine)
#include "tst_serialconnection_fullline.moc"
