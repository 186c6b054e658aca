#pragma once

#include <QByteArray>
#include <QString>

#include <cstdlib>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

/// A raw pseudo-terminal whose slave end stands for the camera's serial port.
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
        m_path = QString::fromLocal8Bit(ptsname(m_master));
        // Without an open slave the master reads as hung up whenever no client is there.
        m_slave = open(ptsname(m_master), O_RDWR | O_NOCTTY | O_CLOEXEC);
    }
    ~PseudoTerminal() { hangUp(); }
    PseudoTerminal(const PseudoTerminal &) = delete;
    PseudoTerminal &operator=(const PseudoTerminal &) = delete;

    /// Absolute path of the slave end.
    QString path() const { return m_path; }

    /// Sends bytes to whoever has the slave open; false if they do not fit at once.
    bool write(const QByteArray &bytes)
    {
        return ::write(m_master, bytes.constData(), static_cast<size_t>(bytes.size())) ==
               bytes.size();
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
    QString m_path;
    QByteArray m_received;
};
