// How the program ends when its user does not end it: by signals, and with its display.

#include "support/cameraend.h"
#include "support/programsession.h"

#include <QDir>
#include <QFile>

#include <csignal>

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

} // namespace

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
        QTest::addColumn<bool>("modal");
        for (const bool modal : {false, true}) {
            const char *where = modal ? "%s in a message box" : "%s";
            QTest::addRow(where, "INT") << SIGINT << modal;
            QTest::addRow(where, "TERM") << SIGTERM << modal;
            QTest::addRow(where, "HUP") << SIGHUP << modal;
        }
    }
    void signalReleasesThePort()
    {
        QFETCH(int, signal);
        QFETCH(bool, modal);
        CameraEnd camera;
        Session session;
        QVERIFY(session.display.start());
        QVERIFY(session.start({"--port", camera.path()}, session.environment()));
        QVERIFY(session.connectTo(camera));
        QVERIFY(!lockOf(camera).isEmpty());
        if (modal) {
            camera.send(316, {}); // the request for the identity is rejected
            QTRY_VERIFY_WITH_TIMEOUT(session.display.find("Command rejected") != 0, 20000);
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
};

QTEST_GUILESS_MAIN(TestEnds)
#include "tst_ends.moc"
