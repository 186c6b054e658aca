#include "diagnostics/StandardStreams.h"

#include "diagnostics/unwaited.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <utility>

using diagnostics::Stream;

StandardStreams &StandardStreams::instance()
{
    // Never taken down: whatever ends after it may still have something to say.
    static StandardStreams *streams = [] {
        std::atexit([] { instance().flush(); });
        return new StandardStreams;
    }();
    return *streams;
}

void StandardStreams::write(Stream stream, const QByteArray &text)
{
    const std::lock_guard<std::recursive_mutex> lock(m_mutex);
    std::fflush(stream == Stream::Out ? stdout : stderr); // what the program printed before
    tellLosses(stream);
    append(stream, text, 1);
    drain();
    if (!m_texts.empty())
        drainLater();
}

void StandardStreams::flush()
{
    constexpr int pauseMs = 10;
    constexpr int patienceMs = 2500; // altogether: a reader may be slow without end
    const std::lock_guard<std::recursive_mutex> lock(m_mutex);
    drain();
    for (const QDeadlineTimer end(patienceMs); !m_texts.empty() && !end.hasExpired(); drain())
        QThread::msleep(pauseMs);
}

StandardStreams::Target &StandardStreams::target(Stream stream)
{
    return stream == Stream::Out ? m_out : m_err;
}

void StandardStreams::append(Stream stream, const QByteArray &bytes, int messages)
{
    Target &end = target(stream);
    if (bytes.isEmpty())
        return;
    if (end.waiting > 0 && end.waiting + bytes.size() > Room) {
        end.lost += messages;
        return;
    }
    m_texts.push_back({stream, bytes, messages});
    end.waiting += bytes.size();
    end.lastByte = bytes.back();
}

void StandardStreams::tellLosses(Stream stream)
{
    Target &end = target(stream);
    if (end.lost == 0)
        return;
    const int lost = std::exchange(end.lost, 0);
    const QByteArray line =
        "<<< " + QByteArray::number(lost) + " messages of this stream are lost\n";
    append(stream, end.lastByte == '\n' ? line : '\n' + line, lost);
}

/// Writes what is taken at once. Where everything is out again after losses, tells of them.
void StandardStreams::drain()
{
    while (writeTexts()) {
        for (const Stream stream : {Stream::Out, Stream::Err})
            if (!target(stream).failed)
                tellLosses(stream);
        if (m_texts.empty())
            return;
    }
}

/// False if some had to stay.
bool StandardStreams::writeTexts()
{
    const Target *stuck = nullptr;
    for (auto text = m_texts.begin(); text != m_texts.end();) {
        const Target &end = target(text->stream);
        if (stuck != &end && writeText(*text)) {
            text = m_texts.erase(text);
            continue;
        }
        const Target &other = &end == &m_out ? m_err : m_out;
        if (stuck == &other || other.waiting == 0 ||
            (!stuck && unwaited::areSame(m_out.descriptor, m_err.descriptor)))
            return false;
        stuck = &end;
        ++text;
    }
    return m_texts.empty();
}

/// False if a part of it has to wait.
bool StandardStreams::writeText(Text &text)
{
    Target &end = target(text.stream);
    while (!text.bytes.isEmpty()) {
        const qint64 written =
            unwaited::write(end.descriptor, text.bytes.constData(), text.bytes.size());
        if (written == 0)
            return false;
        end.failed = written == unwaited::Full;
        if (written < 0) {
            if (end.failed)
                end.lost += text.messages;
            end.waiting -= text.bytes.size();
            end.lastByte = end.lastWritten;
            return true;
        }
        end.waiting -= int(written);
        end.lastWritten = text.bytes.at(int(written) - 1);
        text.bytes.remove(0, int(written));
    }
    return true;
}

void StandardStreams::drainLater()
{
    constexpr int pauseMs = 50;
    QCoreApplication *application = QCoreApplication::instance();
    if (!application || m_drainer == application)
        return;
    m_drainer = application;
    const auto drainAgain = [this] {
        const std::lock_guard<std::recursive_mutex> lock(m_mutex);
        m_drainer = nullptr;
        drain();
        if (!m_texts.empty())
            drainLater();
    };
    // By an event: while the application is being built it knows no timers yet, and would say so.
    QMetaObject::invokeMethod(
        application,
        [application, drainAgain] { QTimer::singleShot(pauseMs, application, drainAgain); },
        Qt::QueuedConnection);
}
