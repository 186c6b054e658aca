#pragma once

#include "simulator/FaultGenerator.h"
#include "simulator/PseudoTerminal.h"

#include <QElapsedTimer>
#include <QObject>
#include <QQueue>
#include <QTimer>

/// The one way out to the line: frames pass through here and suffer what the faults ask for.
class FaultyLine : public QObject
{
    Q_OBJECT

public:
    FaultyLine(PseudoTerminal &line, const Faults &faults, quint32 seed, QObject *parent = nullptr);

    /// Bytes that may wait for their time. A frame beyond them is lost.
    static constexpr int waitingLimit = 65536;

    void send(const QByteArray &frame);

    /// A line is open: storms begin, frames until the hang-up are counted anew.
    void begin();
    /// What was sent so far is the last: a storm ends.
    void finish() { m_storm.stop(); }
    /// The line goes away, and with it whatever still waits.
    void end();
    /// Paused, it passes frames on unharmed.
    void setPaused(bool paused);

    /// Commands that the camera should reject or ignore at the moment.
    bool rejects(quint32 command) const;
    bool ignores(quint32 command) const;
    bool isSending() const { return !m_waiting.isEmpty(); }

signals:
    /// The number of frames after which the line shall go away has been sent.
    void signalHangupDue();
    /// A frame is lost, for too much waits already.
    void signalOverflow();

private:
    void enqueue(const QVector<FaultGenerator::Piece> &pieces);
    void sendNext();
    void rage();

    PseudoTerminal &m_line;
    Faults m_faults;
    FaultGenerator m_generator;
    QQueue<FaultGenerator::Piece> m_waiting;
    int m_waitingBytes = 0;
    QTimer m_next;
    QTimer m_storm;
    QElapsedTimer m_stormClock;
    qint64 m_stormCredit = 0; // bytes times milliseconds
    int m_frames = 0;
    bool m_paused = false;
};
