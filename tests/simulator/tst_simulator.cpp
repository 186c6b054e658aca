#include "support/portlock.h"
#include "support/records.h"
#include "support/serialclient.h"
#include "support/simulatorprocess.h"
#include "support/unreadpipe.h"
#include "support/wire.h"

#include <QtTest>

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// A program that opens the device like a plain file and leaves the line's modes as they are.
class RawClient
{
public:
    explicit RawClient(const QString &path)
        : m_device(::open(QFile::encodeName(path), O_RDWR | O_NOCTTY))
    {
    }
    ~RawClient() { ::close(m_device); }

    bool send(const QByteArray &bytes)
    {
        return ::write(m_device, bytes.constData(), size_t(bytes.size())) == bytes.size();
    }

    wire::Message receive()
    {
        for (;;) {
            if (const auto message = wire::take(m_stream))
                return *message;
            pollfd readable{m_device, POLLIN, 0};
            char buffer[4096];
            const ssize_t count =
                ::poll(&readable, 1, 10000) == 1 ? ::read(m_device, buffer, sizeof buffer) : 0;
            if (count <= 0)
                return {0xDEAD, {}};
            m_stream.append(buffer, int(count));
        }
    }

    QByteArray rest() const { return m_stream; }

private:
    int m_device;
    QByteArray m_stream;
};

/// Names that come and go in a folder, none missed.
class FolderWatch
{
public:
    explicit FolderWatch(const QString &folder) : m_watch(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        ::inotify_add_watch(m_watch, QFile::encodeName(folder),
                            IN_CREATE | IN_MOVED_TO | IN_DELETE | IN_MOVED_FROM);
    }
    ~FolderWatch() { ::close(m_watch); }

    QStringList events()
    {
        alignas(inotify_event) char buffer[4096];
        for (ssize_t size; (size = ::read(m_watch, buffer, sizeof buffer)) > 0;)
            for (ssize_t at = 0; at < size;) {
                const auto *event = reinterpret_cast<const inotify_event *>(buffer + at);
                const bool comes = event->mask & (IN_CREATE | IN_MOVED_TO);
                m_events << QString::fromLocal8Bit(event->name) + (comes ? " comes" : " goes");
                at += ssize_t(sizeof(inotify_event) + event->len);
            }
        return m_events;
    }

private:
    int m_watch;
    QStringList m_events;
};

QByteArray target(const QString &link)
{
    char buffer[256];
    const ssize_t length = ::readlink(QFile::encodeName(link), buffer, sizeof buffer);
    return length < 0 ? QByteArray() : QByteArray(buffer, int(length));
}

struct Run
{
    int exitCode;
    QByteArray out;
    QByteArray err;
};

Run run(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral(BIN_DIR "/quorvix-simulator"), arguments);
    process.closeWriteChannel();
    if (!process.waitForFinished(20000) || process.exitStatus() != QProcess::NormalExit)
        return {-1, {}, {}};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

} // namespace

class tst_Simulator : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_directory.isValid()); }

    void printsTheDeviceAsItsFirstLine()
    {
        SimulatorProcess simulator;
        QVERIFY(simulator.start());
        struct stat status;
        QCOMPARE(::stat(QFile::encodeName(simulator.path()), &status), 0);
        QVERIFY(S_ISCHR(status.st_mode));
        QCOMPARE(simulator.stop(), 0);
        QCOMPARE(simulator.paths().size(), 1);
    }

    void answersTheConfigurationRequestOverASerialPort()
    {
        SimulatorProcess simulator;
        QVERIFY(simulator.start());
        Client client;
        QVERIFY(client.open(simulator.path()));
        client.send(QByteArray::fromHex("4b4f564f00000010000100010000"
                                        "0066cd6e078b00"));
        const wire::Message answer = client.receive();
        QCOMPARE(answer.command, 202U);
        QCOMPARE(answer.payload.size(), 224);
        const QByteArray record = answer.payload.left(221);
        QCOMPARE(answer.payload.mid(221, 2), wire::littleEndian(records::crc16(record)));
        QTRY_COMPARE(simulator.log(),
                     (QStringList{"<- COMIO_CMD_GET_CONFIG (102), 0 bytes",
                                  "-> COMIO_CMD_GET_CONFIG_REPLY_OK (202), 223 bytes"}));
    }

    void takesEveryByteValueInBothDirectionsUnchanged()
    {
        SimulatorProcess simulator;
        QVERIFY(simulator.start());
        Client client;
        QVERIFY(client.open(simulator.path()));
        QByteArray record;
        for (int i = 0; i < 416; ++i)
            record += char(i);
        QCOMPARE(client.ask(110, record).command, 210U);
        QCOMPARE(client.ask(111).payload, record);
    }

    void neitherEchoesNorAltersWhatArrivesBeforeTheClientSetsItsModes()
    {
        SimulatorProcess simulator;
        QVERIFY(simulator.start());
        RawClient client(simulator.path());
        QByteArray record(416, '\0');
        record.replace(0, 8, "\r\n\x03\x04\x11\x13\x1a\x7f");
        QVERIFY(client.send(wire::frame(110, record)));
        QVERIFY(client.send(wire::frame(111)));
        QCOMPARE(client.receive().command, 210U);
        const wire::Message answer = client.receive();
        QCOMPARE(answer.command, 211U);
        QCOMPARE(answer.payload, record);
        QCOMPARE(client.rest(), QByteArray());
    }

    void tellsSerialNumberFirmwareAndModelAsAsked()
    {
        SimulatorProcess simulator;
        QVERIFY(
            simulator.start({"--model", "blend", "--serial", "A-77", "--firmware", "20170806"}));
        Client client;
        QVERIFY(client.open(simulator.path()));
        const wire::Message answer = client.ask(116);
        QCOMPARE(answer.command, 216U);
        QCOMPARE(answer.payload, wire::littleEndian(0xC92A6CE6U) + wire::littleEndian(20170806) +
                                     QByteArray("A-77\0\0\0\0", 8));
        QCOMPARE(client.ask(102).payload.size(), 208);
    }

    void isNewEnoughByDefault()
    {
        SimulatorProcess simulator;
        QVERIFY(simulator.start());
        Client client;
        QVERIFY(client.open(simulator.path()));
        const QByteArray identity = client.ask(116).payload;
        QCOMPARE(identity.left(4), wire::littleEndian(0xA0AF139EU));
        QVERIFY(qFromLittleEndian<quint32>(identity.constData() + 4) >= 20180122);
        QVERIFY(identity.indexOf('\0', 8) > 8);
    }

    void ignoresFramesWithAWrongChecksumAndGarbage()
    {
        SimulatorProcess simulator;
        QVERIFY(simulator.start());
        Client client;
        QVERIFY(client.open(simulator.path()));
        QByteArray damaged = wire::frame(102);
        damaged[17] = char(damaged.at(17) ^ 1);
        client.send("KOKOVnoise" + damaged + QByteArray(300, '\xAA'));
        QCOMPARE(client.ask(116).command, 216U);
        QTRY_VERIFY(simulator.log().contains("<- frame with a wrong CRC, ignored"));
        QCOMPARE(simulator.paths().size(), 1);
    }

    void namesWhatItRefusesAndWhatItDoesNotKnowInItsLog()
    {
        SimulatorProcess simulator;
        QVERIFY(simulator.start());
        Client client;
        QVERIFY(client.open(simulator.path()));
        QCOMPARE(client.ask(101, "short").command, 301U);
        QCOMPARE(client.ask(77).command, 0U);
        QTRY_COMPARE(
            simulator.log(),
            (QStringList{"<- COMIO_CMD_SET_CONFIG (101), 8 bytes: 8 bytes instead of 223",
                         "-> COMIO_CMD_SET_CONFIG_REPLY_FAIL (301), 0 bytes",
                         "<- unknown command (77), 0 bytes", "-> COMIO_CMD_UNKNOWN (0), 0 bytes"}));
    }

    void streamsGpsOnceASecond()
    {
        SimulatorProcess simulator;
        QVERIFY(simulator.start());
        Client client;
        QVERIFY(client.open(simulator.path()));
        QElapsedTimer time;
        time.start();
        QCOMPARE(client.ask(125, "\1").command, 225U);
        for (const char *type : {"$GPGGA,", "$GPRMC,"}) {
            const wire::Message message = client.receive();
            QCOMPARE(message.command, 226U);
            QVERIFY(message.payload.startsWith(type));
            QVERIFY(message.payload.contains('\0'));
        }
        // Two seconds since the request, each 5 % shorter if the timer is coarse.
        QVERIFY(time.elapsed() >= 1800);
        client.send(wire::frame(125, QByteArray(1, '\0')));
        wire::Message last = client.receive();
        while (last.command == 226U)
            last = client.receive();
        QCOMPARE(last.command, 225U);
        QCOMPARE(client.receive(1500).command, 0xDEADU);
    }

    void keepsALinkInPlaceOfAStaleOneAndRemovesItAtTheEnd()
    {
        const QString link = m_directory.filePath("stale");
        QCOMPARE(::symlink("/dev/pts/4000000", QFile::encodeName(link)), 0);
        SimulatorProcess simulator;
        QVERIFY(simulator.start({"--link", link}));
        QCOMPARE(target(link), QFile::encodeName(simulator.path()));
        Client client;
        QVERIFY(client.open(link));
        QCOMPARE(client.ask(116).command, 216U);
        QCOMPARE(simulator.stop(), 0);
        QVERIFY(target(link).isEmpty());
    }

    void neverReplacesARegularFileByItsLink()
    {
        const QString path = m_directory.filePath("precious");
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("content");
        file.close();
        const Run result = run({"--link", path});
        QCOMPARE(result.exitCode, 2);
        QCOMPARE(result.err.count('\n'), 1);
        QVERIFY(result.err.contains("no symbolic link"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("content"));
    }

    void neverReplacesALinkOfSomeoneElse()
    {
        const QString precious = m_directory.filePath("linked");
        QVERIFY(QDir().mkpath(precious));
        const QString link = m_directory.filePath("shortcut");
        QCOMPARE(::symlink(QFile::encodeName(precious), QFile::encodeName(link)), 0);
        const Run result = run({"--link", link});
        QCOMPARE(result.exitCode, 2);
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(result.err, QByteArray("quorvix-simulator: " + QFile::encodeName(link) +
                                        " is a link to " + QFile::encodeName(precious) +
                                        ", not one that a simulator has left behind\n"));
        QCOMPARE(target(link), QFile::encodeName(precious));
    }

    void neverReplacesALinkToADeviceThatIsUnplugged()
    {
        const QString link = m_directory.filePath("unplugged");
        QCOMPARE(::symlink("/dev/ttyACM77", QFile::encodeName(link)), 0);
        const Run result = run({"--link", link});
        QCOMPARE(result.exitCode, 2);
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(result.err.count('\n'), 1);
        QCOMPARE(target(link), QByteArray("/dev/ttyACM77"));
    }

    void closedStreamsLeadNowhere()
    {
        const QString link = m_directory.filePath("streamless");
        QProcess process;
        process.start("sh", {"-c", "exec \"$0\" --link \"$1\" <&- >&- 2>&-",
                             QStringLiteral(BIN_DIR "/quorvix-simulator"), link});
        QTRY_VERIFY_WITH_TIMEOUT(!target(link).isEmpty(), 20000);
        for (const int descriptor : {0, 1, 2})
            QCOMPARE(
                target(QStringLiteral("/proc/%1/fd/%2").arg(process.processId()).arg(descriptor)),
                QByteArray("/dev/null"));
        Client client;
        QVERIFY(client.open(link));
        QCOMPARE(client.ask(116).command, 216U);
        process.terminate();
        QVERIFY(process.waitForFinished(10000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
    }

    void fileSizeLimitAtTheStartIsTold()
    {
        QProcess process;
        process.start("sh", {"-c", "ulimit -f 0; exec \"$0\" --state \"$1\"",
                             QStringLiteral(BIN_DIR "/quorvix-simulator"),
                             m_directory.filePath("limited")});
        QVERIFY(process.waitForFinished(20000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 2);
        const QByteArray error = process.readAllStandardError();
        QCOMPARE(error.count('\n'), 1);
        QVERIFY2(error.startsWith("quorvix-simulator: "), error);
    }

    void fileSizeLimitRefusesARecordAndEndsNothing()
    {
        SimulatorProcess simulator;
        QVERIFY(simulator.start({"--state", m_directory.filePath("limited later")}));
        const rlimit none{0, RLIM_INFINITY};
        QCOMPARE(::prlimit(pid_t(simulator.process().processId()), RLIMIT_FSIZE, &none, nullptr),
                 0);
        Client client;
        QVERIFY(client.open(simulator.path()));
        const QByteArray record = client.ask(102).payload.left(223);
        QCOMPARE(client.ask(101, record).command, 301U);
        QCOMPARE(client.ask(102).payload.left(223), record);
        QCOMPARE(simulator.stop(), 0);
    }

    void logThatNobodyReadsHaltsNothing()
    {
        const UnreadPipe log;
        const QString link = m_directory.filePath("unread");
        QProcess process;
        process.start("sh", {"-c", "exec \"$0\" --log --link \"$1\" 2>\"$2\"",
                             QStringLiteral(BIN_DIR "/quorvix-simulator"), link, log.path()});
        QTRY_VERIFY_WITH_TIMEOUT(!target(link).isEmpty(), 20000);
        Client client;
        QVERIFY(client.open(link));
        for (int i = 0; i < 10; ++i)
            QCOMPARE(client.ask(116).command, 216U);
        process.terminate();
        QVERIFY(process.waitForFinished(10000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
        QVERIFY(target(link).isEmpty());
    }

    void takesOverTheLinkOfAKilledSimulator()
    {
        const QString link = m_directory.filePath("killed");
        SimulatorProcess first;
        QVERIFY(first.start({"--link", link}));
        first.process().kill();
        QVERIFY(first.process().waitForFinished(10000));
        QCOMPARE(target(link), QFile::encodeName(first.path()));
        // In the place of the one that is gone there may be any other terminal by now.
        SimulatorProcess other;
        QVERIFY(other.start());
        SimulatorProcess second;
        QVERIFY(second.start({"--link", link}));
        QCOMPARE(target(link), QFile::encodeName(second.path()));
    }

    void removesItsLinkHoweverItIsToldToEnd_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("terminated") << SIGTERM;
        QTest::newRow("interrupted") << SIGINT;
        QTest::newRow("its terminal is closed") << SIGHUP;
    }
    void removesItsLinkHoweverItIsToldToEnd()
    {
        QFETCH(int, signal);
        const QString link = m_directory.filePath("ending");
        SimulatorProcess simulator;
        QVERIFY(simulator.start({"--link", link}));
        QVERIFY(!target(link).isEmpty());
        ::kill(pid_t(simulator.process().processId()), signal);
        QVERIFY(simulator.process().waitForFinished(10000));
        QCOMPARE(simulator.process().exitStatus(), QProcess::NormalExit);
        QCOMPARE(simulator.process().exitCode(), 0);
        QVERIFY(target(link).isEmpty());
    }

    void outlivesItsTerminalUnderNohup()
    {
        ::signal(SIGHUP, SIG_IGN); // which the child inherits
        SimulatorProcess simulator;
        const bool started = simulator.start();
        ::signal(SIGHUP, SIG_DFL);
        QVERIFY(started);
        ::kill(pid_t(simulator.process().processId()), SIGHUP);
        Client client;
        QVERIFY(client.open(simulator.path()));
        QCOMPARE(client.ask(116).command, 216U);
        QCOMPARE(simulator.stop(), 0);
    }

    void readsNoRecordFromAPipe_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("pipe");
        const QString state = m_directory.filePath("pipes");
        const QString pipe = state + "/blend-zoom-configuration.bin";
        const QString factory = state + "/blend-zoom-factory.bin";
        QTest::newRow("configuration") << QStringList{"--config", pipe} << pipe;
        QTest::newRow("factory record") << QStringList{"--factory", factory} << factory;
        QTest::newRow("kept configuration") << QStringList{"--state", state} << pipe;
        QTest::newRow("kept factory record") << QStringList{"--state", state} << factory;
        QTest::newRow("directory") << QStringList{"--state", pipe} << pipe;
    }
    void readsNoRecordFromAPipe()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, pipe);
        QVERIFY(QDir().mkpath(QFileInfo(pipe).path()));
        QCOMPARE(::mkfifo(QFile::encodeName(pipe), 0600), 0);
        const Run result = run(arguments);
        QVERIFY(QFile::remove(pipe));
        QCOMPARE(result.exitCode, 2);
        QCOMPARE(result.err.count('\n'), 1);
        QVERIFY2(result.err.contains(QFile::encodeName(pipe)), result.err);
    }

    void leavesALinkThatSomeoneElseTookOver()
    {
        const QString link = m_directory.filePath("taken");
        SimulatorProcess simulator;
        QVERIFY(simulator.start({"--link", link}));
        QCOMPARE(::unlink(QFile::encodeName(link)), 0);
        QCOMPARE(::symlink("/elsewhere", QFile::encodeName(link)), 0);
        QCOMPARE(simulator.stop(), 0);
        QCOMPARE(target(link), QByteArray("/elsewhere"));
    }

    void acknowledgesTheAllOnesCommandAndStaysWithoutRestart()
    {
        SimulatorProcess simulator;
        QVERIFY(simulator.start());
        Client client;
        QVERIFY(client.open(simulator.path()));
        QCOMPARE(client.ask(0xFFFFFFFF).command, 99U);
        QCOMPARE(client.ask(116).command, 216U);
        QCOMPARE(simulator.paths().size(), 1);
    }

    void vanishesForASecondAndComesBackUnderItsLink()
    {
        const QString link = m_directory.filePath("restarting");
        SimulatorProcess simulator;
        QVERIFY(simulator.start({"--restart", "--link", link}));
        Client client;
        QVERIFY(client.open(link));
        // Closing in the handler, as a hung-up port repeats its error without end.
        connect(&client.port(), &QSerialPort::errorOccurred, &client.port(), [&] {
            if (client.port().isOpen())
                client.close();
        });
        client.ask(125, "\1");
        FolderWatch folder(m_directory.path());
        QElapsedTimer time;
        time.start();
        client.send(wire::frame(0xFFFFFFFF));
        wire::Message answer = client.receive();
        while (answer.command == 226U)
            answer = client.receive();
        QCOMPARE(answer.command, 99U);
        QTRY_VERIFY(!client.port().isOpen());
        QTRY_COMPARE(simulator.paths().size(), 2);
        QVERIFY(time.elapsed() >= 900); // one second, 5 % shorter if the timer is coarse
        QTRY_COMPARE(target(link), QFile::encodeName(simulator.path()));
        // However late the test looks: the link was away.
        QCOMPARE(folder.events().value(0), QString("restarting goes"));
        QCOMPARE(folder.events().last(), QString("restarting comes"));
        client.port().disconnect();
        QVERIFY(client.open(link));
        QCOMPARE(client.ask(116).command, 216U);
        QCOMPARE(simulator.stop(), 0);
        QVERIFY(target(link).isEmpty());
    }

    void servesOneClientAfterTheOther()
    {
        SimulatorProcess simulator;
        QVERIFY(simulator.start());
        for (int i = 0; i < 5; ++i) {
            Client client;
            QVERIFY(client.open(simulator.path()));
            QCOMPARE(client.ask(116).command, 216U);
            client.close();
        }
    }

    void answersManyRequestsOfAClientThatReadsLate()
    {
        // Far more than the line holds: the camera has to hold the rest back.
        SimulatorProcess simulator;
        QVERIFY(simulator.start());
        RawClient client(simulator.path());
        constexpr int count = 200;
        for (int i = 0; i < count; ++i)
            QVERIFY(client.send(wire::frame(102)));
        QTRY_COMPARE(simulator.log().filter("-> ").size(), count);
        for (int i = 0; i < count; ++i)
            QCOMPARE(client.receive().command, 202U);
    }

    void keepsAWrittenRecordAcrossRuns()
    {
        const QStringList arguments{"--state", m_directory.filePath("state")};
        QByteArray record;
        {
            SimulatorProcess simulator;
            QVERIFY(simulator.start(arguments));
            Client client;
            QVERIFY(client.open(simulator.path()));
            record = client.ask(102).payload.left(221);
            record[87] = 123;
            record += wire::littleEndian(records::crc16(record));
            QCOMPARE(client.ask(101, record).command, 201U);
        }
        SimulatorProcess simulator;
        QVERIFY(simulator.start(arguments));
        Client client;
        QVERIFY(client.open(simulator.path()));
        QCOMPARE(client.ask(102).payload.left(223), record);
    }

    void endsWithItsStandardInputOnlyIfAsked()
    {
        const Run ended = run({"--exit-with-stdin"});
        QCOMPARE(ended.exitCode, 0);
        QVERIFY(ended.out.startsWith("/dev/"));

        QProcess process;
        process.start(QStringLiteral(BIN_DIR "/quorvix-simulator"), QStringList());
        process.closeWriteChannel();
        QVERIFY(process.waitForReadyRead(20000));
        const QString path = QString::fromLocal8Bit(process.readLine().trimmed());
        portlock::waitUntilFree(path);
        Client client;
        QVERIFY(client.open(path));
        QCOMPARE(client.ask(116).command, 216U);
        ::kill(pid_t(process.processId()), SIGINT);
        QVERIFY(process.waitForFinished(10000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
    }

    void isSilentOnStandardErrorWithoutLog()
    {
        QProcess process;
        process.start(QStringLiteral(BIN_DIR "/quorvix-simulator"), QStringList());
        QVERIFY(process.waitForReadyRead(20000));
        const QString path = QString::fromLocal8Bit(process.readLine().trimmed());
        portlock::waitUntilFree(path);
        Client client;
        QVERIFY(client.open(path));
        QByteArray damaged = wire::frame(102);
        damaged[17] = char(damaged.at(17) ^ 1);
        client.send(damaged);
        QCOMPARE(client.ask(116).command, 216U);
        process.terminate();
        QVERIFY(process.waitForFinished(10000));
        QCOMPARE(process.readAllStandardError(), QByteArray());
        QCOMPARE(process.readAllStandardOutput(), QByteArray());
    }

    void refusesBadOptionsWithOneLine_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("unknown option") << QStringList{"--nonsense"};
        QTest::newRow("unknown model") << QStringList{"--model", "blend zoom"};
        QTest::newRow("firmware with letters") << QStringList{"--firmware", "2019o801"};
        QTest::newRow("firmware that is no date") << QStringList{"--firmware", "20191301"};
        QTest::newRow("short firmware") << QStringList{"--firmware", "201908"};
        QTest::newRow("serial number beyond ASCII") << QStringList{"--serial", "é"};
        QTest::newRow("serial number without end") << QStringList{"--serial", QString(65, 'x')};
        QTest::newRow("missing record") << QStringList{"--config", "/nowhere/record.bin"};
        QTest::newRow("no record") << QStringList{"--config", "/dev/null"};
        QTest::newRow("no factory record") << QStringList{"--factory", "/dev/null"};
        QTest::newRow("record for a 2.0") << QStringList{"--model", "2.0", "--config", "x"};
        QTest::newRow("no directory") << QStringList{"--state", "/dev/null/state"};
        QTest::newRow("link in no directory") << QStringList{"--link", "/nowhere/link"};
        QTest::newRow("unknown fault") << QStringList{"--fault", "quake:1"};
        QTest::newRow("fault out of range") << QStringList{"--fault", "drop:1.5"};
        QTest::newRow("seed") << QStringList{"--seed", "x"};
        QTest::newRow("argument") << QStringList{"camera"};
    }
    void refusesBadOptionsWithOneLine()
    {
        QFETCH(QStringList, arguments);
        const Run result = run(arguments);
        QCOMPARE(result.exitCode, 2);
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(result.err.count('\n'), 1);
        QVERIFY(result.err.startsWith("quorvix-simulator: "));
    }

    void tellsItsVersionAndItsOptions()
    {
        const Run version = run({"--version"});
        QCOMPARE(version.exitCode, 0);
        QVERIFY(version.out.contains("2.19"));
        const Run help = run({"--help"});
        QCOMPARE(help.exitCode, 0);
        for (const char *option :
             {"--model", "--serial", "--firmware", "--config", "--factory", "--state", "--link",
              "--log", "--restart", "--exit-with-stdin", "--fault", "--seed"})
            QVERIFY2(help.out.contains(option), option);
        QCOMPARE(run({"--help-all"}).exitCode, 0);
    }

private:
    QTemporaryDir m_directory;
};

QTEST_GUILESS_MAIN(tst_Simulator)
#include "tst_simulator.moc"
