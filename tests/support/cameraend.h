#pragma once

#include "support/pseudoterminal.h"
#include "support/referenceframes.h"

#include <QVector>
#include <QtEndian>

/// The camera's end of the line, played by a test byte for byte: it decodes what the tool sent and
/// answers what the test says.
class CameraEnd
{
public:
    struct Frame
    {
        quint32 command;
        QByteArray payload; ///< with its padding
    };

    QString path() const { return m_terminal.path(); }

    /// The frames received so far. Bytes that are no frame exactly as the camera expects it end
    /// the list with the command 0xBAD.
    QVector<Frame> frames()
    {
        QVector<Frame> frames;
        const QByteArray &bytes = m_terminal.received();
        for (int at = 0; at < bytes.size();) {
            const int length = bytes.size() - at < 8 ? -1 : int(number(bytes, at + 4));
            if (length < 16 || at + length + 5 > bytes.size())
                return frames; // not complete yet
            const QByteArray frame = bytes.mid(at, length + 5);
            const QByteArray payload = frame.mid(16, length - 16);
            const quint32 command = number(frame, 12);
            if (frame != reference::frame(command, payload)) {
                frames.append({0xBAD, frame});
                return frames;
            }
            frames.append({command, payload});
            at += frame.size();
        }
        return frames;
    }

    QVector<quint32> commands()
    {
        QVector<quint32> commands;
        for (const Frame &frame : frames())
            commands.append(frame.command);
        return commands;
    }

    /// How often `command` was received.
    int count(quint32 command) { return commands().count(command); }

    /// Payload of the last frame with `command`; null if there was none.
    QByteArray last(quint32 command)
    {
        QByteArray payload;
        for (const Frame &frame : frames())
            if (frame.command == command)
                payload = frame.payload;
        return payload;
    }

    const QByteArray &received() { return m_terminal.received(); }
    bool send(quint32 code, const QByteArray &payload = {})
    {
        return m_terminal.write(reference::frame(code, payload));
    }
    bool sendBytes(const QByteArray &bytes) { return m_terminal.write(bytes); }
    void hangUp() { m_terminal.hangUp(); }

    /// An identity reply: key, firmware date, serial number with its zero byte.
    static QByteArray identity(quint32 key, quint32 firmware = 20200101,
                               const QByteArray &serial = "1701234")
    {
        QByteArray payload(8, '\0');
        qToLittleEndian(key, payload.data());
        qToLittleEndian(firmware, payload.data() + 4);
        return payload + serial + '\0';
    }

private:
    static quint32 number(const QByteArray &bytes, int offset)
    {
        return qFromBigEndian<quint32>(bytes.constData() + offset);
    }

    PseudoTerminal m_terminal;
};
