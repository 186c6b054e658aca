#pragma once

#include "link/ComioInterfaceCommand.h"

#include <QByteArray>
#include <QVector>

#include <array>
#include <functional>

/// Reassembles messages from the byte stream of the line, whatever its chunks. A plain value class:
/// the tool has one instance in kovoPacketManager, a simulated camera or a fuzzer its own.
class FrameParser
{
public:
    /// Called with each complete message: its command and its payload, padding included. It may
    /// feed the parser again (a modal box runs the event loop): the parser is then already ready
    /// for the next byte.
    using Handler = std::function<void(ComioInterfaceCommand_TypeDef, const QVector<uint8_t> &)>;

    /// Takes the next bytes of the stream. Called from within a handler it first finishes the
    /// bytes that were waiting, then its own, so that none is parsed twice or out of order.
    void feed(const QByteArray &bytes, const Handler &handler);
};
