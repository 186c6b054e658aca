#pragma once

#include "support/cameraend.h"
#include "support/xdisplay.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTest>

/// Where the program under test is.
inline const QString program = QStringLiteral(BIN_DIR "/quorvix-config");

/// An environment in which the toolkit finds no display.
inline QProcessEnvironment withoutDisplay()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        environment.remove(QString::fromLatin1(name));
    return environment;
}

/// A display, and what presses its keys.
inline bool hasDisplayTools()
{
    return !QStandardPaths::findExecutable("Xvfb").isEmpty() &&
           !QStandardPaths::findExecutable("xdotool").isEmpty();
}

/// A program with its window on a display of its own.
class Session
{
public:
    Session() = default;
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;
    /// The environment of a program on the display.
    QProcessEnvironment environment() const
    {
        QProcessEnvironment environment = withoutDisplay();
        environment.insert("QT_QPA_PLATFORM", "xcb");
        environment.insert("DISPLAY", display.name());
        return environment;
    }
    bool start(const QStringList &arguments, const QProcessEnvironment &environment)
    {
        process.setProcessEnvironment(environment);
        process.start(program, arguments);
        return isShown();
    }
    /// The same by a command of the shell, which knows the arguments as $0, $1 ...
    bool startCommand(const QString &command, const QStringList &arguments)
    {
        process.setProcessEnvironment(environment());
        process.start(QStringLiteral("sh"), QStringList{"-c", command} + arguments);
        return isShown();
    }
    bool isShown()
    {
        return QTest::qWaitFor([this] { return (window = display.find(title)) != 0; }, 20000);
    }
    /// Presses a key combination in the window.
    bool press(const QString &keys)
    {
        return display.act({"windowfocus", "--sync", QString::number(window), "key", keys});
    }
    bool click(const QString &x, const QString &y)
    {
        return display.act({"mousemove", "--window", QString::number(window), x, y, "click", "1"});
    }
    /// Presses Connect until the camera has been asked for its identity. The list may still be
    /// empty at first: Connect does nothing then.
    bool connectTo(CameraEnd &camera)
    {
        for (int attempt = 0; attempt < 20 && camera.count(116) == 0; ++attempt)
            if (!press("ctrl+k") || QTest::qWaitFor([&] { return camera.count(116) > 0; }, 1000))
                break;
        return camera.count(116) > 0;
    }

    /// Ends the program as its user does: one that is killed leaves the lock of its port behind.
    bool end()
    {
        display.close(window);
        return process.waitForFinished(20000);
    }
    ~Session()
    {
        if (process.state() == QProcess::NotRunning)
            return;
        if (window != 0 && end())
            return;
        process.kill();
        process.waitForFinished();
    }

    Display display;
    QProcess process;
    xcb_window_t window = 0;

private:
    const QByteArray title = "Quorvix - Configuration - 2.19";
};
