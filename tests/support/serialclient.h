#pragma once

#include "support/wire.h"

#include <QSerialPort>
#include <QtTest>

/// A client that talks to the camera as any program does: through a serial port.
class Client
{
public:
    bool open(const QString &path)
    {
        m_stream.clear();
        m_port.setPortName(path);
        m_port.setBaudRate(115200);
        return m_port.open(QIODevice::ReadWrite);
    }
    void close() { m_port.close(); }

    void send(const QByteArray &bytes)
    {
        m_port.write(bytes);
        m_port.flush();
    }

    /// The next message; command 0xDEAD if none comes.
    wire::Message receive(int timeout = 10000)
    {
        std::optional<wire::Message> message;
        const bool arrived = QTest::qWaitFor(
            [&] {
                m_stream += m_port.readAll();
                message = wire::take(m_stream);
                return message.has_value();
            },
            timeout);
        return arrived ? *message : wire::Message{0xDEAD, {}};
    }

    wire::Message ask(quint32 command, const QByteArray &payload = {})
    {
        send(wire::frame(command, payload));
        return receive();
    }

    QSerialPort &port() { return m_port; }

private:
    QSerialPort m_port;
    QByteArray m_stream;
};
