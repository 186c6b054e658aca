#include "link/SerialConnection.h"

#include "support/captureddiagnostics.h"
#include "support/pseudoterminal.h"

#include <QEventLoop>
#include <QSerialPortInfo>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <memory>

static const QString closedLines = "SerialConnection::closeSerialPort()\n"
                                   "<<< close()\n"
                                   "<<< serial interface closed\n";

static QByteArray joined(const QSignalSpy &dataSpy)
{
    QByteArray bytes;
    for (const QList<QVariant> &arguments : dataSpy)
        bytes += arguments.at(0).toByteArray();
    return bytes;
}

class tst_SerialConnection : public QObject
{
    Q_OBJECT

private slots:
    void opensWith115200Baud8N1();
    void openedPortIsKeptWhenOpenedAgain();
    void emptyNameIsNotOpened();
    void refusedOpenWritesTheErrorAndLeavesTheConnectionClosed();
    void closingWhatWasNeverOpenedWritesOneLine();
    void closeAnnouncesOnce();
    void writesWholeFrames();
    void writingWhileClosedDropsTheData();
    void receivedBytesArriveUnaltered();
    void bytesArriveWhileAReceiverRunsTheEventLoop();
    void readingWhileClosedWritesOneLine();
    void oneBlockIsOneSignal();
    void bytesOfTheSamePassAreNotLostByTheClose_data();
    void bytesOfTheSamePassAreNotLostByTheClose();
    void closingAfterThePortWasClosedUnderneathSaysSo();
    void stateIsSetBeforeItIsAnnounced();
    void destroyingAnOpenConnectionIsSilentAndFreesTheLine();
    void unplugClosesThePortAndPollingResumes();
    void unplugWhileWritingClosesThePortOnce();
    void portCanBeOpenedAfterAnUnplug();
    void resourceErrorClosesThePort();
    void otherErrorsLeaveALivePortOpen();
    void portsAreAnnouncedSortedByCase();
    void unchangedOrReorderedListIsNotAnnounced();
    void firstPollComesWithinHalfASecond();
    void listIsFrozenWhileConnected();
    void extraPortInTheSystemsListIsNotDoubled();
};

void tst_SerialConnection::opensWith115200Baud8N1()
{
    PseudoTerminal line;
    SerialConnection connection(nullptr);
    QSignalSpy changed(&connection, &SerialConnection::signalPortConnectionChanged);
    CapturedDiagnostics diagnostics;
    QVERIFY(connection.openSerialPort(line.path()));
    QVERIFY(connection.isOpen());
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.at(0).at(0).toBool(), true);
    QCOMPARE(diagnostics.out() + diagnostics.err(), QString());

    const termios settings = line.lineSettings();
    QCOMPARE(cfgetispeed(&settings), speed_t(B115200));
    QCOMPARE(cfgetospeed(&settings), speed_t(B115200));
    QCOMPARE(settings.c_cflag & CSIZE, tcflag_t(CS8));
    QCOMPARE(settings.c_cflag & (PARENB | CSTOPB | CRTSCTS), tcflag_t(0));
    QCOMPARE(settings.c_iflag & (IXON | IXOFF), tcflag_t(0));
}

void tst_SerialConnection::openedPortIsKeptWhenOpenedAgain()
{
    PseudoTerminal line;
    PseudoTerminal other;
    SerialConnection connection(nullptr);
    QVERIFY(connection.openSerialPort(line.path()));
    QSignalSpy changed(&connection, &SerialConnection::signalPortConnectionChanged);
    CapturedDiagnostics diagnostics;
    QVERIFY(!connection.openSerialPort(line.path()));
    QVERIFY(!connection.openSerialPort(other.path()));
    QVERIFY(!connection.openSerialPort(""));
    QCOMPARE(changed.size(), 0);
    QCOMPARE(diagnostics.out() + diagnostics.err(), QString());
    connection.writeSerialPortData("still here");
    QTRY_COMPARE(line.received(), QByteArray("still here"));
}

void tst_SerialConnection::emptyNameIsNotOpened()
{
    SerialConnection connection(nullptr);
    QSignalSpy changed(&connection, &SerialConnection::signalPortConnectionChanged);
    CapturedDiagnostics diagnostics;
    QVERIFY(!connection.openSerialPort(""));
    QVERIFY(!connection.isOpen());
    QCOMPARE(changed.size(), 0);
    // The port would have reported an error had it been touched.
    QCOMPARE(diagnostics.out(), QString("error: serial port name not valid\n"));
    QCOMPARE(diagnostics.err(), QString());
}

void tst_SerialConnection::refusedOpenWritesTheErrorAndLeavesTheConnectionClosed()
{
    QTemporaryDir folder;
    SerialConnection connection(nullptr);
    QSignalSpy changed(&connection, &SerialConnection::signalPortConnectionChanged);
    CapturedDiagnostics diagnostics;
    QVERIFY(!connection.openSerialPort(folder.filePath("no-such-device")));
    QVERIFY(!connection.isOpen());
    QCOMPARE(changed.size(), 0);
    QCOMPARE(diagnostics.out(), QString("SerialConnection::slotSerialPortError(1)\n"
                                        "<<< failed to open serial connection\n"));
    QCOMPARE(diagnostics.err(), QString());

    PseudoTerminal line;
    QVERIFY(connection.openSerialPort(line.path()));
}

void tst_SerialConnection::closingWhatWasNeverOpenedWritesOneLine()
{
    SerialConnection connection(nullptr);
    QSignalSpy changed(&connection, &SerialConnection::signalPortConnectionChanged);
    CapturedDiagnostics diagnostics;
    connection.closeSerialPort();
    QCOMPARE(diagnostics.out(), QString("SerialConnection::closeSerialPort()\n"));
    QCOMPARE(changed.size(), 0);
}

void tst_SerialConnection::closeAnnouncesOnce()
{
    PseudoTerminal line;
    SerialConnection connection(nullptr);
    QVERIFY(connection.openSerialPort(line.path()));
    QSignalSpy changed(&connection, &SerialConnection::signalPortConnectionChanged);
    CapturedDiagnostics diagnostics;
    connection.closeSerialPort();
    QVERIFY(!connection.isOpen());
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.at(0).at(0).toBool(), false);
    QCOMPARE(diagnostics.out(), closedLines);
    connection.closeSerialPort();
    QCOMPARE(changed.size(), 1);
    QCOMPARE(diagnostics.out(), closedLines + "SerialConnection::closeSerialPort()\n");
    QVERIFY(connection.openSerialPort(line.path()));
}

void tst_SerialConnection::writesWholeFrames()
{
    PseudoTerminal line;
    SerialConnection connection(nullptr);
    QVERIFY(connection.openSerialPort(line.path()));
    QByteArray all;
    for (int i = 0; i < 256; ++i)
        all.append(static_cast<char>(i));
    connection.writeSerialPortData(all);
    connection.writeSerialPortData(all + all);
    // Flushed: no event loop has run since.
    QCOMPARE(line.received(), all + all + all);
}

void tst_SerialConnection::writingWhileClosedDropsTheData()
{
    PseudoTerminal line;
    SerialConnection connection(nullptr);
    CapturedDiagnostics diagnostics;
    connection.writeSerialPortData("lost");
    QCOMPARE(diagnostics.out(), QString("<<< ERROR writeData: serial port not open\n\n"));
    QCOMPARE(diagnostics.err(), QString());
    QVERIFY(connection.openSerialPort(line.path()));
    connection.writeSerialPortData("sent");
    QTRY_COMPARE(line.received(), QByteArray("sent"));
}

void tst_SerialConnection::receivedBytesArriveUnaltered()
{
    PseudoTerminal line;
    SerialConnection connection(nullptr);
    QVERIFY(connection.openSerialPort(line.path()));
    QSignalSpy data(&connection, &SerialConnection::signalNewSerialPortData);
    QByteArray all;
    for (int i = 0; i < 4 * 256; ++i)
        all.append(static_cast<char>(i));
    QByteArray sent;
    for (int i = 0; i < 20; ++i) {
        QVERIFY(line.write(all));
        sent += all;
        QTRY_COMPARE(joined(data), sent);
    }
}

void tst_SerialConnection::bytesArriveWhileAReceiverRunsTheEventLoop()
{
    PseudoTerminal line;
    SerialConnection connection(nullptr);
    QVERIFY(connection.openSerialPort(line.path()));
    QSignalSpy data(&connection, &SerialConnection::signalNewSerialPortData);
    QByteArray insideBox;
    bool open = false;
    connect(&connection, &SerialConnection::signalNewSerialPortData, this, [&] {
        if (open)
            return;
        open = true;
        QVERIFY(line.write("second"));
        QTRY_COMPARE(joined(data), QByteArray("firstsecond"));
        QVERIFY(line.write("third"));
        QTRY_COMPARE(joined(data), QByteArray("firstsecondthird"));
        insideBox = joined(data);
    });
    QVERIFY(line.write("first"));
    QTRY_COMPARE(insideBox, QByteArray("firstsecondthird"));
}

void tst_SerialConnection::readingWhileClosedWritesOneLine()
{
    SerialConnection connection(nullptr);
    QSignalSpy data(&connection, &SerialConnection::signalNewSerialPortData);
    CapturedDiagnostics diagnostics;
    QVERIFY(QMetaObject::invokeMethod(&connection, "slotGetNewSerialPortData"));
    QCOMPARE(diagnostics.out(), QString("slotNewSerialPortData: serial port not open\n"));
    QCOMPARE(data.size(), 0);
}

void tst_SerialConnection::oneBlockIsOneSignal()
{
    PseudoTerminal line;
    SerialConnection connection(nullptr);
    QVERIFY(connection.openSerialPort(line.path()));
    QSignalSpy data(&connection, &SerialConnection::signalNewSerialPortData);
    for (const QByteArray &block : {QByteArray("KOVO"), QByteArray(21, '\0'), QByteArray("x")}) {
        data.clear();
        QVERIFY(line.write(block));
        QTRY_VERIFY(joined(data).size() >= block.size());
        QCOMPARE(data.size(), 1);
        QCOMPARE(data.at(0).at(0).toByteArray(), block);
    }
}

void tst_SerialConnection::bytesOfTheSamePassAreNotLostByTheClose_data()
{
    QTest::addColumn<bool>("byTimer");
    QTest::newRow("closed at once") << false;
    QTest::newRow("closed by a timer that is due") << true;
}

void tst_SerialConnection::bytesOfTheSamePassAreNotLostByTheClose()
{
    QFETCH(bool, byTimer);
    PseudoTerminal line;
    SerialConnection connection(nullptr);
    QVERIFY(connection.openSerialPort(line.path()));
    QSignalSpy data(&connection, &SerialConnection::signalNewSerialPortData);
    QSignalSpy changed(&connection, &SerialConnection::signalPortConnectionChanged);
    CapturedDiagnostics diagnostics;
    QStringList heardAt; // the lines that were out when a chunk was announced
    connect(&connection, &SerialConnection::signalNewSerialPortData, this, [&] {
        heardAt << (changed.isEmpty() ? QString("not closed yet") : diagnostics.out());
    });
    // Closes in the pass in which the bytes are seen, after the connection saw them.
    const auto closing =
        connect(connection.findChild<QSerialPort *>(), &QSerialPort::readyRead, &connection, [&] {
            if (byTimer)
                QTimer::singleShot(0, &connection, &SerialConnection::closeSerialPort);
            else
                connection.closeSerialPort();
        });
    QVERIFY(line.write("farewell"));
    QTRY_VERIFY(!connection.isOpen());
    QCOMPARE(changed.size(), 1);
    QCOMPARE(joined(data), QByteArray("farewell"));
    QCOMPARE(data.size(), 1);
    // A timer that is due comes after what has been posted, and so after the bytes.
    QCOMPARE(heardAt, QStringList{byTimer ? QString("not closed yet") : closedLines});
    QCOMPARE(diagnostics.out(), closedLines);

    disconnect(closing);
    QVERIFY(connection.openSerialPort(line.path()));
    QVERIFY(line.write("welcome"));
    QTRY_COMPARE(joined(data), QByteArray("farewellwelcome"));
    for (const QList<QVariant> &arguments : qAsConst(data))
        QVERIFY(!arguments.at(0).toByteArray().isEmpty());
    QCOMPARE(diagnostics.out(), closedLines);
}

void tst_SerialConnection::closingAfterThePortWasClosedUnderneathSaysSo()
{
    PseudoTerminal line;
    SerialConnection connection(nullptr);
    QVERIFY(connection.openSerialPort(line.path()));
    QSignalSpy changed(&connection, &SerialConnection::signalPortConnectionChanged);
    CapturedDiagnostics diagnostics;
    connection.findChild<QSerialPort *>()->close();
    QVERIFY(!connection.isOpen());
    QCOMPARE(changed.size(), 0);
    connection.closeSerialPort();
    QCOMPARE(diagnostics.out(), QString("SerialConnection::closeSerialPort()\n"
                                        "<<< serial interface was not open\n"));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.at(0).at(0).toBool(), false);
    connection.closeSerialPort();
    QCOMPARE(changed.size(), 1);
    QCOMPARE(diagnostics.err(), QString());
}

// A poll announces a list only while the connection counts as closed.
void tst_SerialConnection::stateIsSetBeforeItIsAnnounced()
{
    PseudoTerminal line;
    SerialConnection connection(nullptr);
    connection.slotTimerCheckForNewSerialPorts();
    QSignalSpy listed(&connection, &SerialConnection::signalPortListChanged);
    QVector<int> lists; // after the poll in each announcement
    connect(&connection, &SerialConnection::signalPortConnectionChanged, this, [&] {
        connection.setExtraPorts({"camera"});
        connection.slotTimerCheckForNewSerialPorts();
        lists << listed.size();
    });
    QVERIFY(connection.openSerialPort(line.path()));
    QCOMPARE(lists, QVector<int>{0});
    connection.closeSerialPort();
    QCOMPARE(lists, (QVector<int>{0, 1}));
}

void tst_SerialConnection::destroyingAnOpenConnectionIsSilentAndFreesTheLine()
{
    PseudoTerminal line;
    int signalsSent = 0;
    CapturedDiagnostics diagnostics;
    {
        SerialConnection connection(nullptr);
        QVERIFY(connection.openSerialPort(line.path()));
        connect(&connection, &SerialConnection::signalPortConnectionChanged, this,
                [&] { ++signalsSent; });
        connect(&connection, &SerialConnection::signalNewSerialPortData, this,
                [&] { ++signalsSent; });
        connect(&connection, &SerialConnection::signalPortListChanged, this,
                [&] { ++signalsSent; });
    }
    QCOMPARE(signalsSent, 0);
    QCOMPARE(diagnostics.out() + diagnostics.err(), QString());

    SerialConnection next(nullptr);
    QVERIFY(next.openSerialPort(line.path()));
    QSignalSpy data(&next, &SerialConnection::signalNewSerialPortData);
    QVERIFY(line.write("hello"));
    QTRY_COMPARE(joined(data), QByteArray("hello"));
}

// Which error a vanished line is reported with is up to chance: the resource error, or another one
// whose line then precedes the closing.
static bool isOneClosing(const QString &lines)
{
    static const QRegularExpression error(
        "\\A(SerialConnection::slotSerialPortError\\(\\d+\\)\n)?\\z");
    return lines.endsWith(closedLines) && error.match(lines.chopped(closedLines.size())).hasMatch();
}

void tst_SerialConnection::unplugClosesThePortAndPollingResumes()
{
    PseudoTerminal line;
    SerialConnection connection(nullptr);
    connection.setExtraPorts({line.path()});
    connection.slotTimerCheckForNewSerialPorts();
    QVERIFY(connection.openSerialPort(line.path()));
    QSignalSpy changed(&connection, &SerialConnection::signalPortConnectionChanged);
    QSignalSpy listed(&connection, &SerialConnection::signalPortListChanged);
    CapturedDiagnostics diagnostics;
    connection.setExtraPorts({});
    line.hangUp();
    QTRY_COMPARE(changed.size(), 1);
    QCOMPARE(changed.at(0).at(0).toBool(), false);
    QVERIFY(!connection.isOpen());
    QVERIFY2(isOneClosing(diagnostics.out()), qPrintable(diagnostics.out()));
    QTRY_COMPARE(listed.size(), 1);
    QVERIFY(!listed.at(0).at(0).toStringList().contains(line.path()));
    QVERIFY2(isOneClosing(diagnostics.out()), qPrintable(diagnostics.out()));
    QCOMPARE(changed.size(), 1);
}

void tst_SerialConnection::unplugWhileWritingClosesThePortOnce()
{
    PseudoTerminal line;
    SerialConnection connection(nullptr);
    QVERIFY(connection.openSerialPort(line.path()));
    QSignalSpy changed(&connection, &SerialConnection::signalPortConnectionChanged);
    CapturedDiagnostics diagnostics;
    line.hangUp();
    connection.writeSerialPortData("into the void");
    QTRY_COMPARE(changed.size(), 1);
    QVERIFY(!connection.isOpen());
    QVERIFY2(isOneClosing(diagnostics.out()), qPrintable(diagnostics.out()));
}

void tst_SerialConnection::portCanBeOpenedAfterAnUnplug()
{
    SerialConnection connection(nullptr);
    QSignalSpy changed(&connection, &SerialConnection::signalPortConnectionChanged);
    CapturedDiagnostics diagnostics;
    for (int round = 1; round <= 3; ++round) {
        PseudoTerminal line;
        QVERIFY(connection.openSerialPort(line.path()));
        connection.writeSerialPortData("hello");
        QTRY_COMPARE(line.received(), QByteArray("hello"));
        line.hangUp();
        QTRY_COMPARE(changed.size(), 2 * round);
        QVERIFY(!connection.isOpen());
    }
}

void tst_SerialConnection::resourceErrorClosesThePort()
{
    PseudoTerminal line;
    SerialConnection connection(nullptr);
    QVERIFY(connection.openSerialPort(line.path()));
    QSignalSpy changed(&connection, &SerialConnection::signalPortConnectionChanged);
    CapturedDiagnostics diagnostics;
    connection.slotSerialPortError(QSerialPort::ResourceError);
    QCOMPARE(diagnostics.out(), closedLines);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.at(0).at(0).toBool(), false);
    QVERIFY(!connection.isOpen());
}

void tst_SerialConnection::otherErrorsLeaveALivePortOpen()
{
    PseudoTerminal line;
    SerialConnection connection(nullptr);
    QVERIFY(connection.openSerialPort(line.path()));
    QSignalSpy changed(&connection, &SerialConnection::signalPortConnectionChanged);
    CapturedDiagnostics diagnostics;
    connection.slotSerialPortError(QSerialPort::NoError);
    QCOMPARE(diagnostics.out(), QString());
    for (const int error : {1, 2, 3, 4, 5, 6, 7, 8, 10, 11, 12, 13}) {
        diagnostics.clear();
        connection.slotSerialPortError(static_cast<QSerialPort::SerialPortError>(error));
        QCOMPARE(diagnostics.out(),
                 QStringLiteral("SerialConnection::slotSerialPortError(%1)\n").arg(error));
    }
    QVERIFY(connection.isOpen());
    QCOMPARE(changed.size(), 0);
    QCOMPARE(diagnostics.err(), QString());
}

static QStringList withSystemPorts(QStringList ports)
{
    const QList<QSerialPortInfo> available = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo &info : available)
        ports.append(info.portName());
    std::sort(ports.begin(), ports.end());
    return ports;
}

void tst_SerialConnection::portsAreAnnouncedSortedByCase()
{
    SerialConnection connection(nullptr);
    QSignalSpy listed(&connection, &SerialConnection::signalPortListChanged);
    connection.setExtraPorts({"b", "a", "B", "A10", "A9"});
    connection.slotTimerCheckForNewSerialPorts();
    QCOMPARE(listed.size(), 1);
    QCOMPARE(listed.at(0).at(0).toStringList(), withSystemPorts({"A10", "A9", "B", "a", "b"}));
}

void tst_SerialConnection::unchangedOrReorderedListIsNotAnnounced()
{
    SerialConnection connection(nullptr);
    QSignalSpy listed(&connection, &SerialConnection::signalPortListChanged);
    const auto poll = [&](const QStringList &ports) {
        connection.setExtraPorts(ports);
        connection.slotTimerCheckForNewSerialPorts();
        return listed.size();
    };
    QCOMPARE(poll({"one", "two"}), 1);
    QCOMPARE(poll({"one", "two"}), 1);
    QCOMPARE(poll({"two", "one"}), 1);
    QCOMPARE(poll({"two", "One"}), 2);
    QCOMPARE(poll({"two"}), 3);
    QCOMPARE(listed.last().at(0).toStringList(), withSystemPorts({"two"}));
    const int systemPorts = QSerialPortInfo::availablePorts().size();
    QCOMPARE(poll({}), 4);
    QCOMPARE(listed.last().at(0).toStringList().size(), systemPorts);
    QCOMPARE(poll({}), 4);
}

void tst_SerialConnection::firstPollComesWithinHalfASecond()
{
    SerialConnection connection(nullptr);
    connection.setExtraPorts({"camera"});
    QSignalSpy listed(&connection, &SerialConnection::signalPortListChanged);
    QCOMPARE(listed.size(), 0);
    const auto timers = connection.findChildren<QTimer *>();
    QCOMPARE(timers.size(), 1);
    QCOMPARE(timers.first()->interval(), 500);
    QVERIFY(!timers.first()->isSingleShot());
    QVERIFY(listed.wait());
    QCOMPARE(listed.at(0).at(0).toStringList(), withSystemPorts({"camera"}));
}

void tst_SerialConnection::listIsFrozenWhileConnected()
{
    PseudoTerminal line;
    SerialConnection connection(nullptr);
    QSignalSpy listed(&connection, &SerialConnection::signalPortListChanged);
    connection.setExtraPorts({line.path()});
    connection.slotTimerCheckForNewSerialPorts();
    QCOMPARE(listed.size(), 1);
    QVERIFY(connection.openSerialPort(line.path()));
    connection.setExtraPorts({line.path(), "plugged-in"});
    // Several polls of the timer itself, and one by hand.
    QSignalSpy ticks(connection.findChild<QTimer *>(), &QTimer::timeout);
    QTRY_VERIFY(ticks.size() >= 2);
    connection.slotTimerCheckForNewSerialPorts();
    QCOMPARE(listed.size(), 1);
    connection.closeSerialPort();
    QVERIFY(listed.wait());
    QCOMPARE(listed.at(1).at(0).toStringList(), withSystemPorts({line.path(), "plugged-in"}));
}

void tst_SerialConnection::extraPortInTheSystemsListIsNotDoubled()
{
    const QList<QSerialPortInfo> system = QSerialPortInfo::availablePorts();
    SerialConnection connection(nullptr);
    QSignalSpy listed(&connection, &SerialConnection::signalPortListChanged);
    QStringList extras{"camera", "camera"};
    for (const QSerialPortInfo &info : system)
        extras.append(info.portName());
    connection.setExtraPorts(extras);
    connection.slotTimerCheckForNewSerialPorts();
    QCOMPARE(listed.at(0).at(0).toStringList(), withSystemPorts({"camera"}));
}

QTEST_GUILESS_MAIN(tst_SerialConnection)
#include "tst_serialconnection.moc"
