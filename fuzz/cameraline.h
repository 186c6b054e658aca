#pragma once

#include "judge.h"
#include "support/wire.h"

#include <QFile>
#include <QTemporaryDir>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

/// The camera's end of a line that the tool, in the same thread, has open as a serial port.
class CameraLine
{
public:
    CameraLine() : m_master(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC))
    {
        termios mode = {};
        judge(m_master >= 0 && ::grantpt(m_master) == 0 && ::unlockpt(m_master) == 0 &&
                  ::tcgetattr(m_master, &mode) == 0,
              "a pseudo-terminal can be had");
        ::cfmakeraw(&mode);
        ::tcsetattr(m_master, TCSANOW, &mode);
        const char *name = ::ptsname(m_master);
        // By a link of its own: the lock of a number that was given out before may still be there.
        judge(QFile::link(QString::fromLocal8Bit(name), path()), "the line has a name");
        m_device = ::open(name, O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
        judge(m_device >= 0, "the line has a device");
    }
    ~CameraLine() { hangUp(); }
    CameraLine(const CameraLine &) = delete;
    CameraLine &operator=(const CameraLine &) = delete;

    QString path() const { return m_folder.filePath(QStringLiteral("camera")); }

    /// The device is pulled out.
    void hangUp()
    {
        for (int *descriptor : {&m_device, &m_master}) {
            if (*descriptor >= 0)
                ::close(*descriptor);
            *descriptor = -1;
        }
    }

    /// Writes as many of the bytes as the line takes; how many these are.
    int write(const QByteArray &bytes)
    {
        const ssize_t count =
            m_master < 0 ? -1 : ::write(m_master, bytes.constData(), size_t(bytes.size()));
        if (count <= 0)
            return 0;
        // They reach the device a moment later.
        pollfd arrived{m_device, POLLIN, 0};
        ::poll(&arrived, 1, 100);
        return int(count);
    }
    /// Whether bytes wait for the tool to read them.
    bool hasUnread() const
    {
        int count = 0;
        return m_device >= 0 && ::ioctl(m_device, FIONREAD, &count) == 0 && count > 0;
    }

    /// Whether the tool has the device open, whatever it says.
    bool isHeld() const
    {
        struct stat device = {};
        if (m_device < 0 || ::fstat(m_device, &device) != 0)
            return false;
        for (int descriptor = 0; descriptor < descriptorLimit; ++descriptor) {
            struct stat other = {};
            if (descriptor != m_device && ::fstat(descriptor, &other) == 0 &&
                other.st_rdev == device.st_rdev && S_ISCHR(other.st_mode))
                return true;
        }
        return false;
    }

    /// What the tool has sent since the last call: whole frames, or this is a finding.
    QVector<wire::Message> take()
    {
        char buffer[4096];
        for (ssize_t size; m_master >= 0 && (size = ::read(m_master, buffer, sizeof buffer)) > 0;)
            m_received.append(buffer, int(size));
        QVector<wire::Message> messages;
        constexpr int lengthEnd = 8;
        while (m_received.size() >= lengthEnd) {
            const auto length = qFromBigEndian<quint32>(m_received.constData() + 4);
            judge(m_received.startsWith("KOVO") && length >= 16 && length <= 1024,
                  "what the tool sends begins with a frame's head");
            const int size = int(length) + 5;
            if (m_received.size() < size)
                break;
            QByteArray frame = m_received.left(size);
            m_received.remove(0, size);
            const auto message = wire::take(frame);
            judge(message && frame.isEmpty(), "what the tool sends are valid frames");
            messages.append(*message);
        }
        return messages;
    }

private:
    static constexpr int descriptorLimit = 256; // the lowest free one is given out first

    int m_master;
    int m_device = -1;
    QTemporaryDir m_folder;
    QByteArray m_received;
};
