#include "simulator/FaultGenerator.h"

#include "simulator/SimulatedSignals.h"

#include "link/ComioInterfaceCommand.h"
#include "link/kovoPacketManager.h"

#include <QtEndian>

#include <algorithm>

namespace {

constexpr int splitGap = 5; // ms that keep two parts from arriving as one
constexpr int longestNoise = 64;

} // namespace

FaultGenerator::FaultGenerator(const Faults &faults, quint32 seed)
    : m_faults(faults), m_random(seed), m_stormRandom(seed ^ 0x5A5A5A5AU)
{
}

QVector<FaultGenerator::Piece> FaultGenerator::distort(const QByteArray &frame)
{
    QByteArray bytes;
    if (happens(m_faults.garbage))
        bytes += noise(m_random, m_random.bounded(1, longestNoise + 1));
    const int copies = happens(m_faults.duplicate) ? 2 : 1;
    for (int i = 0; i < copies; ++i)
        bytes += happens(m_faults.truncate) ? frame.left(m_random.bounded(frame.size())) : frame;
    turnBits(bytes);
    lose(bytes);
    return cut(bytes);
}

QByteArray FaultGenerator::stormFrame()
{
    constexpr quint32 acknowledgements[] = {0, 203, 217, 222, 224, 225, 227, 230, 231, 233, 255};
    quint32 command = acknowledgements[m_stormRandom.bounded(int(std::size(acknowledgements)))];
    QByteArray payload;
    switch (m_stormRandom.bounded(3)) {
    case 0:
        command = replyOk(COMIO_CMD_GET_SBUS_LEVELS);
        for (const quint16 level : sbusLevels(m_stormRandom.bounded(100000))) {
            char image[sizeof level];
            qToLittleEndian(level, image);
            payload.append(image, sizeof image);
        }
        break;
    case 1:
        command = replyOk(COMIO_CMD_GPS_STREAM_DATA);
        payload = ggaSentence(m_stormRandom.bounded(100000)).append('\0');
        break;
    default:
        break;
    }
    QByteArray frame;
    kovoPacketManager(nullptr).prepareMessage(payload.constData(), size_t(payload.size()), 1, 1,
                                              static_cast<ComioInterfaceCommand_TypeDef>(command),
                                              frame);

    switch (m_stormRandom.bounded(8)) {
    case 0: // one bit turned behind the length field
    {
        const int at = m_stormRandom.bounded(8, frame.size() - 1);
        frame[at] = char(frame.at(at) ^ (1 << m_stormRandom.bounded(8)));
        break;
    }
    case 1: // ends early
        frame.truncate(m_stormRandom.bounded(8, frame.size()));
        break;
    case 2: // longer than any frame may be
        qToBigEndian<quint32>(1025 + m_stormRandom.bounded(100000U), frame.data() + 4);
        break;
    case 3:
        frame = noise(m_stormRandom, m_stormRandom.bounded(1, longestNoise + 1));
        break;
    default:
        break;
    }
    return frame;
}

bool FaultGenerator::happens(double probability)
{
    return probability > 0 && m_random.generateDouble() < probability;
}

QByteArray FaultGenerator::noise(QRandomGenerator &random, int size)
{
    QByteArray bytes(size, '\0');
    for (char &byte : bytes)
        byte = char(random.bounded(256));
    return bytes;
}

void FaultGenerator::turnBits(QByteArray &bytes)
{
    if (m_faults.flip <= 0)
        return;
    for (char &byte : bytes) {
        if (happens(m_faults.flip))
            byte = char(byte ^ (1 << m_random.bounded(8)));
    }
}

void FaultGenerator::lose(QByteArray &bytes)
{
    if (m_faults.drop <= 0)
        return;
    QByteArray rest;
    for (const char byte : qAsConst(bytes)) {
        if (!happens(m_faults.drop))
            rest += byte;
    }
    bytes = rest;
}

QVector<FaultGenerator::Piece> FaultGenerator::cut(const QByteArray &bytes)
{
    QVector<Piece> pieces;
    if (m_faults.dribble > 0) {
        for (const char byte : bytes)
            pieces.append({m_faults.dribble, QByteArray(1, byte)});
    } else {
        QVector<int> ends;
        for (int part = 1; part < m_faults.split; ++part)
            ends.append(m_random.bounded(bytes.size() + 1));
        ends.append(bytes.size());
        std::sort(ends.begin(), ends.end());
        int start = 0;
        for (const int end : qAsConst(ends)) {
            if (end > start)
                pieces.append({pieces.isEmpty() ? 0 : splitGap, bytes.mid(start, end - start)});
            start = end;
        }
    }
    if (!pieces.isEmpty())
        pieces.first().delay = m_faults.delay;
    return pieces;
}
