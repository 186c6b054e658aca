#pragma once

#include "link/PortWatch.h"

#include <QObject>
#include <QSerialPort>
#include <QStringList>
#include <QTimer>

/// The one serial port over which the tool talks to the camera, and the list of ports to choose
/// from, which is polled every 500 ms while no port is open.
class SerialConnection : public QObject
{
    Q_OBJECT

public:
    /// How the last attempt to open a port ended.
    enum class Opening {
        NotTried,
        Succeeded,
        NotPermitted, ///< the user may not read and write the device
        Busy,         ///< another program holds it
        NotFound,     ///< no such device, or no longer
        NameTooLong,  ///< for the system, or the lock that keeps other programs from the port
        Failed,       ///< any other reason
    };

    explicit SerialConnection(QObject *parent);
    ~SerialConnection() override;

    /// Opens the port (a name or an absolute path) with 115200 baud, 8N1, no flow control. False
    /// when a port is already open, the name is empty or the port cannot be opened.
    bool openSerialPort(QString portName);
    /// Closes the port and announces it; then announces what had been read before. What the device
    /// does not take in a short time, at most 200 ms, is lost.
    void closeSerialPort();
    bool isOpen() const;
    Opening lastOpening() const;
    /// Writes one frame; dropped with a diagnostic line while no port is open. What the device does
    /// not take yet waits, up to MaximumWaiting bytes; a frame beyond is dropped with a line, too.
    /// False if the frame was dropped.
    bool writeSerialPortData(const QByteArray &data);
    static constexpr qint64 MaximumWaiting = 1 << 20;
    /// Forgets what was read and has not been announced yet.
    void dropReceived();

    void setPortName(const QString &portName);
    /// Devices that are offered beside those the system lists.
    void setExtraPorts(const QStringList &ports);

signals:
    void signalPortListChanged(QStringList portList);
    void signalNewSerialPortData(QByteArray data);
    void signalPortConnectionChanged(bool connected);
    /// True when the device has taken nothing for a second though bytes are waiting for it; false
    /// when it has taken them all, or the port is closed.
    void signalWriteStalled(bool stalled);

public slots:
    void slotGetNewSerialPortData();
    void slotTimerCheckForNewSerialPorts();
    void slotSerialPortError(QSerialPort::SerialPortError error);

private:
    // A line setting beside the text that names it.
    struct Setting
    {
        qint32 value;
        QString text;
    };

    void closeLine();
    bool isOutputWaiting() const;
    void deliverChunks();
    void flush();
    void watchWaitingBytes();
    void setWriteStalled(bool stalled);
    short lineEvents(short events) const;
    bool isHungUp() const;
    Opening reasonOfFailure() const;

    QString m_portName;
    Setting m_baudRate{QSerialPort::Baud115200, "115200"};
    Setting m_dataBits{QSerialPort::Data8, "8"};
    Setting m_parity{QSerialPort::NoParity, "0"};
    Setting m_stopBits{QSerialPort::OneStop, "1"};
    Setting m_flowControl{QSerialPort::NoFlowControl, "0"};
    QSerialPort *m_serialPort;
    QTimer *m_pollTimer;
    QTimer m_stallTimer; ///< runs while bytes wait, from when the device took some last
    bool m_writeStalled = false;
    bool m_connected = false;
    Opening m_lastOpening = Opening::NotTried;
    QList<QByteArray> m_chunks; ///< read, not announced yet
    PortWatch m_portWatch;
    QStringList m_systemPorts; ///< as last looked up
    QStringList m_knownPorts;
    QStringList m_extraPorts;
};
