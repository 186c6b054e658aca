#include "diagnostics/diagnostics.h"

#include <cstdio>

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
    std::FILE *file = stream == Stream::Out ? stdout : stderr;
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), file);
    std::fflush(file);
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

void setSink(Sink sink)
{
    currentSink() = std::move(sink);
}

} // namespace diagnostics
