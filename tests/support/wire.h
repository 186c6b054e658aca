#pragma once

#include <QByteArray>
#include <QtEndian>

#include <optional>

/// The bytes of the line, built and taken apart here a second time, bit by bit, so that a test does
/// not check the code with itself.
namespace wire {

inline quint32 blockCrc(const QByteArray &bytes)
{
    quint32 crc = 0xFFFFFFFF;
    for (int i = 0; i + 3 < bytes.size(); i += 4) {
        crc ^= qFromLittleEndian<quint32>(bytes.constData() + i);
        for (int bit = 0; bit < 32; ++bit)
            crc = (crc & 0x80000000U) ? (crc << 1) ^ 0x04C11DB7U : crc << 1;
    }
    return crc;
}

/// The checksum at the end of a configuration record.
inline quint16 recordCrc(const QByteArray &bytes)
{
    unsigned crc = 0;
    for (const char c : bytes) {
        crc ^= static_cast<uchar>(c);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) ? (crc >> 1) ^ 0xC599 : crc >> 1;
    }
    return static_cast<quint16>(crc);
}

template <class T>
QByteArray bigEndian(T value)
{
    QByteArray bytes(sizeof value, '\0');
    qToBigEndian<T>(value, bytes.data());
    return bytes;
}

template <class T>
QByteArray littleEndian(T value)
{
    QByteArray bytes(sizeof value, '\0');
    qToLittleEndian<T>(value, bytes.data());
    return bytes;
}

inline QByteArray frame(quint32 command, QByteArray payload = {}, quint16 part = 1,
                        quint16 parts = 1)
{
    payload.append(QByteArray((4 - payload.size() % 4) % 4, '\0'));
    const QByteArray body = bigEndian<quint32>(quint32(payload.size()) + 16) + bigEndian(part) +
                            bigEndian(parts) + bigEndian(command) + payload;
    return "KOVO" + body + bigEndian(blockCrc(body)) + '\0';
}

struct Message
{
    quint32 command;
    QByteArray payload; ///< padding included
};

/// Takes the first whole frame out of `stream`; nothing while none is complete. Bytes before the
/// magic and frames with a wrong checksum are dropped.
inline std::optional<Message> take(QByteArray &stream)
{
    for (;;) {
        const int start = stream.indexOf("KOVO");
        if (start < 0)
            return {};
        stream.remove(0, start);
        if (stream.size() < 8)
            return {};
        const auto length = qFromBigEndian<quint32>(stream.constData() + 4);
        if (length < 16 || length > 1024) {
            stream.remove(0, 4);
            continue;
        }
        const int size = int(length) + 5;
        if (stream.size() < size)
            return {};
        const QByteArray body = stream.mid(4, int(length) - 4);
        const auto crc = qFromBigEndian<quint32>(stream.constData() + length);
        if (crc != blockCrc(body)) {
            stream.remove(0, 4);
            continue;
        }
        stream.remove(0, size);
        return Message{qFromBigEndian<quint32>(body.constData() + 8), body.mid(12)};
    }
}

} // namespace wire
