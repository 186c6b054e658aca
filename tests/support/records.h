#pragma once

#include <QByteArray>
#include <QVector>
#include <QtEndian>

/// Builds configuration records byte by byte, independently of the program's own structs.
namespace records {

constexpr quint32 keyBlend = 0xC92A6CE6;
constexpr quint32 keyBlendZoom = 0xA0AF139E;
constexpr quint32 key20 = 0xA0AF139F;

/// CRC-16 of the records, straight from its definition: bits least significant first, polynomial
/// x^16+... in the reflected form 0xC599, start 0.
inline quint16 crc16(const QByteArray &bytes)
{
    quint16 crc = 0;
    for (const char c : bytes)
        for (int bit = 0; bit < 8; ++bit) {
            const int in = (static_cast<uchar>(c) >> bit) & 1;
            const int feedback = (crc & 1) ^ in;
            crc = static_cast<quint16>(crc >> 1);
            if (feedback)
                crc = static_cast<quint16>(crc ^ 0xC599);
        }
    return crc;
}

template <class T>
void put(QByteArray &record, int offset, T number)
{
    qToLittleEndian<T>(number, record.data() + offset);
}

template <class T>
T get(const QByteArray &record, int offset)
{
    return qFromLittleEndian<T>(record.constData() + offset);
}

/// Writes the CRC over everything before it into the last two bytes.
inline QByteArray sealed(QByteArray record)
{
    put<quint16>(record, record.size() - 2, crc16(record.left(record.size() - 2)));
    return record;
}

inline QByteArray unsealed(quint32 key, quint32 dataLength, quint32 version, int size)
{
    QByteArray record(size, '\0');
    put<quint32>(record, 0, key);
    put<quint32>(record, 4, dataLength);
    put<quint32>(record, 8, version);
    return record;
}

/// A Blend record whose body is all zeros, not sealed yet.
inline QByteArray blend()
{
    return unsealed(0xC92A6CE6, 193, 20181212, 207);
}

/// A Blend Zoom record whose body is all zeros, not sealed yet.
inline QByteArray blendZoom()
{
    return unsealed(0xA0AF139E, 209, 20190805, 223);
}

inline QVector<unsigned char> payload(const QByteArray &bytes)
{
    return QVector<unsigned char>(bytes.begin(), bytes.end());
}

} // namespace records
