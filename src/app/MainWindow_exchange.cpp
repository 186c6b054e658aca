#include "app/MainWindow.h"

#include "app/messageState.h"
#include "diagnostics/diagnostics.h"
#include "factory/FactorySettings.h"
#include "forms/messagebox.h"
#include "forms/textbound.h"
#include "link/SerialConnection.h"
#include "link/kovoPacketManager.h"
#include "sbus/sbusTester.h"
#include "ui_MainWindow.h"

#include <QDateTime>
#include <QScopedValueRollback>
#include <QThread>

#include <algorithm>

namespace {

// Each box that a message opens runs an event loop of its own on the stack.
constexpr int maximumNestedBoxes = 16;

/// Characters of GPS text that are kept, each a byte of the camera's. Lines alone, of which the box
/// keeps 10,000, would be no bound: one may be of 100 kB.
constexpr int gpsTextLimit = 1 << 20;

} // namespace

void MainWindow::send(ComioInterfaceCommand_TypeDef command, const QByteArray &payload)
{
    slotSendMessage(payload.constData(), static_cast<unsigned long>(payload.size()), 1, 1, command);
}

void MainWindow::slotSendMessage(const void *data, unsigned long length, unsigned short partNumber,
                                 unsigned short partCount, ComioInterfaceCommand_TypeDef command)
{
    m_status.setBusy(true);
    messageState.sendTime = QDateTime::currentMSecsSinceEpoch();
    messageState.replied = false;
    messageState.command = command;
    messageState.timeout = 500;
    QTimer::singleShot(100, this, SLOT(slotMessageStateTimerComplete()));
    messageState.frame.clear();
    m_packetManager->prepareMessage(data, length, partNumber, partCount, command,
                                    messageState.frame);
    write(command, messageState.frame);
}

void MainWindow::slotSendPacket(const QByteArray &frame)
{
    write(kovoPacketManager::commandOf(frame), frame);
}

void MainWindow::write(quint32 command, const QByteArray &frame)
{
    const bool open = m_serial->isOpen();
    m_state.sent(command, open);
    if (!m_serial->writeSerialPortData(frame) && open)
        m_state.notTaken(command);
}

void MainWindow::slotMessageStateTimerComplete()
{
    if (!messageState.replied)
        diagnostics::err(QStringLiteral("<<< This should not have happened! Message was not send"));
}

bool MainWindow::settleOutstandingCommand(const MessageQueue::Message &message)
{
    const bool rejectsOutstanding = message.command == replyFail(messageState.command);
    // A later command may have become the outstanding one while the message waited.
    const bool rejected = rejectsOutstanding || message.refusal;
    if (rejected)
        diagnostics::out(QStringLiteral("<<< Command failed!"));
    if (rejectsOutstanding || message.command == replyOk(messageState.command)) {
        messageState.replied = true;
        if (messageState.timer)
            messageState.timer->stop();
        m_status.setBusy(false);
    }
    return !rejected ||
           messagebox::accepted(this, {tr("Command rejected"), tr("<p>Command was rejected</p>"),
                                       QMessageBox::Ok, QMessageBox::Ok,
                                       messagebox::TitleBar::WithoutCloseButton});
}

void MainWindow::slotNewMessageReceived(ComioInterfaceCommand_TypeDef command,
                                        QVector<uint8_t> data)
{
    const MessageQueue::Message message{command, data, m_packetManager->currentRead(),
                                        command == replyFail(messageState.command)};
    if (m_openMessages >= maximumNestedBoxes || !m_waitingMessages.isEmpty())
        m_waitingMessages.append(message);
    else
        handleMessage(message);
}

void MainWindow::handleMessage(const MessageQueue::Message &message)
{
    // What was read came from a camera, even if it is handled after the port was closed.
    const bool wasConnected = m_serial->isOpen() || message.read != 0;
    {
        const QScopedValueRollback<int> open(m_openMessages, m_openMessages + 1);
        const QScopedValueRollback<int> level(m_messageLoopLevel,
                                              QThread::currentThread()->loopLevel());
        const QScopedValueRollback<quint32> read(m_messageRead, message.read);
        dispatch(message);
    }
    endWithoutPort(wasConnected);
    handleWaitingFromEventLoop();
}

void MainWindow::handleWaitingFromEventLoop()
{
    if (m_waitingAreScheduled || m_waitingMessages.isEmpty())
        return;
    m_waitingAreScheduled = true;
    const auto handleNext = [this] {
        m_waitingAreScheduled = false;
        if (m_waitingMessages.isEmpty() || m_openMessages >= maximumNestedBoxes)
            return;
        const MessageQueue::Message next = m_waitingMessages.takeFirst();
        handleWaitingFromEventLoop(); // if this one opens a box, the next are heard meanwhile
        handleMessage(next);
    };
    QMetaObject::invokeMethod(this, handleNext, Qt::QueuedConnection);
}

void MainWindow::dropWhatFollowsMessage()
{
    if (m_openMessages == 0 || m_messageLoopLevel != QThread::currentThread()->loopLevel())
        return; // nothing that the camera sent is being handled, or not here
    m_serial->dropReceived();
    m_packetManager->dropFollowing();
    m_waitingMessages.dropRead(m_messageRead);
}

void MainWindow::endWithoutPort(bool wasConnected)
{
    // Closing the port turned the indicator off: what turned it on since was sent to nobody. It
    // stays on for what was sent without a port from the start.
    if (!wasConnected || m_serial->isOpen() || !m_status.isBusy())
        return;
    m_status.setBusy(false);
    m_ui->statusBar->showMessage(tr("Not sent: the camera is no longer connected. Connect again."));
}

void MainWindow::dispatch(const MessageQueue::Message &message)
{
    const ComioInterfaceCommand_TypeDef command = message.command;
    const QVector<uint8_t> &data = message.payload;
    m_state.received(command);
    if (!settleOutstandingCommand(message))
        return;

    switch (static_cast<quint32>(command)) {
    case replyOk(COMIO_CMD_SET_CONFIG):
        send(COMIO_CMD_ALL_BITS_SET);
        break;
    case replyOk(COMIO_CMD_GET_CONFIG):
    case replyOk(COMIO_CMD_GET_CONTROL_STRUCT):
        showCameraRecord(data);
        break;
    case COMIO_CMD_SET_SERIAL_REPLY_OK:
        diagnostics::out(QStringLiteral("<<< Device replied with COMIO_CMD_SET_SERIAL_REPLY_OK"));
        break;
    case replyOk(COMIO_CMD_GET_FACTORY_SETTINGS):
        m_factorySettings->parseFactorySettings(data);
        break;
    case replyOk(COMIO_CMD_GET_DEVICE_ID):
        parseDeviceID(data);
        break;
    case replyOk(COMIO_CMD_SBUS_LEVELS):
    case replyOk(COMIO_CMD_GET_SBUS_LEVELS):
        m_sbusTester->parseSbusLevels(data);
        break;
    case replyOk(COMIO_CMD_GPS_STREAM_DATA):
        showGpsText(data);
        break;
    case replyOk(COMIO_CMD_VLC_AUTO_ADJUST_FOCUS):
        showFocusAdjustment(data);
        break;
    case COMIO_CMD_UNKNOWN:
        diagnostics::out(QStringLiteral("<<< Device replied with COMIO_CMD_UNKNOWN"));
        break;
    default: // acknowledgements without data, codes of no meaning here
        break;
    }
    diagnostics::out(QString());
}

void MainWindow::showGpsText(const QVector<uint8_t> &payload)
{
    const auto end = std::find(payload.begin(), payload.end(), 0);
    if (end == payload.end())
        diagnostics::err(
            QStringLiteral("<<< GPS text without an end, cut after %1 bytes").arg(payload.size()));
    textbound::append(m_ui->pteGPSstream,
                      QString::fromLatin1(reinterpret_cast<const char *>(payload.constData()),
                                          static_cast<int>(end - payload.begin())),
                      gpsTextLimit);
}

void MainWindow::showFocusAdjustment(const QVector<uint8_t> &payload)
{
    if (payload.isEmpty()) {
        diagnostics::err(QStringLiteral("<<< focus reply without a value"));
        return;
    }
    m_ui->sbVLCFocusAdjustment->setValue(static_cast<qint8>(payload.first()));
}

void MainWindow::slotDummy()
{
    diagnostics::out(QStringLiteral("MainWindow::slotDummy()"));
}
