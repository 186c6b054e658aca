// The line settings that the connection asks for. A pseudo-terminal keeps neither seven data bits
// nor a parity, and takes every speed; tcsetattr() below stands in for lines that differ.

#include "link/SerialConnection.h"

#include "support/captureddiagnostics.h"
#include "support/pseudoterminal.h"

#include <QSignalSpy>
#include <QtTest>

#include <cerrno>
#include <dlfcn.h>

static bool refuses115200 = false;

// The C library's function, seen by QSerialPort: it reports EINVAL for what the pseudo-terminal did
// not keep, where a USB port takes it.
extern "C" int tcsetattr(int descriptor, int actions, const termios *settings) noexcept
{
    using Function = int (*)(int, int, const termios *);
    static const auto original = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "tcsetattr"));
    if (refuses115200 && cfgetospeed(settings) == B115200) {
        errno = EINVAL;
        return -1;
    }
    const int result = original(descriptor, actions, settings);
    return result != 0 && errno == EINVAL ? 0 : result;
}

class tst_SerialConnectionSettings : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { refuses115200 = false; }

    void lineThatRefusesTheSpeedIsUsedAllTheSame()
    {
        PseudoTerminal line;
        SerialConnection connection(nullptr);
        connection.findChild<QSerialPort *>()->setStopBits(QSerialPort::TwoStop);
        QSignalSpy changed(&connection, &SerialConnection::signalPortConnectionChanged);
        QSignalSpy data(&connection, &SerialConnection::signalNewSerialPortData);
        CapturedDiagnostics diagnostics;
        refuses115200 = true;
        QVERIFY(connection.openSerialPort(line.path()));
        QCOMPARE(diagnostics.err(), QString("<<< Error: Setting baudrate to 115200 failed\n"));
        QCOMPARE(diagnostics.out(), QString("SerialConnection::slotSerialPortError(10)\n"));
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.at(0).at(0).toBool(), true);
        QVERIFY(connection.isOpen());
        // The settings after the speed are made as well.
        QCOMPARE(line.lineSettings().c_cflag & CSTOPB, tcflag_t(0));

        connection.writeSerialPortData("sent");
        QTRY_COMPARE(line.received(), QByteArray("sent"));
        QVERIFY(line.write("heard"));
        QTRY_VERIFY(!data.isEmpty());
        QCOMPARE(data.at(0).at(0).toByteArray(), QByteArray("heard"));
    }

    void portIsSetAfterItIsOpenWhateverItWasSetToBefore()
    {
        PseudoTerminal line;
        SerialConnection connection(nullptr);
        auto *port = connection.findChild<QSerialPort *>();
        port->setBaudRate(9600);
        port->setDataBits(QSerialPort::Data7);
        port->setParity(QSerialPort::EvenParity);
        port->setStopBits(QSerialPort::TwoStop);
        port->setFlowControl(QSerialPort::HardwareControl);
        QStringList whileOpen;
        QStringList whileClosed;
        const auto record = [&](const char *setting) {
            return [&, setting] { (port->isOpen() ? whileOpen : whileClosed) << setting; };
        };
        connect(port, &QSerialPort::baudRateChanged, this, record("speed"));
        connect(port, &QSerialPort::dataBitsChanged, this, record("data bits"));
        connect(port, &QSerialPort::parityChanged, this, record("parity"));
        connect(port, &QSerialPort::stopBitsChanged, this, record("stop bits"));
        connect(port, &QSerialPort::flowControlChanged, this, record("flow control"));

        CapturedDiagnostics diagnostics;
        QVERIFY(connection.openSerialPort(line.path()));
        QCOMPARE(whileOpen,
                 QStringList({"speed", "data bits", "parity", "stop bits", "flow control"}));
        QCOMPARE(whileClosed, QStringList());
        QCOMPARE(port->baudRate(QSerialPort::Input), 115200);
        QCOMPARE(port->baudRate(QSerialPort::Output), 115200);
        QCOMPARE(port->dataBits(), QSerialPort::Data8);
        QCOMPARE(port->parity(), QSerialPort::NoParity);
        QCOMPARE(port->stopBits(), QSerialPort::OneStop);
        QCOMPARE(port->flowControl(), QSerialPort::NoFlowControl);
        const termios settings = line.lineSettings();
        QCOMPARE(cfgetispeed(&settings), speed_t(B115200));
        QCOMPARE(cfgetospeed(&settings), speed_t(B115200));
        QCOMPARE(settings.c_cflag & CSIZE, tcflag_t(CS8));
        QCOMPARE(settings.c_cflag & (PARENB | CSTOPB | CRTSCTS), tcflag_t(0));
        QCOMPARE(settings.c_iflag & (IXON | IXOFF | IXANY), tcflag_t(0));
        QCOMPARE(diagnostics.out() + diagnostics.err(), QString());
    }

    void openingUnblocksThePort()
    {
        PseudoTerminal line;
        SerialConnection connection(nullptr);
        auto *port = connection.findChild<QSerialPort *>();
        QSignalSpy data(&connection, &SerialConnection::signalNewSerialPortData);
        port->blockSignals(true);
        QVERIFY(connection.openSerialPort(line.path()));
        QVERIFY(!port->signalsBlocked());
        QVERIFY(line.write("heard"));
        QTRY_COMPARE(data.size(), 1);
        QCOMPARE(data.at(0).at(0).toByteArray(), QByteArray("heard"));
    }
};

QTEST_GUILESS_MAIN(tst_SerialConnectionSettings)
#include "tst_serialconnection_settings.moc"
