#pragma once

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
    explicit SerialConnection(QObject *parent);
    ~SerialConnection() override;

    /// Opens the port (a name or an absolute path) with 115200 baud, 8N1, no flow control. False
    /// when a port is already open, the name is empty or the port cannot be opened.
    bool openSerialPort(QString portName);
    void closeSerialPort();
    bool isOpen() const;
    /// Writes one frame; dropped with a diagnostic line while no port is open.
    void writeSerialPortData(const QByteArray &data);

    void setPortName(const QString &portName);
    /// Devices that are offered beside those the system lists.
    void setExtraPorts(const QStringList &ports);

signals:
    void signalPortListChanged(QStringList portList);
    void signalNewSerialPortData(QByteArray data);
    void signalPortConnectionChanged(bool connected);

private slots:
    void slotGetNewSerialPortData();
    void slotTimerCheckForNewSerialPorts();
    void slotSerialPortError(QSerialPort::SerialPortError error);
};
