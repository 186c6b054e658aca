#include "app/MainWindow.h"

#include "app/messageState.h"
#include "diagnostics/diagnostics.h"
#include "factory/FactorySettings.h"
#include "forms/messagebox.h"
#include "link/SerialConnection.h"
#include "link/kovoPacketManager.h"
#include "sbus/sbusTester.h"
#include "ui_MainWindow.h"

#include <QDateTime>

#include <algorithm>

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
    m_state.sent(command, m_serial->isOpen());
    m_serial->writeSerialPortData(messageState.frame);
}

void MainWindow::slotSendPacket(const QByteArray &frame)
{
    m_state.sent(kovoPacketManager::commandOf(frame), m_serial->isOpen());
    m_serial->writeSerialPortData(frame);
}

void MainWindow::slotMessageStateTimerComplete()
{
    if (!messageState.replied)
        diagnostics::err(QStringLiteral("<<< This should not have happened! Message was not send"));
}

bool MainWindow::settleOutstandingCommand(ComioInterfaceCommand_TypeDef command)
{
    const bool rejected = command == replyFail(messageState.command);
    if (!rejected && command != replyOk(messageState.command))
        return true;
    if (rejected)
        diagnostics::out(QStringLiteral("<<< Command failed!"));
    messageState.replied = true;
    if (messageState.timer)
        messageState.timer->stop();
    m_status.setBusy(false);
    return !rejected ||
           messagebox::accepted(this, {tr("Command rejected"), tr("<p>Command was rejected</p>"),
                                       QMessageBox::Ok, QMessageBox::Ok,
                                       messagebox::TitleBar::WithoutCloseButton});
}

void MainWindow::slotNewMessageReceived(ComioInterfaceCommand_TypeDef command,
                                        QVector<uint8_t> data)
{
    m_state.received(command);
    if (!settleOutstandingCommand(command))
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
    m_ui->pteGPSstream->appendPlainText(
        QString::fromLatin1(reinterpret_cast<const char *>(payload.constData()),
                            static_cast<int>(end - payload.begin())));
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
