#pragma once

#include "link/ComioInterfaceCommand.h"

#include <QQueue>
#include <QVector>

/// Received messages that cannot be handled yet, in the order of their arrival. Bounded: what does
/// not fit is refused, and one line on standard error says so until there is room for all again.
class MessageQueue
{
public:
    static constexpr int MaximumCount = 65536;
    static constexpr int MaximumBytes = 16 * 1024 * 1024; ///< of all payloads together

    struct Message
    {
        ComioInterfaceCommand_TypeDef command;
        QVector<uint8_t> payload;
        quint32 read = 0;     ///< number of the read that it came with
        bool refusal = false; ///< of the command that was outstanding when it arrived
    };

    bool isEmpty() const { return m_messages.isEmpty(); }
    /// False if the message was refused.
    bool append(const Message &message);
    /// The one that waits longest; there must be one.
    Message takeFirst();
    /// Forgets the messages of one read.
    void dropRead(quint32 read);

private:
    QQueue<Message> m_messages;
    int m_bytes = 0;
    bool m_refusing = false;
};
