#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <functional>
#include <vector>

/// A second, plain implementation of the line's framing to compare the fast one with: one bit and
/// one byte at a time, sharing no code with it.
namespace reference {

inline uint32_t crcOfWord(uint32_t crc, uint32_t word)
{
    crc ^= word;
    for (int bit = 0; bit < 32; ++bit)
        crc = (crc & 0x80000000U) != 0 ? (crc << 1) ^ 0x04C11DB7U : crc << 1;
    return crc;
}

/// CRC of `size` bytes (a multiple of 4) as little-endian words, starting from 0xFFFFFFFF.
inline uint32_t crc(const uint8_t *bytes, std::size_t size)
{
    uint32_t crc = 0xFFFFFFFFU;
    for (std::size_t i = 0; i < size; i += 4)
        crc = crcOfWord(crc, bytes[i] | uint32_t(bytes[i + 1]) << 8 | uint32_t(bytes[i + 2]) << 16 |
                                 uint32_t(bytes[i + 3]) << 24);
    return crc;
}

inline void appendBigEndian(QByteArray &bytes, uint32_t value, int size)
{
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
        bytes.append(static_cast<char>(value >> shift & 0xFF));
}

/// "KOVO", `region` and its CRC, the zero byte.
inline QByteArray enclose(const QByteArray &region)
{
    QByteArray frame = "KOVO" + region;
    appendBigEndian(frame,
                    crc(reinterpret_cast<const uint8_t *>(region.constData()),
                        static_cast<std::size_t>(region.size())),
                    4);
    frame.append('\0');
    return frame;
}

inline QByteArray frame(uint32_t command, QByteArray payload = {}, uint32_t part = 1,
                        uint32_t count = 1)
{
    while (payload.size() % 4 != 0)
        payload.append('\0');
    QByteArray region;
    appendBigEndian(region, static_cast<uint32_t>(payload.size()) + 16, 4);
    appendBigEndian(region, part, 2);
    appendBigEndian(region, count, 2);
    appendBigEndian(region, command, 4);
    return enclose(region + payload);
}

/// The receive state machine, state by state.
class Parser
{
public:
    std::function<void(const QString &)> line;
    std::function<void(uint32_t command, const QByteArray &payload)> message;

    void take(uint8_t byte)
    {
        switch (m_state) {
        case 0:
            m_state = byte == 'K' ? 1 : 0;
            break;
        case 1:
            m_state = byte == 'K' ? 1 : byte == 'O' ? 2 : 0;
            break;
        case 2:
            m_state = byte == 'V' ? 3 : 0;
            break;
        case 3:
            m_state = byte == 'O' ? 4 : 0;
            break;
        case 4:
            m_buffer[m_count++] = byte;
            m_length = m_length << 8 | byte;
            if (m_count == 4) {
                m_state = 5;
                if (m_length >= 1025) {
                    line("--Reset parser");
                    reset();
                }
            }
            break;
        case 5:
            takeBody(byte);
            break;
        case 6:
            reset();
            m_collected.clear();
            line("ERROR: state machine reset");
            break;
        }
    }

private:
    void takeBody(uint8_t byte)
    {
        if (m_count + 1 > 0x3FFFF) {
            line("Buffer overun detected");
            m_state = 6;
            return;
        }
        m_buffer[m_count] = byte;
        if (m_count != m_length) {
            ++m_count;
            return;
        }
        if (!crcFits()) {
            line("kovoPacketManager::slotPacketStateMachine() CRC invalid");
            message(1, m_collected);
            reset();
            return;
        }
        if (static_cast<uint32_t>(m_collected.size()) + m_length >= 102400) {
            m_state = 6;
            return;
        }
        for (uint32_t i = 12; i + 5 <= m_length; ++i)
            m_collected.append(static_cast<char>(m_buffer[i]));
        if (bigEndian(4, 2) == bigEndian(6, 2)) {
            message(bigEndian(8, 4), m_collected);
            m_collected.clear();
        }
        reset();
    }

    bool crcFits()
    {
        if (m_length % 4 != 0) {
            line("<<< Error CRCService: data has to be multiple of 4 bytes!");
            return false;
        }
        const bool fits = crc(m_buffer.data(), m_length - 4) == bigEndian(m_length - 4, 4);
        if (!fits)
            line("<<< ERROR crc service: data invalid");
        return fits;
    }

    uint32_t bigEndian(uint32_t index, uint32_t size) const
    {
        uint32_t value = 0;
        for (uint32_t i = index; i < index + size; ++i)
            value = value << 8 | m_buffer[i];
        return value;
    }

    void reset()
    {
        m_state = 0;
        m_count = 0;
        m_length = 0;
    }

    int m_state = 0;
    uint32_t m_count = 0;
    uint32_t m_length = 0;
    std::vector<uint8_t> m_buffer = std::vector<uint8_t>(0x40000);
    QByteArray m_collected;
};

} // namespace reference
