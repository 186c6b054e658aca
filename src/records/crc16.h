#pragma once

#include <QtGlobal>

#include <array>

namespace crc16_detail {

constexpr quint16 polynomial = 0xC599; // right-shifting form

constexpr std::array<quint16, 256> makeTable()
{
    std::array<quint16, 256> table{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        unsigned crc = byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) ? (crc >> 1) ^ polynomial : crc >> 1;
        table[byte] = static_cast<quint16>(crc);
    }
    return table;
}

inline constexpr std::array<quint16, 256> table = makeTable();

} // namespace crc16_detail

/// The CRC-16 that ends a configuration record: least significant bit first, start 0, no final XOR;
/// 0 for a length of 0 or less. "123456789" gives 0x074A.
constexpr quint16 crc16(const uchar *data, int length)
{
    quint16 crc = 0;
    for (int i = 0; i < length; ++i)
        crc = static_cast<quint16>((crc >> 8) ^ crc16_detail::table[(crc ^ data[i]) & 0xFF]);
    return crc;
}
