#pragma once

#include "support/portlock.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QStringList>

#include <csignal>

/// The real quorvix-simulator as a child process. The test's target names quorvix-simulator in its
/// DEPENDS. The child ends with the test, however that ends.
class SimulatorProcess
{
public:
    ~SimulatorProcess() { stop(); }

    /// Starts it with --log, --exit-with-stdin and `arguments`, and waits for the device. False if
    /// it does not come up; log() then tells why.
    bool start(const QStringList &arguments = {})
    {
        m_log.clear();
        m_paths.clear();
        m_process.start(QStringLiteral(BIN_DIR "/quorvix-simulator"),
                        QStringList{"--log", "--exit-with-stdin"} + arguments);
        QElapsedTimer time;
        time.start();
        while (paths().isEmpty() && m_process.state() != QProcess::NotRunning &&
               time.elapsed() < 20000)
            m_process.waitForReadyRead(100);
        if (paths().isEmpty())
            return false;
        portlock::waitUntilFree(path());
        return true;
    }

    /// Path of the device, after a restart of the camera that of the new one.
    QString path() { return paths().isEmpty() ? QString() : paths().last(); }
    /// All that it has printed so far, one path for each time the line came up.
    QStringList paths() { return lines(m_paths, m_process.readAllStandardOutput()); }
    /// Lines on its standard error so far. They arrive while the test runs its event loop.
    QStringList log() { return lines(m_log, m_process.readAllStandardError()); }

    /// Ends it with SIGTERM and gives its exit code, -1 if it crashed or had to be killed.
    int stop()
    {
        if (m_process.state() != QProcess::NotRunning) {
            m_process.terminate();
            if (!m_process.waitForFinished(10000))
                m_process.kill();
            m_process.waitForFinished();
        }
        return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }

    /// Lets its faults rest, or act again; returns once it has taken notice.
    bool pauseFaults() { return signal(SIGUSR1, QStringLiteral("faults paused")); }
    bool resumeFaults() { return signal(SIGUSR2, QStringLiteral("faults resumed")); }

    QProcess &process() { return m_process; }

private:
    bool signal(int number, const QString &answer)
    {
        const int before = log().count(answer);
        ::kill(static_cast<pid_t>(m_process.processId()), number);
        QElapsedTimer time;
        time.start();
        while (log().count(answer) == before && time.elapsed() < 10000)
            m_process.waitForReadyRead(20);
        return log().count(answer) > before;
    }

    static QStringList lines(QByteArray &text, const QByteArray &more)
    {
        text += more;
        QStringList result;
        for (int from = 0, end; (end = text.indexOf('\n', from)) >= 0; from = end + 1)
            result << QString::fromUtf8(text.mid(from, end - from));
        return result;
    }

    QProcess m_process;
    QByteArray m_paths;
    QByteArray m_log;
};
