#include "link/MessageQueue.h"

#include "diagnostics/diagnostics.h"

bool MessageQueue::append(const Message &message)
{
    if (m_messages.size() >= MaximumCount || message.payload.size() > MaximumBytes - m_bytes) {
        if (!m_refusing)
            diagnostics::err(QStringLiteral("<<< %1 messages are waiting for a box to be answered: "
                                            "what arrives now is lost")
                                 .arg(m_messages.size()));
        m_refusing = true;
        return false;
    }
    m_bytes += message.payload.size();
    m_messages.enqueue(message);
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

void MessageQueue::dropRead(quint32 read)
{
    QQueue<Message> kept;
    for (const Message &message : qAsConst(m_messages)) {
        if (message.read != read)
            kept.enqueue(message);
        else
            m_bytes -= message.payload.size();
    }
    m_messages.swap(kept);
    if (m_messages.isEmpty())
        m_refusing = false;
}
