#pragma once

#include <QString>

#include <functional>

/// One-line messages for whoever watches the program's streams. Each call writes and flushes, so
/// that lines of both streams keep their order of time. None waits for the reader of a stream: what
/// is not taken at once is written later (StandardStreams.h).
namespace diagnostics {

enum class Stream { Out, Err };

/// Writes `line` and a line end to standard output.
void out(const QString &line);
/// Writes `text` to standard output as it stands, without a line end.
void outUnterminated(const QString &text);
/// Writes `line` and a line end to standard error.
void err(const QString &line);

/// Waits for what has not been taken yet; gives up after two and a half seconds. A normal end of
/// the program does so, too.
void flush();

/// Writes the toolkit's messages in this way, too; their text stays as it is.
void takeToolkitMessages();

/// Receives the text of every call above instead of the streams (line end included); an empty sink
/// restores the streams. For programs that need their standard output for themselves.
using Sink = std::function<void(Stream, const QString &text)>;
void setSink(Sink sink);

} // namespace diagnostics
