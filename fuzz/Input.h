#pragma once

#include <QByteArray>
#include <QtEndian>

#include <algorithm>
#include <cstddef>
#include <cstdint>

/// Called by libFuzzer, or by replay.cpp, with one input.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, std::size_t size);

/// Reads an input from its front; beyond its end everything is zero or empty.
class Input
{
public:
    Input(const uint8_t *bytes, std::size_t size)
        : m_next(reinterpret_cast<const char *>(bytes)), m_left(static_cast<int>(size))
    {
    }

    bool atEnd() const { return m_left == 0; }

    /// At most `size` bytes.
    QByteArray bytes(int size)
    {
        size = std::min(size, m_left);
        const QByteArray taken(m_next, size);
        m_next += size;
        m_left -= size;
        return taken;
    }
    QByteArray rest() { return bytes(m_left); }

    /// A little-endian number.
    template <class T>
    T number()
    {
        QByteArray taken = bytes(sizeof(T));
        taken.append(QByteArray(static_cast<int>(sizeof(T)) - taken.size(), '\0'));
        return qFromLittleEndian<T>(taken.constData());
    }

private:
    const char *m_next;
    int m_left;
};
