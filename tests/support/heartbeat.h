#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>

/// Beats every millisecond as long as the event loop turns, and remembers the longest time that it
/// did not.
class Heartbeat
{
public:
    Heartbeat()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            m_longestNs = std::max(m_longestNs, m_since.nsecsElapsed());
            m_since.start();
            ++m_beats;
        });
        restart();
    }

    /// Forgets what was; the next gap counts from here.
    void restart()
    {
        m_longestNs = 0;
        m_beats = 0;
        m_since.start();
        m_timer.start(1);
    }

    int beats() const { return m_beats; }
    /// Longest time from one beat to the next, in milliseconds, the current one included.
    double longestGap() const
    {
        return static_cast<double>(std::max(m_longestNs, m_since.nsecsElapsed())) / 1e6;
    }

private:
    QTimer m_timer;
    QElapsedTimer m_since;
    qint64 m_longestNs = 0;
    int m_beats = 0;
};
