#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

/// A raw pseudo-terminal whose slave end stands for the camera's serial port.
///
/// Clients open it by a link with a name of its own. The number of a pseudo-terminal is given out
/// again as soon as its ends are closed, but QSerialPort removes the lock file of that name only
/// after it closed its end: another test that gets the number in between would find it locked.
class PseudoTerminal
{
public:
    PseudoTerminal() : m_master(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC))
    {
        if (m_master < 0 || grantpt(m_master) != 0 || unlockpt(m_master) != 0)
            qFatal("no pseudo-terminal");
        // Raw before anyone opens the slave, or bytes would be echoed and altered.
        termios settings = lineSettings();
        cfmakeraw(&settings);
        tcsetattr(m_master, TCSANOW, &settings);
        if (!QFile::link(QString::fromLocal8Bit(ptsname(m_master)), path()))
            qFatal("no link to the pseudo-terminal");
        // Without an open slave the master reads as hung up whenever no client is there.
        m_slave = open(ptsname(m_master), O_RDWR | O_NOCTTY | O_CLOEXEC);
    }
    ~PseudoTerminal() { hangUp(); }
    PseudoTerminal(const PseudoTerminal &) = delete;
    PseudoTerminal &operator=(const PseudoTerminal &) = delete;

    /// Absolute path of the link to the slave end.
    QString path() const { return m_folder.filePath(QStringLiteral("camera")); }

    /// Sends bytes to whoever has the slave open; false if they do not fit at once.
    bool write(const QByteArray &bytes)
    {
        return ::write(m_master, bytes.constData(), static_cast<size_t>(bytes.size())) ==
               bytes.size();
    }

    /// Sends all of them, waiting for room on the line; false if there is none for ten seconds.
    bool writeAll(const QByteArray &bytes)
    {
        for (int sent = 0; sent < bytes.size();) {
            pollfd line{m_master, POLLOUT, 0};
            if (poll(&line, 1, 10000) <= 0)
                return false;
            const ssize_t size = ::write(m_master, bytes.constData() + sent,
                                         static_cast<size_t>(bytes.size() - sent));
            if (size < 0 && errno != EAGAIN)
                return false;
            sent += static_cast<int>(size < 0 ? 0 : size);
        }
        return true;
    }

    /// Everything received so far.
    const QByteArray &received()
    {
        char buffer[4096];
        for (ssize_t size; (size = ::read(m_master, buffer, sizeof buffer)) > 0;)
            m_received.append(buffer, static_cast<int>(size));
        return m_received;
    }

    /// The line settings that a client has applied.
    termios lineSettings() const
    {
        termios settings{};
        tcgetattr(m_master, &settings);
        return settings;
    }

    /// The device is pulled out.
    void hangUp()
    {
        for (int *descriptor : {&m_slave, &m_master}) {
            if (*descriptor >= 0)
                ::close(*descriptor);
            *descriptor = -1;
        }
    }

private:
    int m_master;
    int m_slave = -1;
    QTemporaryDir m_folder;
    QByteArray m_received;
};
