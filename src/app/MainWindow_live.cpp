#include "app/MainWindow.h"

#include "app/messageState.h"
#include "diagnostics/diagnostics.h"
#include "link/SerialConnection.h"
#include "sbus/sbusTester.h"
#include "ui_MainWindow.h"

#include <QDateTime>

#include <initializer_list>

namespace {

constexpr qint64 liveSettingsInterval = 2000; // ms between a send and the next live settings
constexpr int liveSettingsDelay = 1000;       // ms from a change of focus or zoom to its send

/// The camera expects exactly these bytes.
constexpr char autoFocusPayload[] = "\x0A\x0F\xF0\xF1\xF2\xF3\xF4\xF5\xF6\xF7\xF8\xF9\xFA\xFB\xFC"
                                    "\xFD\xFE";

QByteArray byte(int value)
{
    return QByteArray(1, static_cast<char>(value));
}

QByteArray word(int value)
{
    return byte(value) + byte(value >> 8); // little-endian
}

} // namespace

void MainWindow::sendWhileConnected(ComioInterfaceCommand_TypeDef command,
                                    const QByteArray &payload)
{
    if (m_serial->isOpen())
        send(command, payload);
}

void MainWindow::on_pbTriggerStart_clicked()
{
    sendWhileConnected(COMIO_CMD_TRIGGER, byte(1));
}

void MainWindow::on_pbTriggerStop_clicked()
{
    sendWhileConnected(COMIO_CMD_TRIGGER, byte(0));
}

void MainWindow::on_pbGPSStartStream_clicked()
{
    sendWhileConnected(COMIO_CMD_GPS_STREAM, byte(1));
}

void MainWindow::on_pbGPSStopStream_clicked()
{
    sendWhileConnected(COMIO_CMD_GPS_STREAM, byte(0));
}

void MainWindow::on_pb_ffc_doffc_clicked()
{
    sendWhileConnected(COMIO_CMD_DO_FFC, byte(1));
}

void MainWindow::on_pbVLC_preview_Zoom_clicked()
{
    sendWhileConnected(COMIO_CMD_VLC_PREVIEW_ZOOM, byte('a') + byte(m_ui->sbVLCZoom->value()));
}

void MainWindow::on_pbVLCAutoAdjustFocus_clicked()
{
    sendWhileConnected(COMIO_CMD_VLC_AUTO_ADJUST_FOCUS,
                       QByteArray(autoFocusPayload, sizeof autoFocusPayload - 1));
}

void MainWindow::on_pb_iradj_send_clicked()
{
    sendWhileConnected(COMIO_CMD_IR_ADJUST,
                       word(m_ui->sb_iradj_offset->value()) + word(m_ui->sb_iradj_factor->value()));
}

void MainWindow::on_pbLivePreview_clicked()
{
    m_liveChangeUnsent = true;
    slotSendLiveSettings();
}

void MainWindow::slotSendLiveSettings()
{
    if (QDateTime::currentMSecsSinceEpoch() - messageState.sendTime < liveSettingsInterval) {
        if (m_liveChangeUnsent)
            m_state.liveSettingsDropped();
        return;
    }
    m_liveChangeUnsent = false;
    const QByteArray record = recordFromForm();
    if (record.isEmpty())
        diagnostics::err(QStringLiteral("<<< not implemeted"));
    else
        send(COMIO_CMD_SET_LIVE_SETTINGS, record);
}

void MainWindow::on_cbVLCTamronFocus_currentIndexChanged(int index)
{
    if (index != 0 && index != 1)
        return;
    for (QWidget *widget :
         std::initializer_list<QWidget *>{m_ui->hsTamronfocusvalue, m_ui->label_68, m_ui->label_69})
        widget->setEnabled(index == 1);
}

void MainWindow::on_hsTamronfocusvalue_valueChanged(int value)
{
    m_ui->sbTamronFocusValue->setValue(value);
    scheduleLiveSettings();
}

void MainWindow::on_sbTamronZoom_valueChanged(int)
{
    scheduleLiveSettings();
}

void MainWindow::scheduleLiveSettings()
{
    if (!m_showingCameraRecord)
        m_liveChangeUnsent = true;
    QTimer::singleShot(liveSettingsDelay, this, SLOT(slotSendLiveSettings()));
}

void MainWindow::on_pbSbusTest_clicked()
{
    m_sbusTester->show();
    m_sbusTester->adjustSize();
}
