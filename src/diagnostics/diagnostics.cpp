#include "diagnostics/diagnostics.h"

#include "diagnostics/StandardStreams.h"

namespace diagnostics {

static Sink &currentSink()
{
    static Sink sink;
    return sink;
}

static void write(Stream stream, const QString &text)
{
    if (currentSink()) {
        currentSink()(stream, text);
        return;
    }
    StandardStreams::instance().write(stream, text.toUtf8());
}

void out(const QString &line)
{
    write(Stream::Out, line + QLatin1Char('\n'));
}

void outUnterminated(const QString &text)
{
    write(Stream::Out, text);
}

void err(const QString &line)
{
    write(Stream::Err, line + QLatin1Char('\n'));
}

void flush()
{
    StandardStreams::instance().flush();
}

void takeToolkitMessages()
{
    qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext &context, const QString &text) {
            const QString message = qFormatLogMessage(type, context, text);
            if (!message.isNull())
                StandardStreams::instance().write(Stream::Err, message.toLocal8Bit() + '\n');
        });
}

void setSink(Sink sink)
{
    currentSink() = std::move(sink);
}

} // namespace diagnostics
