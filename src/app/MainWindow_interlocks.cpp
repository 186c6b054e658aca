#include "app/MainWindow.h"

#include "app/keyText.h"
#include "camera/models.h"
#include "diagnostics/diagnostics.h"
#include "ui_MainWindow.h"

#include <QMessageBox>

#include <initializer_list>

namespace {

constexpr int ffcAutomatic = 0;
constexpr int ffcExternal = 3;

template <class Enum>
int valueOfKey(const QString &text)
{
    return QMetaEnum::fromType<Enum>().keyToValue(text.toUpper().toLatin1().constData());
}

void unlockAndPreset(QComboBox *box, int index)
{
    box->setEnabled(true);
    box->setCurrentIndex(index);
}

} // namespace

void MainWindow::on_cbPeripheryGimbalrc_stateChanged(int state)
{
    if (state == Qt::Unchecked) {
        unlockAndPreset(m_ui->cbIsothermsState, 0);
        m_ui->cbIsothermSwitchMode->setCurrentIndex(0);
        unlockAndPreset(m_ui->cbSbusColorMapSwitchMode, 0);
        unlockAndPreset(m_ui->cbSbusZoomMode, 0);
        unlockAndPreset(m_ui->cbTriggerPinMode, 0);
        m_ui->cbTriggerFrameMode->setEnabled(true);
        m_ui->cBOverlayMode->setEnabled(true);
        return;
    }
    if (state != Qt::Checked)
        return;

    const Model *model = models::ofKey(m_devices->getDevice());
    if (!model)
        return;
    if (!model->hasRecords()) {
        diagnostics::err(QStringLiteral("<<< not implemented"));
        return;
    }
    if (model->gimbalUnlocksSerialPort)
        m_ui->gbGPSSettings->setEnabled(true);
    m_ui->tab_SBUS->setEnabled(true);
    for (const Preset &channelOrTrigger : model->gimbalPresets)
        preset(channelOrTrigger);
}

void MainWindow::on_cbPeripheryGPSIndexChanged(int index)
{
    constexpr int baudrateOfReceiver[] = {-1, 5, 3, 7}; // list positions: 38400, 9600, 115200
    if (index < 0 || index > 3) {
        diagnostics::err(QStringLiteral("<<< Unknown case"));
        return;
    }
    m_ui->gbGPSSettings->setEnabled(index == 0);
    if (index == 0)
        return;
    m_ui->cbBaudrate->setCurrentIndex(baudrateOfReceiver[index]);
    m_ui->cbParity->setCurrentIndex(0);
    m_ui->cbStopBit->setCurrentIndex(0);
    m_ui->cbInverted->setChecked(true);
}

void MainWindow::on_cbTriggerPinModeIndexChanged(int index)
{
    const bool sbusOrPpm = index == 1 || index == 5;
    if (!sbusOrPpm) {
        m_ui->tab_SBUS->setEnabled(false);
        return;
    }
    if (m_ui->cbPeripheryGimbalrc->isChecked())
        return;
    for (QWidget *widget : std::initializer_list<QWidget *>{
             m_ui->tab_SBUS, m_ui->gbSbusChannelAssignment, m_ui->cbSbusFFC,
             m_ui->cbSbusColorMapSwitchMode, m_ui->cbSbusZoomMode})
        widget->setEnabled(true);
    if (const Model *model = models::ofKey(m_devices->getDevice()))
        for (const Preset &channel : model->sbusTriggerPresets)
            preset(channel);
}

void MainWindow::on_cbIsothermsState_currentIndexChanged(int index)
{
    struct Enabled
    {
        bool transparency, lower, middle, upper;
    };
    constexpr Enabled enabledOfState[] = {
        {false, false, false, false}, // off
        {true, true, true, true},     // isotherms
        {true, true, false, true},    // min / max
        {true, false, false, false},  // automatic
    };
    if (index < 0 || index > 3) {
        diagnostics::err(QStringLiteral("<<< Unknown mode"));
        return;
    }
    const Enabled &enabled = enabledOfState[index];
    if (index == 0)
        m_ui->cbIsothermsTransparency->setCurrentIndex(0);
    m_ui->cbIsothermsTransparency->setEnabled(enabled.transparency);
    m_ui->sbIsothermsLower->setEnabled(enabled.lower);
    m_ui->sbIsothermsMiddle->setEnabled(enabled.middle);
    m_ui->sbIsothermsUpper->setEnabled(enabled.upper);
}

void MainWindow::on_cbFFCmode_currentIndexChanged(int index)
{
    m_ui->sbFFCdelay->setEnabled(index != ffcAutomatic);
}

void MainWindow::showExternalShutterOptions(bool installed)
{
    m_ui->gb_pheriphery_externalshutteroptions->setEnabled(installed);
    m_ui->gb_pheriphery_externalshutteroptions->setVisible(installed);
}

void MainWindow::on_cb_pheriphery_externalshutter_installed_stateChanged(int state)
{
    const bool installed = state != Qt::Unchecked;
    showExternalShutterOptions(installed);
    m_ui->cBext0mode->setCurrentText(
        keyText(installed ? EXP0_MODE_EXTERNAL_SHUTTER : EXP_MODE_NONE));
    m_ui->cBext0mode->setEnabled(!installed);
    m_ui->cBext1mode->setCurrentText(
        keyText(installed ? EXP1_MODE_EXTERNAL_SHUTTER : EXP_MODE_NONE));
    m_ui->cBext1mode->setEnabled(!installed);
    m_ui->gb_FFC->setEnabled(!installed);
    m_ui->cbFFCmode->setCurrentIndex(installed ? ffcExternal : ffcAutomatic);
}

void MainWindow::on_cbHDMIVideoMode_activated(const QString &)
{
    m_ui->pbLivePreview->setEnabled(false);
    QMessageBox box(this);
    box.setText(tr("<p>Change of video output requires you<br>to turn the device off "
                   "and on again.</p>"));
    box.setStandardButtons(QMessageBox::Ok);
    box.setDefaultButton(QMessageBox::Ok);
    box.exec();
}

void MainWindow::on_cbHDMIVideoMode_currentIndexChanged(const QString &text)
{
    if (!m_devices) // the list is being filled for the first time
        return;
    const bool zoom = m_devices->isActiveDevice(KovoDevice_QXBlendZoom);
    switch (valueOfKey<hdmivideomodes>(text)) {
    case MODE_1080P_30HZ:
        if (zoom)
            m_ui->gb_compressionQuality_slider->show();
        break;
    case MODE_1080P_60HZ:
        if (zoom) {
            m_ui->gb_compressionQuality_slider->hide();
            m_ui->hs_JPEGcompressionDaylight->setValue(0);
        }
        break;
    default:
        diagnostics::err(QStringLiteral("unknown"));
    }
}

// The JPEG pair: positions 0, 1, 2 stand for 75, 85, 95 percent. Each side leaves the other alone
// when it fits already, so that they do not feed each other without end.

void MainWindow::on_hs_JPEGcompressionDaylight_valueChanged(int position)
{
    const int quality = 75 + 10 * position;
    if (m_ui->sbJPEGcompressionDaylight->value() != quality)
        m_ui->sbJPEGcompressionDaylight->setValue(quality);
}

void MainWindow::on_sbJPEGcompressionDaylight_valueChanged(int quality)
{
    const int position = (quality - 75) / 10;
    if (m_ui->hs_JPEGcompressionDaylight->value() != position)
        m_ui->hs_JPEGcompressionDaylight->setValue(position);
}

void MainWindow::on_cb_vlc_ae_mode_currentIndexChanged(const QString &text)
{
    const int mode = valueOfKey<viscaaemode>(text);
    if (mode != VISCA_AEMODE_FULL_AUTO && mode != VISCA_AEMODE_SHUTTER_PRIORITY)
        return;
    m_ui->label_vlc_ae_shutterspeed->setVisible(mode == VISCA_AEMODE_SHUTTER_PRIORITY);
    m_ui->cb_vlc_ae_shutterspeed->setVisible(mode == VISCA_AEMODE_SHUTTER_PRIORITY);
}

void MainWindow::on_cb_vlc_ae_shutterspeed_currentIndexChanged(int) {}
