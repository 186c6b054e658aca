#pragma once

#include <QtEndian>

/// A number of a packed record: its bytes, least significant first. Its alignment is 1, so a struct
/// of such fields has no padding and may lie anywhere in a buffer.
template <class T>
class LittleEndian
{
public:
    LittleEndian() = default;
    LittleEndian(T value) { *this = value; }

    operator T() const { return qFromLittleEndian<T>(m_bytes); }
    LittleEndian &operator=(T value)
    {
        qToLittleEndian<T>(value, m_bytes);
        return *this;
    }

private:
    uchar m_bytes[sizeof(T)];
};

using le_u16 = LittleEndian<quint16>;
using le_i16 = LittleEndian<qint16>;
using le_u32 = LittleEndian<quint32>;
using le_i32 = LittleEndian<qint32>;
