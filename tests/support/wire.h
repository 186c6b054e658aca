#pragma once

#include "support/referenceframes.h"

#include <QByteArray>
#include <QtEndian>

#include <optional>

/// The bytes of the line, built and taken apart without the program's code, so that a test does not
/// check it with itself.
namespace wire {

using reference::frame;

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
        if (length < 16 || length > 1024 || length % 4 != 0) {
            stream.remove(0, 4);
            continue;
        }
        const int size = int(length) + 5;
        if (stream.size() < size)
            return {};
        const QByteArray body = stream.mid(4, int(length) - 4);
        if (!stream.startsWith(reference::enclose(body).chopped(1))) {
            stream.remove(0, 4);
            continue;
        }
        stream.remove(0, size);
        return Message{qFromBigEndian<quint32>(body.constData() + 8), body.mid(12)};
    }
}

} // namespace wire
