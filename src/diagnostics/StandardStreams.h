#pragma once

#include "diagnostics/diagnostics.h"

#include <QByteArray>

#include <deque>
#include <mutex>

class QCoreApplication;

/// The program's standard output and standard error, written without waiting for whoever reads
/// them. What a pipe, a socket or a terminal does not take at once waits here, in the order of both
/// streams, and is written as soon as it can be. What finds no room here, and what a full disk does
/// not take, is lost and told of by one line in its place; what nobody can read any more is
/// dropped. May be used by all threads.
class StandardStreams
{
public:
    static StandardStreams &instance();

    void write(diagnostics::Stream stream, const QByteArray &text);

    /// Waits for what is not written yet, but gives up after two and a half seconds.
    void flush();

private:
    static constexpr int Room = 1 << 20; ///< bytes of one stream that may wait

    struct Text
    {
        diagnostics::Stream stream;
        QByteArray bytes; ///< not written yet
        int messages;     ///< that are lost with it
    };

    struct Target
    {
        int descriptor;
        int waiting = 0;     ///< bytes
        int lost = 0;        ///< messages that have not been told of
        bool failed = false; ///< the last attempt
        char lastWritten = '\n';
        char lastByte = '\n'; ///< once everything is written
    };

    StandardStreams() = default;

    Target &target(diagnostics::Stream stream);
    void append(diagnostics::Stream stream, const QByteArray &bytes, int messages);
    void tellLosses(diagnostics::Stream stream);
    void drain();
    bool writeTexts();
    bool writeText(Text &text);
    void drainLater();

    std::recursive_mutex m_mutex;
    std::deque<Text> m_texts;
    Target m_out{1};
    Target m_err{2};
    const QCoreApplication *m_drainer = nullptr; ///< will drain from its event loop
};
