#include "simulator/FrameLog.h"

#include "simulator/CommandNames.h"

#include "diagnostics/StandardStreams.h"

void FrameLog::request(quint32 command, int size, const QString &note) const
{
    const QString text = QStringLiteral("<- %1, %2 bytes").arg(requestName(command)).arg(size);
    line(note.isEmpty() ? text : text + QStringLiteral(": ") + note);
}

void FrameLog::answer(quint32 command, int size) const
{
    line(QStringLiteral("-> %1, %2 bytes").arg(answerName(command)).arg(size));
}

void FrameLog::line(const QString &text) const
{
    if (!m_enabled)
        return;
    StandardStreams::instance().write(diagnostics::Stream::Err, text.toLocal8Bit() + '\n');
}
