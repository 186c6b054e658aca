#include "link/kovoPacketManager.h"

#include "link/CRCService.h"
#include "link/FrameParser.h"

#include <QScopedValueRollback>
#include <QtEndian>

#include <cstring>

// Offsets count from the magic.
static constexpr int MagicSize = 4;
static constexpr int LengthOffset = 4;
static constexpr int PartNumberOffset = 8;
static constexpr int PartCountOffset = 10;
static constexpr int CommandOffset = 12;
static constexpr int HeaderSize = 16;
static constexpr int CrcAndTrailerSize = 5;

static FrameParser &parser()
{
    static FrameParser parser;
    return parser;
}

kovoPacketManager::kovoPacketManager(QObject *parent) : QObject(parent) {}

void kovoPacketManager::prepareMessage(const void *data, size_t length, uint16_t partNumber,
                                       uint16_t partCount, ComioInterfaceCommand_TypeDef command,
                                       QByteArray &frame)
{
    const size_t paddedLength = (length + 3) / 4 * 4;
    const size_t crcOffset = HeaderSize + paddedLength;
    frame.fill('\0', static_cast<int>(crcOffset + CrcAndTrailerSize));

    char *bytes = frame.data();
    std::memcpy(bytes, "KOVO", MagicSize);
    qToBigEndian(static_cast<quint32>(crcOffset), bytes + LengthOffset);
    qToBigEndian(partNumber, bytes + PartNumberOffset);
    qToBigEndian(partCount, bytes + PartCountOffset);
    qToBigEndian(static_cast<quint32>(command), bytes + CommandOffset);
    if (length > 0)
        std::memcpy(bytes + HeaderSize, data, length);

    const CRCService crc(bytes + MagicSize, static_cast<unsigned int>(crcOffset - MagicSize),
                         CRCService::Compute);
    qToBigEndian(static_cast<quint32>(crc.getCRC()), bytes + crcOffset);
}

quint32 kovoPacketManager::commandOf(const QByteArray &frame)
{
    return frame.size() < HeaderSize ? quint32(COMIO_CMD_UNKNOWN)
                                     : qFromBigEndian<quint32>(frame.constData() + CommandOffset);
}

void kovoPacketManager::slotPacketStateMachine(QByteArray data)
{
    const quint32 read = ++m_reads;
    parser().feed(
        data, [this, read](ComioInterfaceCommand_TypeDef command, const QVector<uint8_t> &payload) {
            if (!m_followingIsScheduled && parser().hasWaiting())
                takeFollowingFromEventLoop();
            const QScopedValueRollback<quint32> current(m_currentRead, read);
            emit signalMessageReceived(command, payload);
        });
}

void kovoPacketManager::takeFollowingFromEventLoop()
{
    m_followingIsScheduled = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_followingIsScheduled = false;
            parser().takeWaiting();
        },
        Qt::QueuedConnection);
}

void kovoPacketManager::dropFollowing()
{
    parser().dropWaiting();
}
