#include "link/FrameParser.h"

#include "diagnostics/diagnostics.h"
#include "link/CRCService.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>

// Offsets count from the length field: the magic is neither stored nor covered by the CRC.
static constexpr std::size_t MagicSize = 4;
static constexpr uint32_t LengthFieldSize = 4;
static constexpr uint32_t PartNumberOffset = 4;
static constexpr uint32_t PartCountOffset = 6;
static constexpr uint32_t CommandOffset = 8;
static constexpr uint32_t PayloadOffset = 12;
static constexpr uint32_t CrcSize = 4;
static constexpr uint32_t MinimumCompleteLength = PayloadOffset + CrcSize;

static constexpr uint32_t MaximumLength = 1024;
static constexpr uint32_t BodyLimit = 0x3FFFF; // no body byte is stored at or beyond this index
static constexpr uint32_t ReassemblyLimit = 102400;

inline std::size_t FrameParser::bodyMissing() const
{
    // The trailer is stored at index m_length; a length below 4 has been passed before the body
    // began, so that such a frame goes on until the buffer is full.
    return (m_length < LengthFieldSize ? BodyLimit : m_length + 1) - m_count;
}

inline void FrameParser::storeBody(const uint8_t *bytes, std::size_t size)
{
    if (size == 1)
        m_buffer[m_count] = *bytes;
    else
        std::memcpy(m_buffer.data() + m_count, bytes, size);
    m_count += static_cast<uint32_t>(size);
}

void FrameParser::feed(const QByteArray &bytes, const Handler &handler)
{
    const auto *begin = reinterpret_cast<const uint8_t *>(bytes.constData());
    const auto size = static_cast<std::size_t>(bytes.size());
    // Bytes amid a frame only have to be stored. None can be waiting before them: handlers are
    // called between frames, and the first feed() from there takes what was waiting.
    if (m_state == State::Body && size < bodyMissing())
        storeBody(begin, size);
    else
        enqueue({begin, begin + size, handler, m_latest});
}

bool FrameParser::hasWaiting() const
{
    for (const Chunk *chunk = m_latest; chunk; chunk = chunk->earlier)
        if (chunk->next != chunk->end)
            return true;
    return false;
}

void FrameParser::takeWaiting()
{
    if (m_latest)
        drain(*m_latest);
}

void FrameParser::dropWaiting()
{
    for (Chunk *chunk = m_latest; chunk; chunk = chunk->earlier)
        chunk->next = chunk->end;
}

void FrameParser::enqueue(Chunk chunk)
{
    m_latest = &chunk;
    drain(chunk);
    m_latest = chunk.earlier;
}

void FrameParser::drain(Chunk &chunk)
{
    if (chunk.earlier)
        drain(*chunk.earlier);
    while (chunk.next != chunk.end)
        step(chunk);
}

void FrameParser::step(Chunk &chunk)
{
    switch (m_state) {
    case State::Magic0:
        hunt(chunk);
        return;
    case State::Magic1: {
        const uint8_t byte = *chunk.next++;
        if (byte != 'K')
            m_state = byte == 'O' ? State::Magic2 : State::Magic0;
        return;
    }
    case State::Magic2:
        m_state = *chunk.next++ == 'V' ? State::Magic3 : State::Magic0;
        return;
    case State::Magic3:
        m_state = *chunk.next++ == 'O' ? State::Length : State::Magic0;
        return;
    case State::Length:
        takeLength(chunk);
        return;
    case State::Body:
        takeBody(chunk);
        return;
    case State::ResetPending:
        ++chunk.next;
        restart();
        m_reassembly.clear();
        diagnostics::out("ERROR: state machine reset");
        return;
    }
    ++chunk.next;
    diagnostics::out("<<< ERROR: state machine error");
}

void FrameParser::hunt(Chunk &chunk)
{
    // Usually the next frame follows at once and lies here with its whole magic.
    if (chunk.available() >= MagicSize && std::memcmp(chunk.next, "KOVO", MagicSize) == 0) {
        chunk.next += MagicSize;
        m_state = State::Length;
        if (chunk.available() > 0)
            takeLength(chunk);
        return;
    }
    const void *found = std::memchr(chunk.next, 'K', chunk.available());
    if (!found) {
        chunk.next = chunk.end;
        return;
    }
    chunk.next = static_cast<const uint8_t *>(found) + 1;
    m_state = State::Magic1;
}

void FrameParser::takeLength(Chunk &chunk)
{
    const uint8_t *frame = chunk.next;
    const std::size_t available = chunk.available();
    const bool whole = m_count == 0 && available >= LengthFieldSize;
    if (whole) {
        std::memcpy(m_buffer.data(), frame, LengthFieldSize);
        m_count = LengthFieldSize;
        chunk.next += LengthFieldSize;
    } else {
        m_buffer[m_count++] = *chunk.next++;
        if (m_count < LengthFieldSize)
            return;
    }

    m_length = qFromBigEndian<quint32>(m_buffer.data());
    if (m_length > MaximumLength) {
        diagnostics::out("--Reset parser");
        restart();
        return;
    }
    m_state = State::Body;

    // A frame that lies whole in the chunk is used where it is. It need not be stored: no shorter
    // frame with a fitting CRC gets to read what an earlier one left in the buffer.
    if (whole && m_length >= MinimumCompleteLength && available > m_length) {
        chunk.next = frame + m_length + 1;
        finishFrame(frame, chunk.handler);
    } else if (chunk.available() > 0) {
        takeBody(chunk);
    }
}

void FrameParser::takeBody(Chunk &chunk)
{
    if (m_count >= BodyLimit) {
        ++chunk.next;
        diagnostics::out("Buffer overun detected");
        m_state = State::ResetPending;
        return;
    }

    const std::size_t size = std::min(chunk.available(), bodyMissing());
    storeBody(chunk.next, size);
    chunk.next += size;
    if (m_count == m_length + 1)
        finishFrame(m_buffer.data(), chunk.handler);
}

void FrameParser::finishFrame(const uint8_t *frame, const Handler &handler)
{
    const uint32_t crcOffset = m_length - CrcSize;
    const auto expectedCrc = qFromBigEndian<quint32>(frame + crcOffset);
    if (!CRCService(frame, crcOffset, expectedCrc, CRCService::Verify).isValid()) {
        diagnostics::out("kovoPacketManager::slotPacketStateMachine() CRC invalid");
        restart();
        const QVector<uint8_t> collected = m_reassembly; // the handler may feed more parts
        handler(COMIO_CMD_CRC_ERROR, collected);
        return;
    }

    const int collected = m_reassembly.size();
    if (static_cast<uint32_t>(collected) + m_length >= ReassemblyLimit) {
        m_state = State::ResetPending;
        return;
    }
    if (crcOffset > PayloadOffset) {
        const uint32_t payloadSize = crcOffset - PayloadOffset;
        m_reassembly.resize(collected + static_cast<int>(payloadSize));
        std::memcpy(m_reassembly.data() + collected, frame + PayloadOffset, payloadSize);
    }

    const auto partNumber = qFromBigEndian<quint16>(frame + PartNumberOffset);
    const auto partCount = qFromBigEndian<quint16>(frame + PartCountOffset);
    const auto command = qFromBigEndian<quint32>(frame + CommandOffset);
    restart();
    if (partNumber != partCount)
        return;

    QVector<uint8_t> message;
    message.swap(m_reassembly);
    handler(static_cast<ComioInterfaceCommand_TypeDef>(command), message);

    // Nobody kept the message: its memory serves the next one.
    if (message.isDetached() && m_reassembly.capacity() == 0) {
        message.resize(0);
        m_reassembly.swap(message);
    }
}

void FrameParser::restart()
{
    m_state = State::Magic0;
    m_count = 0;
    m_length = 0;
}
