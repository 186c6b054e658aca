#pragma once

#include <QString>

/// What the simulated camera tells on standard error about its traffic: one line a frame, "<-" to
/// the camera and "->" from it. Silent unless enabled. Nobody has to read them.
class FrameLog
{
public:
    explicit FrameLog(bool enabled) : m_enabled(enabled) {}

    void request(quint32 command, int size, const QString &note) const;
    void answer(quint32 command, int size) const;
    void line(const QString &text) const;

private:
    bool m_enabled;
};
