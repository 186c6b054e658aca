#pragma once

#include "link/ComioInterfaceCommand.h"

#include <QObject>
#include <QVector>

/// Builds outgoing frames and turns received bytes into messages.
///
/// A frame is "KOVO", then big-endian: length (P + 16), part number, part count, command; then the
/// payload padded with zeros to P bytes, a multiple of 4; the CRC over everything between magic and
/// CRC; one zero byte. P + 21 bytes in all.
class kovoPacketManager : public QObject
{
    Q_OBJECT

public:
    explicit kovoPacketManager(QObject *parent);

    /// Builds one frame of `length` payload bytes into `frame`, whose old content is dropped.
    /// `data` may be null when `length` is 0.
    void prepareMessage(const void *data, size_t length, uint16_t partNumber, uint16_t partCount,
                        ComioInterfaceCommand_TypeDef command, QByteArray &frame);
    /// The command of a frame that prepareMessage() built.
    static quint32 commandOf(const QByteArray &frame);

    /// Number of the read with which the message came that is being announced; 0 while none is.
    quint32 currentRead() const { return m_currentRead; }
    /// Forgets what came in one read with the message that is being received, behind it.
    void dropFollowing();

public slots:
    /// Feeds received bytes to the process's one parser, whose state outlives disconnects. While a
    /// receiver of a message runs the event loop, the messages behind it go on arriving.
    void slotPacketStateMachine(QByteArray data);

signals:
    /// A complete message with its padded payload; command COMIO_CMD_CRC_ERROR for a damaged frame.
    void signalMessageReceived(ComioInterfaceCommand_TypeDef command, QVector<uint8_t> data);

private:
    void takeFollowingFromEventLoop();

    bool m_followingIsScheduled = false;
    quint32 m_reads = 0;
    quint32 m_currentRead = 0;
};
