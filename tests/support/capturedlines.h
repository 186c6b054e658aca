#pragma once

#include "diagnostics/diagnostics.h"

#include <QStringList>

/// Collects, while it lives, what the program would write to its two streams.
class CapturedLines
{
public:
    CapturedLines()
    {
        diagnostics::setSink([this](diagnostics::Stream stream, const QString &text) {
            (stream == diagnostics::Stream::Out ? m_out : m_err) += text;
        });
    }
    ~CapturedLines() { diagnostics::setSink({}); }
    CapturedLines(const CapturedLines &) = delete;
    CapturedLines &operator=(const CapturedLines &) = delete;

    /// Text of a stream as written, line ends included.
    QString out() const { return m_out; }
    QString err() const { return m_err; }
    /// How often `line` was written as a whole line.
    int outCount(const QString &line) const { return count(m_out, line); }
    int errCount(const QString &line) const { return count(m_err, line); }
    void clear()
    {
        m_out.clear();
        m_err.clear();
    }

private:
    static int count(const QString &text, const QString &line)
    {
        return text.split(QLatin1Char('\n')).count(line);
    }

    QString m_out;
    QString m_err;
};
