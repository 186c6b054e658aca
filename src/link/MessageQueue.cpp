#include "link/MessageQueue.h"

#include "diagnostics/diagnostics.h"

bool MessageQueue::append(ComioInterfaceCommand_TypeDef command, const QVector<uint8_t> &payload)
{
    if (m_messages.size() >= MaximumCount || payload.size() > MaximumBytes - m_bytes) {
        if (!m_refusing)
            diagnostics::err(QStringLiteral("<<< %1 messages are waiting for a box to be answered: "
                                            "what arrives now is lost")
                                 .arg(m_messages.size()));
        m_refusing = true;
        return false;
    }
    m_bytes += payload.size();
    m_messages.enqueue({command, payload});
    return true;
}

MessageQueue::Message MessageQueue::takeFirst()
{
    Message message = m_messages.dequeue();
    m_bytes -= message.payload.size();
    if (m_messages.isEmpty())
        m_refusing = false;
    return message;
}
