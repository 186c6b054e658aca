#pragma once

#include "simulator/Faults.h"

#include <QByteArray>
#include <QRandomGenerator>
#include <QVector>

/// Decides what a faulty line does to each frame. The same seed and the same frames give the same
/// bytes again, whatever the time between them.
class FaultGenerator
{
public:
    /// Bytes that go out together, `delay` ms after those before them.
    struct Piece
    {
        int delay;
        QByteArray bytes;
    };

    FaultGenerator(const Faults &faults, quint32 seed);

    /// What becomes of one frame: nothing, or pieces in the order in which they are sent.
    QVector<Piece> distort(const QByteArray &frame);

    /// An unasked frame: levels, GPS text or an acknowledgement, or one that is damaged. Never one
    /// whose length field says that it ends before it begins, which a receiver only overcomes after
    /// a quarter of a megabyte.
    QByteArray stormFrame();

private:
    bool happens(double probability);
    QByteArray noise(QRandomGenerator &random, int size);
    void lose(QByteArray &bytes);
    void turnBits(QByteArray &bytes);
    QVector<Piece> cut(const QByteArray &bytes);

    Faults m_faults;
    QRandomGenerator m_random;
    QRandomGenerator m_stormRandom; // apart: its frames come by the clock
};
