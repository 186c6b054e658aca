#pragma once

#include "diagnostics/diagnostics.h"

#include <QString>

/// Collects what the program would write to its two streams, for as long as it lives.
class CapturedDiagnostics
{
public:
    CapturedDiagnostics()
    {
        diagnostics::setSink([this](diagnostics::Stream stream, const QString &text) {
            (stream == diagnostics::Stream::Out ? m_out : m_err) += text;
        });
    }
    ~CapturedDiagnostics() { diagnostics::setSink({}); }
    CapturedDiagnostics(const CapturedDiagnostics &) = delete;
    CapturedDiagnostics &operator=(const CapturedDiagnostics &) = delete;

    /// Text of standard output so far, line ends included.
    const QString &out() const { return m_out; }
    /// Text of standard error so far, line ends included.
    const QString &err() const { return m_err; }
    void clear()
    {
        m_out.clear();
        m_err.clear();
    }

private:
    QString m_out;
    QString m_err;
};
