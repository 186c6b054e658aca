#include "simulator/FaultyLine.h"

namespace {

constexpr int stormInterval = 10;   // ms
constexpr qint64 longestGust = 100; // ms that a storm makes up for after a pause
constexpr int backlogLimit = 65536; // bytes that a slow client may leave before a storm rests

} // namespace

FaultyLine::FaultyLine(PseudoTerminal &line, const Faults &faults, quint32 seed, QObject *parent)
    : QObject(parent), m_line(line), m_faults(faults), m_generator(faults, seed)
{
    m_next.setSingleShot(true);
    m_next.setTimerType(Qt::PreciseTimer);
    connect(&m_next, &QTimer::timeout, this, &FaultyLine::sendNext);
    m_storm.setTimerType(Qt::PreciseTimer);
    m_storm.setInterval(stormInterval);
    connect(&m_storm, &QTimer::timeout, this, &FaultyLine::rage);
}

void FaultyLine::send(const QByteArray &frame)
{
    if (m_paused) {
        enqueue({{0, frame}});
    } else {
        enqueue(m_generator.distort(frame));
        if (++m_frames == m_faults.hangup)
            emit signalHangupDue();
    }
    if (!m_next.isActive() && !m_waiting.isEmpty())
        m_next.start(m_waiting.head().delay);
    if (m_next.isActive() && m_next.interval() == 0)
        sendNext();
}

void FaultyLine::enqueue(const QVector<FaultGenerator::Piece> &pieces)
{
    int size = 0;
    for (const auto &piece : pieces)
        size += piece.bytes.size();
    if (m_waitingBytes + size > waitingLimit) {
        emit signalOverflow();
        return;
    }
    m_waiting.append(pieces.toList());
    m_waitingBytes += size;
}

void FaultyLine::begin()
{
    m_frames = 0;
    m_stormCredit = 0;
    m_stormClock.start();
    if (m_faults.storm > 0)
        m_storm.start();
}

void FaultyLine::end()
{
    m_next.stop();
    m_storm.stop();
    m_waiting.clear();
    m_waitingBytes = 0;
}

void FaultyLine::setPaused(bool paused)
{
    m_paused = paused;
    if (!paused)
        return;
    for (auto &piece : m_waiting)
        piece.delay = 0;
    if (!m_waiting.isEmpty())
        sendNext();
}

bool FaultyLine::rejects(quint32 command) const
{
    return !m_paused && m_faults.reject.contains(command);
}

bool FaultyLine::ignores(quint32 command) const
{
    return !m_paused && m_faults.silent.contains(command);
}

void FaultyLine::sendNext()
{
    m_next.stop();
    do {
        const QByteArray bytes = m_waiting.dequeue().bytes;
        m_waitingBytes -= bytes.size();
        m_line.write(bytes);
    } while (!m_waiting.isEmpty() && m_waiting.head().delay == 0);
    if (!m_waiting.isEmpty())
        m_next.start(m_waiting.head().delay);
}

void FaultyLine::rage()
{
    const qint64 elapsed = m_stormClock.restart();
    m_stormCredit += qMin(elapsed, longestGust) * m_faults.storm;
    // Between the pieces of a frame it would only damage that one.
    if (m_paused || !m_waiting.isEmpty() || m_line.backlog() > backlogLimit) {
        m_stormCredit = 0;
        return;
    }
    QByteArray gust;
    while (m_stormCredit > 0) {
        const QByteArray frame = m_generator.stormFrame();
        m_stormCredit -= qint64(frame.size()) * 1000;
        gust += frame;
    }
    if (!gust.isEmpty())
        m_line.write(gust);
}
