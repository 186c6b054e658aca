// What the program takes from its command line, and from the folder in which it is started.

#include "support/programsession.h"

#include <QTemporaryDir>

#include <filesystem>
#include <fstream>
#include <string>
#include <sys/inotify.h>
#include <unistd.h>

namespace {

/// Tells whether anything in a folder has been opened.
class FolderWatch
{
public:
    explicit FolderWatch(const std::string &folder)
        : m_watch(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        inotify_add_watch(m_watch, folder.c_str(), IN_OPEN | IN_ACCESS | IN_CREATE);
    }
    ~FolderWatch() { ::close(m_watch); }
    FolderWatch(const FolderWatch &) = delete;
    FolderWatch &operator=(const FolderWatch &) = delete;

    bool hasSeenAnything()
    {
        char events[4096];
        return ::read(m_watch, events, sizeof events) > 0;
    }

private:
    int m_watch;
};

/// A folder with something for everybody who takes the path of a resource for one below it.
class HostileFolder
{
public:
    HostileFolder()
    {
        for (const char *name : {":", "qrc:"}) {
            std::filesystem::create_directory(below(name));
            for (const char *file : {"/BusyIndicator.qml", "/BusyIndicator.qmlc"})
                std::ofstream(below(name) + file)
                    << "import QtQuick 2.0\nItem { Component.onCompleted: Qt.quit() }\n";
        }
    }
    QString path() const { return m_folder.path(); }
    /// Not by Qt, which takes the name ":" for its resources.
    std::string below(const char *name) const { return path().toStdString() + '/' + name; }

private:
    QTemporaryDir m_folder;
};

} // namespace

class TestStart : public QObject
{
    Q_OBJECT

private slots:
    void currentFolderIsLeftAlone()
    {
        if (!hasDisplayTools())
            QSKIP("needs Xvfb and xdotool");
        HostileFolder folder;
        FolderWatch watch(folder.path().toStdString());
        FolderWatch resources(folder.below(":"));
        FolderWatch urls(folder.below("qrc:"));
        CameraEnd camera;
        Session session;
        QVERIFY(session.display.start());
        session.process.setWorkingDirectory(folder.path());
        QVERIFY(session.start({"--port", camera.path()}, session.environment()));
        QVERIFY(session.connectTo(camera)); // the indicator spins
        QVERIFY(session.end());
        QVERIFY(!watch.hasSeenAnything());
        QVERIFY(!resources.hasSeenAnything());
        QVERIFY(!urls.hasSeenAnything());

        QVERIFY(std::ifstream(folder.below(":/BusyIndicator.qmlc")).is_open());
        QVERIFY(resources.hasSeenAnything());
    }

    void currentFolderIsLeftAloneByTheTour()
    {
        HostileFolder folder;
        FolderWatch watch(folder.path().toStdString());
        FolderWatch resources(folder.below(":"));
        QTemporaryDir output;
        QProcess tour;
        tour.setWorkingDirectory(folder.path());
        tour.start(QStringLiteral(BIN_DIR "/quorvix-tour"),
                   {"--no-simulator", "--output", output.path()});
        QVERIFY(tour.waitForFinished(60000));
        QCOMPARE(tour.exitCode(), 0);
        QVERIFY(!watch.hasSeenAnything());
        QVERIFY(!resources.hasSeenAnything());
    }

    void wrongOptionsAreToldWithoutADisplay_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QByteArray>("error");
        const QByteArray unknown = "quorvix-config: Unknown option 'prot'.\n";
        QTest::newRow("unknown") << QStringList{"--prot", "x"} << unknown;
        QTest::newRow("beside a platform") << QStringList{"-platform", "xcb", "--prot"} << unknown;
        QTest::newRow("beside a display") << QStringList{"-display", ":77", "--prot"} << unknown;
        QTest::newRow("beside a style") << QStringList{"--prot", "-style=fusion"} << unknown;
        QTest::newRow("beside flags") << QStringList{"-reverse", "--prot", "--dograb"} << unknown;
        QTest::newRow("style behind an equals sign, as a sheet")
            << QStringList{"-stylesheet=x", "--style=fusion", "-qmljsdebugger=x", "--prot"}
            << unknown;
        const auto unknownNamed = [](const char *name) {
            return QByteArray("quorvix-config: Unknown option '") + name + "'.\n";
        };
        for (const char *name :
             {"platform", "platformpluginpath", "platformtheme", "plugin", "geometry",
              "qwindowgeometry", "title", "qwindowtitle", "icon", "qwindowicon", "session",
              "display", "name", "visual", "reverse", "nograb", "dograb"})
            QTest::addRow("--%s with an equals sign", name)
                << QStringList{QStringLiteral("--%1=:9").arg(name)} << unknownNamed(name);
        for (const char *name : {"-platform", "--display", "-visual", "-style"})
            QTest::addRow("%s without a value", name)
                << QStringList{name}
                << QByteArray("quorvix-config: Missing value after '") + name + "'.\n";
        QTest::newRow("unknown, of two lines") << QStringList{"--a\nb"} << unknownNamed("a\\x0ab");
        QTest::newRow("no option, of two lines")
            << QStringList{"a\nb"} << QByteArray("Unexpected argument: a\\x0ab\n");
        QTest::newRow("without a name")
            << QStringList{"--port"}
            << QByteArray("quorvix-config: Missing value after '--port'.\n");
        QTest::newRow("no option")
            << QStringList{"/dev/ttyACM0"} << QByteArray("Unexpected argument: /dev/ttyACM0\n");
    }
    void wrongOptionsAreToldWithoutADisplay()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QByteArray, error);
        QProcess process;
        process.setProcessEnvironment(withoutDisplay());
        process.start(program, arguments);
        QVERIFY(process.waitForFinished(20000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 1);
        QCOMPARE(process.readAllStandardError(), error);
        QCOMPARE(process.readAllStandardOutput(), QByteArray());
    }

    void portMayBeNamedLikeAnOption_data()
    {
        QTest::addColumn<QStringList>("arguments");
        for (const char *name :
             {"-h", "--help", "-v", "--version", "-style", "-reverse", "--platform", "-geometry"})
            QTest::newRow(name) << QStringList{"--port", name};
        QTest::newRow("one argument") << QStringList{"--port=-h"};
        QTest::newRow("before an option") << QStringList{"--port", "-platform", "--factory"};
        QTest::newRow("before an argument")
            << QStringList{"--port", "-platform", "-style", "fusion"};
    }
    void portMayBeNamedLikeAnOption()
    {
        QFETCH(QStringList, arguments);
        if (!hasDisplayTools())
            QSKIP("needs Xvfb and xdotool");
        Session session;
        QVERIFY(session.display.start());
        QVERIFY(session.start(arguments, session.environment()));
        QVERIFY(session.end());
        QCOMPARE(session.process.readAllStandardOutput(), QByteArray());
        QCOMPARE(session.process.readAllStandardError(), QByteArray());
        QCOMPARE(session.process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(session.process.exitCode(), 0);
    }

    void toolkitsOptionsStayUsable()
    {
        if (!hasDisplayTools())
            QSKIP("needs Xvfb and xdotool");
        Session session;
        QVERIFY(session.display.start());
        QProcessEnvironment environment = session.environment();
        environment.remove("DISPLAY");
        environment.remove("QT_QPA_PLATFORM");
        QVERIFY(session.start({"-platform", "xcb", "-display", session.display.name(), "--style",
                               "fusion", "-geometry", "+10+10", "-nograb"},
                              environment));
        QVERIFY(session.end());
        QCOMPARE(session.process.readAllStandardError(), QByteArray());
        QCOMPARE(session.process.exitCode(), 0);
    }
};

QTEST_GUILESS_MAIN(TestStart)
#include "tst_start.moc"
