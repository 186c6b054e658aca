#pragma once

#include "link/ComioInterfaceCommand.h"

#include <QByteArray>
#include <QVector>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

/// Reassembles messages from the byte stream of the line, whatever its chunks. A plain value class:
/// the tool has one instance in kovoPacketManager, a simulated camera or a fuzzer its own.
class FrameParser
{
public:
    /// Called with each complete message: its command and its payload, padding included. It may
    /// feed the parser again (a modal box runs the event loop): the parser is then already ready
    /// for the next byte.
    using Handler = std::function<void(ComioInterfaceCommand_TypeDef, const QVector<uint8_t> &)>;

    /// Takes the next bytes of the stream, which must stay as they are until the call returns.
    /// Called from within a handler it first finishes the bytes that were waiting (their messages
    /// go to the handler they came with), then its own, so that none is parsed twice or out of
    /// order.
    void feed(const QByteArray &bytes, const Handler &handler);

    /// True while bytes of an unfinished call of feed() wait for its handler to return.
    bool hasWaiting() const;
    /// Takes the bytes that wait, now: for an event loop that a handler runs.
    void takeWaiting();
    /// Forgets the bytes that wait, as if they had never been fed.
    void dropWaiting();

private:
    enum class State { Magic0, Magic1, Magic2, Magic3, Length, Body, ResetPending };

    // Bytes of one unfinished call of feed(), in the order of arrival behind those of `earlier`.
    struct Chunk
    {
        const uint8_t *next;
        const uint8_t *end;
        const Handler &handler;
        Chunk *earlier;

        std::size_t available() const { return static_cast<std::size_t>(end - next); }
    };

    void enqueue(Chunk chunk);
    void drain(Chunk &chunk);
    void step(Chunk &chunk);
    void hunt(Chunk &chunk);
    void takeLength(Chunk &chunk);
    void takeBody(Chunk &chunk);
    std::size_t bodyMissing() const;
    void storeBody(const uint8_t *bytes, std::size_t size);
    void finishFrame(const uint8_t *frame, const Handler &handler);
    void restart();

    static constexpr std::size_t BufferSize = 0x40000;

    State m_state = State::Magic0;
    uint32_t m_count = 0;
    uint32_t m_length = 0;
    std::vector<uint8_t> m_buffer = std::vector<uint8_t>(BufferSize);
    QVector<uint8_t> m_reassembly;
    Chunk *m_latest = nullptr;
};
