// The program itself: command line, start and normal end. A session with a window needs a display
// of its own (Xvfb); where there is none, the end of the window is tested in this process only.

#include "support/cameraend.h"
#include "support/captureddiagnostics.h"
#include "support/programsession.h"
#include "support/windowundertest.h"

#include <QAction>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>

#include <functional>
#include <memory>

namespace {

/// Written by the off-screen platform, whatever the program does.
const QByteArray offscreenRemark = "This plugin does not support propagateSizeHints()";

/// Standard error but for the line of the check 100 ms after a request that the camera has not
/// answered yet.
QString errors(const CapturedDiagnostics &lines)
{
    return QString(lines.err()).remove("<<< This should not have happened! Message was not send\n");
}

struct Run
{
    int exitCode; ///< -1 if it crashed or did not end
    QByteArray out;
    QByteArray err;
};

Run run(const QStringList &arguments, const QProcessEnvironment &environment)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    const bool ended = process.waitForFinished(20000);
    if (!ended) {
        process.kill();
        process.waitForFinished();
    }
    return {ended && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), process.readAllStandardError()};
}

const char *const whereOption = "--where-are-the-buttons";

/// Prints where in the window the buttons for production are, each as x and y of its centre.
int tellWhereTheButtonsAre(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets); // as the program does
    QApplication application(argc, argv);
    WindowUnderTest tool;
    tool.window.showFactoryButtons();
    tool.window.show();
    tool.window.adjustSize();
    if (!QTest::qWaitForWindowExposed(&tool.window, 20000))
        return 1;
    for (const char *name : {"pbFactorySettings", "pb_TestWindow"}) {
        auto *button = tool.get<QPushButton>(name);
        const QPoint centre = button->mapTo(&tool.window, button->rect().center());
        diagnostics::out(QStringLiteral("%1 %2").arg(centre.x()).arg(centre.y()));
    }
    return 0;
}

/// Qt's own warnings, such as those of QML bindings, for as long as it lives.
class QtMessages
{
public:
    QtMessages()
    {
        texts.clear();
        s_previous = qInstallMessageHandler(&QtMessages::take);
    }
    ~QtMessages() { qInstallMessageHandler(s_previous); }
    QtMessages(const QtMessages &) = delete;
    QtMessages &operator=(const QtMessages &) = delete;

    static inline QStringList texts; ///< but for the remark of the off-screen platform

private:
    static void take(QtMsgType, const QMessageLogContext &, const QString &text)
    {
        if (text.toUtf8() != offscreenRemark)
            texts << text;
    }
    static inline QtMessageHandler s_previous = nullptr;
};

} // namespace

class TestQuorvixConfig : public QObject
{
    Q_OBJECT

private slots:
    void versionNeedsNoDisplay_data()
    {
        QTest::addColumn<QString>("option");
        QTest::newRow("--version") << "--version";
        QTest::newRow("-v") << "-v";
    }
    void versionNeedsNoDisplay()
    {
        QFETCH(QString, option);
        const Run result = run({option}, withoutDisplay());
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.out, QByteArray("quorvix-config 2.19\n"));
        QCOMPARE(result.err, QByteArray());
    }

    void helpNeedsNoDisplay_data()
    {
        QTest::addColumn<QString>("option");
        QTest::newRow("--help") << "--help";
        QTest::newRow("-h") << "-h";
    }
    void helpNeedsNoDisplay()
    {
        QFETCH(QString, option);
        const Run result = run({option}, withoutDisplay());
        QCOMPARE(result.exitCode, 0);
        for (const char *text : {"Usage:", "--port <NAME>", "--factory", "--help", "--version"})
            QVERIFY2(result.out.contains(text), text);
        QCOMPARE(result.err, QByteArray());
    }

    void textIsPrintedBesideTheToolkitsOptions_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QByteArray>("text");
        const QByteArray version = "quorvix-config 2.19\n";
        QTest::newRow("platform, version")
            << QStringList{"-platform", "offscreen", "--version"} << version;
        QTest::newRow("version, platform")
            << QStringList{"--version", "-platform", "offscreen"} << version;
        QTest::newRow("style, version") << QStringList{"-style", "fusion", "-v"} << version;
        QTest::newRow("platform, help")
            << QStringList{"-platform", "offscreen", "--help"} << QByteArray("--port <NAME>");
        QTest::newRow("help, style")
            << QStringList{"-h", "-style", "fusion"} << QByteArray("--factory");
        QTest::newRow("port, version") << QStringList{"--port", "x", "--version"} << version;
    }
    void textIsPrintedBesideTheToolkitsOptions()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QByteArray, text);
        const Run result = run(arguments, withoutDisplay());
        QCOMPARE(result.exitCode, 0);
        QVERIFY2(result.out.contains(text), result.out.constData());
        QCOMPARE(result.err, QByteArray());
    }

    void wrongCommandLinesAreRefused_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QByteArray>("message");
        QTest::newRow("unknown option") << QStringList{"--prot", "x"} << QByteArray("prot");
        QTest::newRow("unknown short option") << QStringList{"-x"} << QByteArray("x");
        QTest::newRow("--port without a name") << QStringList{"--port"} << QByteArray("--port");
        QTest::newRow("--factory with a value")
            << QStringList{"--factory=1"} << QByteArray("--factory");
        QTest::newRow("argument without an option")
            << QStringList{"/dev/ttyACM0"} << QByteArray("/dev/ttyACM0");
    }
    void wrongCommandLinesAreRefused()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QByteArray, message);
        const Run result = run(arguments, QProcessEnvironment::systemEnvironment());
        QVERIFY(result.exitCode > 0);
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(result.err.count('\n'), 1);
        QVERIFY2(result.err.contains(message), result.err.constData());
    }

    void startsAndEndsSilently_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("without options") << QStringList();
        QTest::newRow("with all options")
            << QStringList{"--factory", "--port", "/dev/no-camera", "--port=other"};
    }
    void startsAndEndsSilently()
    {
        QFETCH(QStringList, arguments);
        if (QStandardPaths::findExecutable("Xvfb").isEmpty())
            QSKIP("needs Xvfb");
        Session session;
        QVERIFY(session.display.start());
        // The default renderer would tell of itself.
        QProcessEnvironment environment = session.environment();
        environment.remove("QT_QUICK_BACKEND");
        environment.insert("QSG_INFO", "1");
        QVERIFY(session.start(arguments, environment));
        QVERIFY(session.end());
        QCOMPARE(session.process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(session.process.exitCode(), 0);
        QCOMPARE(session.process.readAllStandardError(), QByteArray());
        QCOMPARE(session.process.readAllStandardOutput(), QByteArray());
    }

    void rendererOfTheUserWins()
    {
        if (QStandardPaths::findExecutable("Xvfb").isEmpty())
            QSKIP("needs Xvfb");
        Session session;
        QVERIFY(session.display.start());
        QProcessEnvironment environment = session.environment();
        environment.insert("QT_QUICK_BACKEND", "none-such");
        session.process.setProcessEnvironment(environment);
        session.process.start(program, QStringList());
        QByteArray remarks;
        QTRY_VERIFY_WITH_TIMEOUT(
            (remarks += session.process.readAllStandardError()).contains("'none-such'"), 20000);
    }

    void offersThePortOfTheCommandLine()
    {
        if (!hasDisplayTools())
            QSKIP("needs Xvfb and xdotool");
        CameraEnd camera;
        Session session;
        QVERIFY(session.display.start());
        QVERIFY(session.start({"--port", camera.path()}, session.environment()));
        QVERIFY(session.connectTo(camera));
    }

    void buttonsForProductionShowOnDemand_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<QByteArray>("opens");
        QTest::newRow("factory settings") << 0 << QByteArray("Factory Settings");
        QTest::newRow("live editor") << 1 << QByteArray("Live displacement editor");
    }
    void buttonsForProductionShowOnDemand()
    {
        QFETCH(int, button);
        QFETCH(QByteArray, opens);
        if (!hasDisplayTools())
            QSKIP("needs Xvfb and xdotool");
        Session session;
        QVERIFY(session.display.start());
        QProcess twin;
        twin.setProcessEnvironment(session.environment());
        twin.start(QCoreApplication::applicationFilePath(), {whereOption});
        QVERIFY(twin.waitForFinished(20000));
        const QStringList places =
            QString::fromLatin1(twin.readAllStandardOutput()).simplified().split(' ');
        QCOMPARE(places.size(), 4);
        const QString x = places[2 * button];
        const QString y = places[2 * button + 1];

        {
            QVERIFY(session.start({"--factory"}, session.environment()));
            const auto opened = [&] { return session.display.find(opens) != 0; };
            bool open = false;
            for (int attempt = 0; attempt < 10 && !open; ++attempt) {
                QVERIFY(session.click(x, y));
                open = QTest::qWaitFor(opened, 2000);
            }
            QVERIFY(open);
            session.process.kill();
            QVERIFY(session.process.waitForFinished());
            QTRY_VERIFY(!opened());
        }
        // Without the option the click meets nothing: when the key that follows it has been heard,
        // no window is there.
        CameraEnd camera;
        QVERIFY(session.start({"--port", camera.path()}, session.environment()));
        QVERIFY(session.click(x, y));
        QVERIFY(session.connectTo(camera));
        QCOMPARE(session.display.find(opens), xcb_window_t(0));
    }

    void languageIsThatOfTheLocale_data()
    {
        QTest::addColumn<QString>("variable");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QByteArray>("title");
        const QByteArray english = "Quorvix - Configuration - 2.19";
        const QByteArray german = "Quorvix - Konfiguration - 2.19";
        QTest::newRow("German") << "LANG"
                                << "de_DE.UTF-8" << german;
        QTest::newRow("German messages alone") << "LC_MESSAGES"
                                               << "de_AT.UTF-8" << german;
        QTest::newRow("German numbers alone") << "LC_NUMERIC"
                                              << "de_DE.UTF-8" << english;
        QTest::newRow("French") << "LANG"
                                << "fr_FR.UTF-8" << english;
        QTest::newRow("C") << "LANG"
                           << "C" << english;
    }
    void languageIsThatOfTheLocale()
    {
        QFETCH(QString, variable);
        QFETCH(QString, value);
        QFETCH(QByteArray, title);
        if (QStandardPaths::findExecutable("Xvfb").isEmpty())
            QSKIP("needs Xvfb");
        Display display;
        QVERIFY(display.start());
        QProcessEnvironment environment = withoutDisplay();
        for (const char *name : {"LC_ALL", "LC_MESSAGES", "LC_NUMERIC", "LANG", "LANGUAGE"})
            environment.remove(QString::fromLatin1(name));
        environment.insert(variable, value);
        environment.insert("QT_QPA_PLATFORM", "xcb");
        environment.insert("DISPLAY", display.name());
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(program, QStringList());
        xcb_window_t window = 0;
        QTRY_VERIFY_WITH_TIMEOUT((window = display.find(title)) != 0, 20000);
        display.close(window);
        QVERIFY(process.waitForFinished(20000));
        QCOMPARE(process.exitCode(), 0);
        QCOMPARE(process.readAllStandardError(), QByteArray());
    }

    void windowEndsSilentlyUnshown()
    {
        CapturedDiagnostics lines;
        const QtMessages messages;
        {
            MainWindow window(nullptr);
        }
        QCOMPARE(QtMessages::texts, QStringList());
        QVERIFY(lines.err().isEmpty() && lines.out().isEmpty());
    }

    void quitEndsTheProgramSilently_data()
    {
        QTest::addColumn<bool>("busy");
        QTest::newRow("idle") << false;
        QTest::newRow("while the indicator spins") << true;
    }
    void quitEndsTheProgramSilently()
    {
        QFETCH(bool, busy);
        CapturedDiagnostics lines;
        CameraEnd camera;
        const QtMessages messages;
        {
            WindowUnderTest tool;
            tool.window.show();
            tool.window.adjustSize();
            bool spun = false;
            if (busy)
                QVERIFY(tool.connectTo(camera.path()));
            QTimer::singleShot(0, &tool.window, [&] {
                spun = tool.busy();
                tool.get<QAction>("actionQuit")->trigger();
            });
            QCOMPARE(QApplication::exec(), 0);
            QCOMPARE(spun, busy);
            QVERIFY(!tool.window.isVisible());
        }
        QCoreApplication::processEvents(); // whatever the window left behind
        QCOMPARE(QtMessages::texts, QStringList());
        QCOMPARE(errors(lines), QString());
    }

    void quitAfterASessionIsSilent()
    {
        CapturedDiagnostics lines;
        CameraEnd camera;
        const QtMessages messages;
        {
            WindowUnderTest tool;
            tool.window.show();
            QVERIFY(tool.connectTo(camera.path()));
            camera.send(216, CameraEnd::identity(0xC92A6CE6));
            QTRY_COMPARE(camera.count(102), 1);
            lines.clear();
            QTimer::singleShot(0, tool.get<QAction>("actionQuit"), &QAction::trigger);
            QCOMPARE(QApplication::exec(), 0);
        }
        QCOMPARE(QtMessages::texts, QStringList());
        QCOMPARE(errors(lines), QString());
    }
};

int main(int argc, char *argv[])
{
    if (argc > 1 && qstrcmp(argv[1], whereOption) == 0)
        return tellWhereTheButtonsAre(argc, argv);
    QApplication application(argc, argv);
    TestQuorvixConfig test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_quorvixconfig.moc"
