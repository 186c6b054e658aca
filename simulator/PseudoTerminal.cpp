#include "simulator/PseudoTerminal.h"

#include <QFile>
#include <QSocketNotifier>

#include <cstdlib>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace {

constexpr int pendingLimit = 1 << 20;

void dispose(QSocketNotifier *&notifier)
{
    // The line may be closed from within the notifier's own signal.
    if (notifier) {
        notifier->setEnabled(false);
        notifier->deleteLater();
    }
    notifier = nullptr;
}

} // namespace

PseudoTerminal::PseudoTerminal(QObject *parent) : QObject(parent) {}

PseudoTerminal::~PseudoTerminal()
{
    close();
}

bool PseudoTerminal::open()
{
    close();
    m_master = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    char name[128];
    termios mode;
    if (m_master < 0 || ::grantpt(m_master) != 0 || ::unlockpt(m_master) != 0 ||
        ::ptsname_r(m_master, name, sizeof name) != 0 || ::tcgetattr(m_master, &mode) != 0) {
        close();
        return false;
    }
    // Before anyone opens the device: otherwise early bytes are echoed and altered.
    ::cfmakeraw(&mode);
    ::tcsetattr(m_master, TCSANOW, &mode);
    // Without an open descriptor of the device the master polls as hung up whenever no client is
    // there.
    m_slave = ::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (m_slave < 0) {
        close();
        return false;
    }
    m_path = QFile::decodeName(name);

    m_readable = new QSocketNotifier(m_master, QSocketNotifier::Read, this);
    connect(m_readable, &QSocketNotifier::activated, this, &PseudoTerminal::readAvailable);
    m_writable = new QSocketNotifier(m_master, QSocketNotifier::Write, this);
    m_writable->setEnabled(false);
    connect(m_writable, &QSocketNotifier::activated, this, &PseudoTerminal::writePending);
    return true;
}

void PseudoTerminal::close()
{
    const int error = errno;
    dispose(m_readable);
    dispose(m_writable);
    m_pending.clear();
    for (int *descriptor : {&m_slave, &m_master}) {
        if (*descriptor >= 0)
            ::close(*descriptor);
        *descriptor = -1;
    }
    m_path.clear();
    errno = error;
}

void PseudoTerminal::write(const QByteArray &bytes)
{
    if (!isOpen() || m_pending.size() + bytes.size() > pendingLimit)
        return;
    m_pending.append(bytes);
    writePending();
}

bool PseudoTerminal::isDrained() const
{
    int unread = 0;
    return !isOpen() ||
           (m_pending.isEmpty() && ::ioctl(m_slave, FIONREAD, &unread) == 0 && unread == 0);
}

void PseudoTerminal::readAvailable()
{
    char buffer[16384];
    const ssize_t count = ::read(m_master, buffer, sizeof buffer);
    if (count > 0)
        emit signalReceived(QByteArray(buffer, int(count)));
}

void PseudoTerminal::writePending()
{
    while (!m_pending.isEmpty()) {
        const ssize_t count = ::write(m_master, m_pending.constData(), size_t(m_pending.size()));
        if (count <= 0)
            break;
        m_pending.remove(0, int(count));
    }
    m_writable->setEnabled(!m_pending.isEmpty());
}
