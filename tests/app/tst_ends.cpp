// How the program ends when its user does not end it: by signals, and with its display.

#include "support/cameraend.h"
#include "support/programsession.h"
#include "support/referenceframes.h"
#include "support/unreadpipe.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace {

/// The lock by which QSerialPort keeps others out of the port; empty if there is none.
QString lockOf(const CameraEnd &camera)
{
    const QString name = QStringLiteral("LCK..") + camera.path().replace('/', '_');
    for (const QString &folder : {QStringLiteral("/var/lock"), QDir::tempPath()})
        if (QFile::exists(folder + '/' + name))
            return folder + '/' + name;
    return {};
}

bool isCaught(int signal, qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/status").arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray status = file.readAll();
    const QByteArray mask = status.mid(status.indexOf("SigCgt:") + 7, 20).trimmed().left(16);
    return mask.toULongLong(nullptr, 16) >> (signal - 1) & 1;
}

QString targetOfDescriptor(int descriptor, qint64 process)
{
    return QFile::symLinkTarget(QStringLiteral("/proc/%1/fd/%2").arg(process).arg(descriptor));
}

/// A line whose output can be held back. Made before the tool opens the port, of which only the
/// superuser gets another descriptor from then on.
class StallableLine
{
public:
    explicit StallableLine(const CameraEnd &camera)
        : m_slave(::open(QFile::encodeName(camera.path()), O_RDWR | O_NOCTTY | O_CLOEXEC))
    {
    }
    ~StallableLine() { ::close(m_slave); }
    StallableLine(const StallableLine &) = delete;
    StallableLine &operator=(const StallableLine &) = delete;

    bool stall() { return tcflow(m_slave, TCOOFF) == 0; }

private:
    int m_slave;
};

/// A program that has more to tell than the reader of its streams takes for a long time.
class TalkativeSession : public Session
{
public:
    bool startAndTalk()
    {
        if (!display.start() ||
            !startCommand("exec \"$0\" --port \"$1\" >\"$2\" 2>&1",
                          {program, camera.path(), pipe.path()}) ||
            !connectTo(camera))
            return false;
        QByteArray unknown; // the tool tells of each, in 43 bytes
        for (int i = 0; i < 300; ++i)
            unknown += reference::frame(0, {});
        for (int batch = 1; batch <= 6; ++batch)
            if (!camera.sendBytes(unknown) || !camera.send(216, CameraEnd::identity(0xC92A6CE6)) ||
                !QTest::qWaitFor([&] { return camera.count(102) == batch; }, 20000))
                return false;
        return true;
    }

    CameraEnd camera;
    UnreadPipe pipe;
};

enum class Where { MainWindow, Box, TwoBoxes, FileDialog, StalledLine };

} // namespace

Q_DECLARE_METATYPE(Where)

class TestEnds : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        if (!hasDisplayTools())
            QSKIP("needs Xvfb and xdotool");
    }

    void signalReleasesThePort_data()
    {
        QTest::addColumn<int>("signal");
        QTest::addColumn<Where>("where");
        const QVector<std::pair<Where, const char *>> places = {
            {Where::MainWindow, "%s"},
            {Where::Box, "%s in a message box"},
            {Where::TwoBoxes, "%s in two message boxes"},
            {Where::FileDialog, "%s in a file dialog"},
            {Where::StalledLine, "%s with a stalled line"},
        };
        for (const auto &[where, name] : places) {
            QTest::addRow(name, "INT") << SIGINT << where;
            QTest::addRow(name, "TERM") << SIGTERM << where;
            QTest::addRow(name, "HUP") << SIGHUP << where;
        }
    }
    void signalReleasesThePort()
    {
        QFETCH(int, signal);
        QFETCH(Where, where);
        CameraEnd camera;
        StallableLine line(camera);
        Session session;
        QVERIFY(session.display.start());
        QVERIFY(session.start({"--port", camera.path()}, session.environment()));
        QVERIFY(session.connectTo(camera));
        QVERIFY(!lockOf(camera).isEmpty());
        const auto boxes = [&] { return session.display.findAll("Command rejected").size(); };
        if (where == Where::Box || where == Where::TwoBoxes) {
            camera.send(316, {}); // the request for the identity is rejected
            QTRY_COMPARE_WITH_TIMEOUT(boxes(), 1, 20000);
        }
        if (where == Where::TwoBoxes) {
            camera.send(316, {});
            QTRY_COMPARE_WITH_TIMEOUT(boxes(), 2, 20000);
        }
        if (where == Where::FileDialog) {
            QVERIFY(session.press("ctrl+o"));
            QTRY_VERIFY_WITH_TIMEOUT(session.display.find("Open") != 0, 20000);
        }
        if (where == Where::StalledLine) {
            QVERIFY(line.stall());
            camera.send(216, CameraEnd::identity(0xC92A6CE6));
            camera.send(302, {}); // after the request for the configuration, which waits
            QTRY_COMPARE_WITH_TIMEOUT(boxes(), 1, 20000);
            QCOMPARE(camera.count(102), 0);
        }
        QCOMPARE(::kill(pid_t(session.process.processId()), signal), 0);
        QVERIFY(session.process.waitForFinished(20000));
        QCOMPARE(session.process.exitStatus(), QProcess::CrashExit);
        QCOMPARE(session.process.exitCode(), signal);
        QCOMPARE(lockOf(camera), QString());
    }

    void signalThatIsIgnoredFromTheStartStaysSo()
    {
        CameraEnd camera;
        Session session;
        QVERIFY(session.display.start());
        QVERIFY(session.startCommand("trap '' HUP; exec \"$0\" --port \"$1\"",
                                     {program, camera.path()}));
        QCOMPARE(::kill(pid_t(session.process.processId()), SIGHUP), 0);
        QVERIFY(session.connectTo(camera));
        QVERIFY(session.end());
        QCOMPARE(session.process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(session.process.exitCode(), 0);
    }

    void lostDisplayReleasesThePort()
    {
        CameraEnd camera;
        Session session;
        QVERIFY(session.display.start());
        QVERIFY(session.start({"--port", camera.path()}, session.environment()));
        QVERIFY(session.connectTo(camera));
        QVERIFY(!lockOf(camera).isEmpty());
        session.display.die();
        QVERIFY(session.process.waitForFinished(20000));
        QCOMPARE(session.process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(session.process.exitCode(), 1);
        QCOMPARE(lockOf(camera), QString());
    }

    void lostReaderOfTheStreamsEndsNothing_data()
    {
        QTest::addColumn<QString>("streams");
        QTest::newRow("nobody reads standard output any more") << "| true";
        QTest::newRow("nobody reads either") << "2>&1 | true";
        QTest::newRow("full disk") << ">/dev/full 2>/dev/full";
        QTest::newRow("closed") << ">&- 2>&-";
        QTest::newRow("all closed") << "<&- >&- 2>&-";
        QTest::newRow("no standard input") << "<&-";
        QTest::newRow("no standard output") << ">&-";
        QTest::newRow("no standard error") << "2>&-";
        QTest::newRow("neither input nor output") << "<&- >&-";
        QTest::newRow("neither input nor error") << "<&- 2>&-";
    }
    void lostReaderOfTheStreamsEndsNothing()
    {
        QFETCH(QString, streams);
        CameraEnd camera;
        Session session;
        QVERIFY(session.display.start());
        // A shell in between, for its redirections: it ends with the program's own status.
        QVERIFY(session.startCommand("{ \"$0\" --port \"$1\"; echo $? >&3; } 3>&2 " + streams,
                                     {program, camera.path()}));
        QVERIFY(session.connectTo(camera));
        // A second request needs an event loop that goes on.
        camera.send(216, CameraEnd::identity(0xC92A6CE6));
        QTRY_COMPARE_WITH_TIMEOUT(camera.count(102), 1, 20000);
        QVERIFY(session.press("ctrl+k"));
        QVERIFY(session.end());
        QVERIFY(session.process.readAllStandardError().endsWith("0\n"));
    }

    void closedStreamsLeadNowhere_data()
    {
        QTest::addColumn<QVector<int>>("closed");
        for (const QVector<int> &closed :
             {QVector<int>{0}, {1}, {2}, {0, 1}, {0, 2}, {1, 2}, {0, 1, 2}})
            QTest::addRow("%d %d %d", closed.value(0), closed.value(1, -1), closed.value(2, -1))
                << closed;
    }
    void closedStreamsLeadNowhere()
    {
        QFETCH(QVector<int>, closed);
        QString command = "exec \"$0\"";
        for (const int descriptor : closed)
            command += QStringLiteral(" %1>&-").arg(descriptor);
        Session session;
        QVERIFY(session.display.start());
        QVERIFY(session.startCommand(command, {program}));
        for (const int descriptor : {0, 1, 2}) {
            const QString target = targetOfDescriptor(descriptor, session.process.processId());
            QCOMPARE(target == "/dev/null", closed.contains(descriptor));
        }
        QVERIFY(session.end());
        QCOMPARE(session.process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(session.process.exitCode(), 0);
    }

    void streamsThatNobodyReadsHaltNothing_data()
    {
        QTest::addColumn<QString>("command");
        QTest::newRow("output") << "exec \"$0\" --port \"$1\" >\"$2\"";
        QTest::newRow("error") << "exec \"$0\" --port \"$1\" 2>\"$2\"";
        QTest::newRow("both") << "exec \"$0\" --port \"$1\" >\"$2\" 2>&1";
        QTest::newRow("error, with a remark of the toolkit at its start")
            << "unset XDG_RUNTIME_DIR; exec \"$0\" --port \"$1\" 2>\"$2\"";
    }
    void streamsThatNobodyReadsHaltNothing()
    {
        QFETCH(QString, command);
        UnreadPipe pipe;
        CameraEnd camera;
        Session session;
        QVERIFY(session.display.start());
        QVERIFY(session.startCommand(command, {program, camera.path(), pipe.path()}));
        QVERIFY(session.connectTo(camera));
        camera.send(216, CameraEnd::identity(0xC92A6CE6));
        QTRY_COMPARE_WITH_TIMEOUT(camera.count(102), 1, 20000);
        camera.send(302, {});
        QTRY_VERIFY_WITH_TIMEOUT(session.display.find("Command rejected") != 0, 20000);
        session.display.close(session.display.find("Command rejected"));
        QVERIFY(session.end());
        QCOMPARE(session.process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(session.process.exitCode(), 0);
        QCOMPARE(lockOf(camera), QString());
    }

    void slowReaderHoldsUpNoEnd()
    {
        TalkativeSession session;
        QVERIFY(session.startAndTalk());
        QElapsedTimer time;
        time.start();
        QCOMPARE(::kill(pid_t(session.process.processId()), SIGTERM), 0);
        while (!session.process.waitForFinished(500) && time.elapsed() < 30000)
            session.pipe.readPage();
        QCOMPARE(session.process.state(), QProcess::NotRunning);
        QCOMPARE(session.process.exitStatus(), QProcess::CrashExit);
        QCOMPARE(session.process.exitCode(), SIGTERM);
        QVERIFY2(time.elapsed() < 6000, qPrintable(QString::number(time.elapsed())));
    }

    void secondSignalEndsAtOnce()
    {
        TalkativeSession session;
        QVERIFY(session.startAndTalk());
        const qint64 tool = session.process.processId();
        QVERIFY(isCaught(SIGINT, tool));
        QCOMPARE(::kill(pid_t(tool), SIGTERM), 0);
        QTRY_VERIFY(!isCaught(SIGINT, tool)); // it waits for the reader now
        QCOMPARE(lockOf(session.camera), QString());
        QCOMPARE(::kill(pid_t(tool), SIGINT), 0);
        QVERIFY(session.process.waitForFinished(20000));
        QCOMPARE(session.process.exitStatus(), QProcess::CrashExit);
        QCOMPARE(session.process.exitCode(), SIGINT);
    }

    void fileSizeLimitIsNoEnd()
    {
        QTemporaryDir folder;
        CameraEnd camera;
        Session session;
        QVERIFY(session.display.start());
        session.process.setWorkingDirectory(folder.path());
        QVERIFY(session.start({"--port", camera.path()}, session.environment()));
        QVERIFY(session.connectTo(camera));
        camera.send(216, CameraEnd::identity(0xC92A6CE6));
        QTRY_COMPARE_WITH_TIMEOUT(camera.count(102), 1, 20000);
        // Not from the start: the lock of the port is a file, too.
        const rlimit none{0, RLIM_INFINITY};
        QCOMPARE(::prlimit(pid_t(session.process.processId()), RLIMIT_FSIZE, &none, nullptr), 0);
        QVERIFY(session.press("ctrl+s"));
        QTRY_VERIFY_WITH_TIMEOUT(session.display.find("Save As") != 0, 20000);
        const QString dialog = QString::number(session.display.find("Save As"));
        QVERIFY(session.display.act({"windowfocus", "--sync", dialog, "type", "settings.bin"}));
        QVERIFY(session.display.act({"key", "Return"}));
        QTRY_COMPARE_WITH_TIMEOUT(session.display.find("Save As"), xcb_window_t(0), 20000);
        camera.send(216, CameraEnd::identity(0xC92A6CE6));
        QTRY_COMPARE_WITH_TIMEOUT(camera.count(102), 2, 20000);
        QCOMPARE(QFileInfo(folder.filePath("settings.bin")).size(), 0);
        QVERIFY(session.end());
        QCOMPARE(session.process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(session.process.exitCode(), 0);
    }
};

QTEST_GUILESS_MAIN(TestEnds)
#include "tst_ends.moc"
