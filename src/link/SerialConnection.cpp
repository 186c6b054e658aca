#include "link/SerialConnection.h"

#include "diagnostics/diagnostics.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSerialPortInfo>
#include <QSignalBlocker>
#include <QThread>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>
#endif

static constexpr int PollIntervalMs = 500;
static constexpr int StallTimeMs = 1000;
static constexpr int ClosingTimeMs = 200; // for the device to take what was sent last

SerialConnection::SerialConnection(QObject *parent)
    : QObject(parent), m_serialPort(new QSerialPort(this)), m_pollTimer(new QTimer(this))
{
    connect(m_serialPort, SIGNAL(readyRead()), this, SLOT(slotGetNewSerialPortData()));
    connect(m_serialPort, SIGNAL(error(QSerialPort::SerialPortError)), this,
            SLOT(slotSerialPortError(QSerialPort::SerialPortError)));
    connect(m_pollTimer, SIGNAL(timeout()), this, SLOT(slotTimerCheckForNewSerialPorts()));
    m_pollTimer->start(PollIntervalMs);

    connect(m_serialPort, &QSerialPort::bytesWritten, this, [this] {
        m_stallTimer.stop();
        watchWaitingBytes();
    });
    // No child: the poll timer is the only timer that others find here.
    m_stallTimer.setSingleShot(true);
    m_stallTimer.setInterval(StallTimeMs);
    connect(&m_stallTimer, &QTimer::timeout, this, [this] { setWriteStalled(true); });
}

SerialConnection::~SerialConnection()
{
    const QSignalBlocker silent(this);
    if (m_serialPort->isOpen())
        closeLine();
    delete m_serialPort;
    delete m_pollTimer;
}

bool SerialConnection::openSerialPort(QString portName)
{
    if (m_serialPort->isOpen())
        return false;

    m_serialPort->blockSignals(false);
    setPortName(portName);
    if (m_portName.isEmpty()) {
        m_lastOpening = Opening::NotFound;
        diagnostics::out("error: serial port name not valid");
        return false;
    }
    m_serialPort->setPortName(m_portName);
    if (!m_serialPort->open(QIODevice::ReadWrite)) {
        m_lastOpening = reasonOfFailure();
        diagnostics::out("<<< failed to open serial connection");
        return false;
    }

    if (!m_serialPort->setBaudRate(m_baudRate.value))
        diagnostics::err(
            QStringLiteral("<<< Error: Setting baudrate to %1 failed").arg(m_baudRate.value));
    m_serialPort->setDataBits(static_cast<QSerialPort::DataBits>(m_dataBits.value));
    m_serialPort->setParity(static_cast<QSerialPort::Parity>(m_parity.value));
    m_serialPort->setStopBits(static_cast<QSerialPort::StopBits>(m_stopBits.value));
    m_serialPort->setFlowControl(static_cast<QSerialPort::FlowControl>(m_flowControl.value));

    m_connected = true;
    m_lastOpening = Opening::Succeeded;
    emit signalPortConnectionChanged(true);
    return true;
}

void SerialConnection::closeSerialPort()
{
    diagnostics::out("SerialConnection::closeSerialPort()");
    if (!m_connected)
        return;

    m_connected = false;
    if (m_serialPort->isOpen()) {
        diagnostics::out("<<< close()");
        closeLine();
        diagnostics::out("<<< serial interface closed");
    } else {
        diagnostics::out("<<< serial interface was not open");
    }
    m_stallTimer.stop();
    setWriteStalled(false);
    emit signalPortConnectionChanged(false);
    deliverChunks(); // a receiver may open a box: by now everybody knows that the port is closed
}

void SerialConnection::closeLine()
{
    {
        const QSignalBlocker silent(m_serialPort); // closing: nothing is to be heard of it any more
        QElapsedTimer time;
        time.start();
        bool waiting = isOutputWaiting();
        for (; waiting && time.elapsed() < ClosingTimeMs; waiting = isOutputWaiting()) {
            flush();
            QThread::msleep(1);
        }
        // Closing, the system would wait long for the device to take it, and the window with it.
        if (waiting)
            m_serialPort->clear(QSerialPort::Output);
    }
    m_serialPort->close();
}

bool SerialConnection::isOutputWaiting() const
{
    if (isHungUp())
        return false; // nobody is left to take it
    if (m_serialPort->bytesToWrite() > 0)
        return true;
#ifdef Q_OS_UNIX
    int held = 0; // by the system
    return ioctl(m_serialPort->handle(), TIOCOUTQ, &held) == 0 && held > 0;
#else
    return false;
#endif
}

bool SerialConnection::isOpen() const
{
    return m_serialPort->isOpen();
}

SerialConnection::Opening SerialConnection::lastOpening() const
{
    return m_lastOpening;
}

bool SerialConnection::writeSerialPortData(const QByteArray &data)
{
    if (!m_serialPort->isOpen()) {
        diagnostics::out("<<< ERROR writeData: serial port not open\n");
        return false;
    }
    if (m_serialPort->bytesToWrite() + data.size() > MaximumWaiting) {
        diagnostics::out(QStringLiteral("<<< ERROR writeData: %1 bytes are waiting for the device, "
                                        "%2 more are lost")
                             .arg(m_serialPort->bytesToWrite())
                             .arg(data.size()));
        return false;
    }
    m_serialPort->write(data);
    flush();
    watchWaitingBytes();
    return true;
}

void SerialConnection::flush()
{
#ifdef Q_OS_UNIX
    // QSerialPort takes a full line for a vanished device. It goes on writing by itself as soon as
    // there is room.
    if (!lineEvents(POLLOUT))
        return;
#endif
    m_serialPort->flush();
}

void SerialConnection::watchWaitingBytes()
{
    if (!m_serialPort->isOpen() || m_serialPort->bytesToWrite() == 0) {
        m_stallTimer.stop();
        setWriteStalled(false);
    } else if (!m_stallTimer.isActive()) {
        m_stallTimer.start();
    }
}

void SerialConnection::setWriteStalled(bool stalled)
{
    if (m_writeStalled == stalled)
        return;
    m_writeStalled = stalled;
    emit signalWriteStalled(stalled);
}

void SerialConnection::setPortName(const QString &portName)
{
    m_portName = portName;
}

void SerialConnection::setExtraPorts(const QStringList &ports)
{
    m_extraPorts = ports;
}

void SerialConnection::slotGetNewSerialPortData()
{
    if (!m_serialPort->isOpen()) {
        diagnostics::out("slotNewSerialPortData: serial port not open");
        return;
    }
    // Announced from the event loop: QSerialPort emits no readyRead() while a receiver of the last
    // one has not returned, so that a message box which the chunk opens would hold up everything
    // that arrives meanwhile.
    m_chunks.append(m_serialPort->readAll());
    QMetaObject::invokeMethod(this, &SerialConnection::deliverChunks, Qt::QueuedConnection);
}

void SerialConnection::dropReceived()
{
    m_chunks.clear();
}

void SerialConnection::deliverChunks()
{
    while (!m_chunks.isEmpty())
        emit signalNewSerialPortData(m_chunks.takeFirst());
}

void SerialConnection::slotTimerCheckForNewSerialPorts()
{
    if (m_connected)
        return;

    if (m_portWatch.isWorthALook()) {
        m_systemPorts.clear();
        const QList<QSerialPortInfo> available = QSerialPortInfo::availablePorts();
        for (const QSerialPortInfo &info : available)
            m_systemPorts.append(info.portName());
    }
    QStringList ports = m_systemPorts;
    for (const QString &extra : qAsConst(m_extraPorts))
        if (!ports.contains(extra))
            ports.append(extra);
    ports.sort(Qt::CaseSensitive);
    if (ports == m_knownPorts)
        return;

    m_knownPorts = ports;
    emit signalPortListChanged(m_knownPorts);
}

void SerialConnection::slotSerialPortError(QSerialPort::SerialPortError error)
{
    if (error == QSerialPort::NoError)
        return;
    if (error == QSerialPort::ResourceError) {
        closeSerialPort();
        return;
    }
    diagnostics::out(QStringLiteral("SerialConnection::slotSerialPortError(%1)").arg(error));
    // A vanished device is often reported as a read error, over and over until the port is closed.
    if (m_connected && isHungUp())
        closeSerialPort();
}

#ifdef Q_OS_UNIX
short SerialConnection::lineEvents(short events) const
{
    pollfd descriptor{};
    descriptor.fd = m_serialPort->handle();
    descriptor.events = events;
    return poll(&descriptor, 1, 0) > 0 ? descriptor.revents : short(0);
}
#endif

/// Before a close: the system would wait long for the device to take what it holds.
bool SerialConnection::isHungUp() const
{
#ifdef Q_OS_UNIX
    return m_serialPort->isOpen() && (lineEvents(0) & POLLHUP);
#else
    return false;
#endif
}

#ifdef Q_OS_UNIX
// Where QSerialPort looks for the port.
static QString systemLocation(const QString &portName)
{
    for (const char *path : {"/", "./", "../"})
        if (portName.startsWith(QLatin1String(path)))
            return portName;
    return QStringLiteral("/dev/") + portName;
}

// QSerialPort locks a port by a file that is named "LCK.." and the port's name, its slashes
// replaced.
static bool isTooLongForItsLock(const QString &systemLocation)
{
    constexpr int longestFileName = 255; // bytes, on all usual file systems
    const QString name =
        systemLocation.startsWith(QLatin1String("/dev/")) ? systemLocation.mid(5) : systemLocation;
    return 5 + QFile::encodeName(name).size() > longestFileName;
}
#endif

SerialConnection::Opening SerialConnection::reasonOfFailure() const
{
    switch (m_serialPort->error()) {
    case QSerialPort::DeviceNotFoundError:
        return Opening::NotFound;
    case QSerialPort::PermissionError:
        break; // refused by the device's rights, or by the program that holds it
    default:
        return Opening::Failed;
    }
#ifdef Q_OS_UNIX
    const QString location = systemLocation(m_portName);
    const QByteArray path = QFile::encodeName(location);
    if (faccessat(AT_FDCWD, path.constData(), F_OK, AT_EACCESS) != 0) {
        if (errno == ENAMETOOLONG)
            return Opening::NameTooLong;
        if (errno == ENOENT)
            return Opening::NotFound;
    }
    if (faccessat(AT_FDCWD, path.constData(), R_OK | W_OK, AT_EACCESS) != 0)
        return Opening::NotPermitted;
    if (isTooLongForItsLock(location))
        return Opening::NameTooLong;
#endif
    return Opening::Busy;
}
