#include "link/SerialConnection.h"

#include "diagnostics/diagnostics.h"

#include <QFile>
#include <QSerialPortInfo>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>
#endif

static constexpr int PollIntervalMs = 500;

SerialConnection::SerialConnection(QObject *parent)
    : QObject(parent), m_serialPort(new QSerialPort(this)), m_pollTimer(new QTimer(this))
{
    connect(m_serialPort, SIGNAL(readyRead()), this, SLOT(slotGetNewSerialPortData()));
    connect(m_serialPort, SIGNAL(error(QSerialPort::SerialPortError)), this,
            SLOT(slotSerialPortError(QSerialPort::SerialPortError)));
    connect(m_pollTimer, SIGNAL(timeout()), this, SLOT(slotTimerCheckForNewSerialPorts()));
    m_pollTimer->start(PollIntervalMs);
}

SerialConnection::~SerialConnection()
{
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
    deliverChunks(); // what arrived before the close is heard before it
    diagnostics::out("SerialConnection::closeSerialPort()");
    if (!m_connected)
        return;

    m_connected = false;
    if (m_serialPort->isOpen()) {
        diagnostics::out("<<< close()");
        m_serialPort->close();
        diagnostics::out("<<< serial interface closed");
    } else {
        diagnostics::out("<<< serial interface was not open");
    }
    emit signalPortConnectionChanged(false);
}

bool SerialConnection::isOpen() const
{
    return m_serialPort->isOpen();
}

SerialConnection::Opening SerialConnection::lastOpening() const
{
    return m_lastOpening;
}

void SerialConnection::writeSerialPortData(const QByteArray &data)
{
    if (!m_serialPort->isOpen()) {
        diagnostics::out("<<< ERROR writeData: serial port not open\n");
        return;
    }
    m_serialPort->write(data);
    m_serialPort->flush();
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

void SerialConnection::deliverChunks()
{
    while (!m_chunks.isEmpty())
        emit signalNewSerialPortData(m_chunks.takeFirst());
}

void SerialConnection::slotTimerCheckForNewSerialPorts()
{
    if (m_connected)
        return;

    QStringList ports;
    const QList<QSerialPortInfo> available = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo &info : available)
        ports.append(info.portName());
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

bool SerialConnection::isHungUp() const
{
#ifdef Q_OS_UNIX
    if (!m_serialPort->isOpen())
        return false;
    pollfd descriptor{};
    descriptor.fd = m_serialPort->handle();
    return poll(&descriptor, 1, 0) > 0 && (descriptor.revents & POLLHUP);
#else
    return false;
#endif
}

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
    const QByteArray path = QFile::encodeName(m_portName.startsWith(QLatin1Char('/'))
                                                  ? m_portName
                                                  : QStringLiteral("/dev/") + m_portName);
    if (faccessat(AT_FDCWD, path.constData(), R_OK | W_OK, AT_EACCESS) != 0)
        return Opening::NotPermitted;
#endif
    return Opening::Busy;
}
