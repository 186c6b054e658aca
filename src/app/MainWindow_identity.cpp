#include "app/MainWindow.h"

#include "app/StateLabels.h"
#include "app/keyText.h"
#include "app/recordDefect.h"
#include "diagnostics/diagnostics.h"
#include "diagnostics/escaped.h"
#include "forms/messagebox.h"
#include "link/SerialConnection.h"
#include "records/thermalCommPacket_Blend_R8_TypeDef.h"
#include "records/thermalCommPacket_Blend_Zoom_R13_TypeDef.h"
#include "ui_MainWindow.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <cstring>
#include <initializer_list>

namespace {

struct Model
{
    KovoDeviceCRCKey_TypeDef key;
    const char *longName;
    const char *shortName;       ///< null for a model without a record
    quint32 minimumFirmwareDate; ///< decimal yyyymmdd
    const char *outdatedFirmware;
};

constexpr Model models[] = {
    {KovoDevice_QX20, "Quorvix 2.0", nullptr, 0, nullptr},
    {KovoDevice_QXBlend, "Quorvix Blend", "QX Blend", 20170807,
     QT_TRANSLATE_NOOP("MainWindow",
                       "<p>Outdated firmware detected.<br>Please update the firmware.</p>")},
    {KovoDevice_QXBlendZoom, "Quorvix Blend Zoom", "QX Blend Zoom", 20180122,
     QT_TRANSLATE_NOOP("MainWindow",
                       "<p>Outdated firmware detected.<br>Please update to firmware 1.4.x.</p>")},
};

const Model *modelOfKey(quint32 key)
{
    const auto it = std::find_if(std::begin(models), std::end(models),
                                 [=](const Model &model) { return model.key == key; });
    return it == std::end(models) ? nullptr : it;
}

const Model *modelOfName(const QString &longName)
{
    const auto it = std::find_if(std::begin(models), std::end(models), [&](const Model &model) {
        return longName.compare(QLatin1String(model.longName), Qt::CaseInsensitive) == 0;
    });
    return it == std::end(models) ? nullptr : it;
}

/// Byte layout of the identity reply: key, firmware date (both 32-bit little-endian), then the
/// serial number as text up to a zero byte.
constexpr int firmwareDateOffset = 4;
constexpr int serialNumberOffset = 8;

QString serialNumber(const QVector<unsigned char> &payload)
{
    const auto begin = payload.begin() + serialNumberOffset;
    const auto end = std::find(begin, payload.end(), 0);
    if (end == payload.end())
        diagnostics::err(QStringLiteral("<<< serial number without an end, cut after %1 bytes")
                             .arg(end - begin));
    return QString::fromLatin1(reinterpret_cast<const char *>(begin),
                               static_cast<int>(end - begin));
}

void addModes(QComboBox *box, const QVector<MainWindow::extensions> &modes)
{
    for (const MainWindow::extensions mode : modes)
        box->addItem(keyText(mode));
}

template <class Record>
Record recordOf(const QVector<unsigned char> &bytes)
{
    Record record;
    std::memcpy(&record, bytes.constData(), sizeof record);
    return record;
}

} // namespace

void MainWindow::parseDeviceID(QVector<unsigned char> payload)
{
    if (payload.size() < serialNumberOffset) {
        diagnostics::err(QStringLiteral("MainWindow::parseDeviceID() <<< identity of %1 bytes is "
                                        "too short")
                             .arg(payload.size()));
        return;
    }
    const auto key = qFromLittleEndian<quint32>(payload.constData());
    const auto firmwareDate = qFromLittleEndian<quint32>(payload.constData() + firmwareDateOffset);

    if (!KovoDevices::isKnownDevice(key)) {
        diagnostics::err(QStringLiteral("MainWindow::parseDeviceID() <<< Not a valid device."));
        return;
    }
    if (!m_devices->isActiveDevice(key))
        slotDeviceChanged(static_cast<KovoDeviceCRCKey_TypeDef>(key));

    const Model *model = modelOfKey(key);
    if (!model->shortName) {
        m_state.identified(modelName(key), QString(), firmwareDate);
        diagnostics::err(QStringLiteral(
            "<<< MainWindow::parseDeviceID() could not parse struct, unknown device"));
        return;
    }
    const QString serial = diagnostics::escaped(serialNumber(payload));
    m_state.identified(modelName(key), serial, firmwareDate);
    m_stateLabels->showIdentity(tr("Device ID: %1   Serial: %2").arg(modelName(key), serial));
    checkFirmwareDate(firmwareDate);
    requestConfig(static_cast<KovoDeviceCRCKey_TypeDef>(key));
}

void MainWindow::parseSerial(QVector<unsigned char>) {}

QString MainWindow::modelName(quint32 key)
{
    const Model *model = modelOfKey(key);
    if (!model)
        return {};
    return QString::fromLatin1(model->shortName ? model->shortName : model->longName);
}

void MainWindow::showCameraRecord(const QVector<unsigned char> &record)
{
    const QScopedValueRollback<bool> showing(m_showingCameraRecord, true);
    m_liveChangeUnsent = false;
    if (parseUnknownControlStruct(record))
        m_state.configurationRead();
    else
        m_state.configurationRefused(recordDefect(record));
}

bool MainWindow::parseUnknownControlStruct(QVector<unsigned char> record)
{
    if (!m_devices->isValidControlStruct(record)) {
        diagnostics::err(
            QStringLiteral("MainWindow::parseUnknownControlStruct() not a valid struct"));
        if (m_serial->isOpen()) {
            dropWhatFollowsMessage();
            m_serial->closeSerialPort();
        }
        return false;
    }
    switch (qFromLittleEndian<quint32>(record.constData())) {
    case KovoDevice_QXBlendZoom: {
        const auto zoom = recordOf<thermalCommPacket_Blend_Zoom_R13_TypeDef>(record);
        config2ui_qxblendzoom(&zoom);
        return true;
    }
    case KovoDevice_QXBlend: {
        const auto blend = recordOf<thermalCommPacket_Blend_R8_TypeDef>(record);
        config2ui_qxblend(&blend);
        return true;
    }
    default:
        diagnostics::err(QStringLiteral("MainWindow::parseUnknownControlStruct() could not parse "
                                        "struct, unknown device"));
        return true;
    }
}

bool MainWindow::checkFirmwareDate(unsigned int firmwareDate)
{
    const Model *model = modelOfKey(m_devices->getDevice());
    if (!model || !model->outdatedFirmware) {
        diagnostics::err(QStringLiteral("MainWindow::checkFirmwareDate() Device unknown"));
        return false;
    }
    if (model->minimumFirmwareDate <= firmwareDate)
        return true;
    diagnostics::out(QStringLiteral("<<< firmwaredate is to old"));
    return messagebox::accepted(this, {tr("Firmware outdated"), tr(model->outdatedFirmware),
                                       QMessageBox::Ok, QMessageBox::Ok,
                                       messagebox::TitleBar::WithoutCloseButton});
}

bool MainWindow::changeDeviceName(const QString &name)
{
    if (const Model *model = modelOfName(name))
        return m_devices->setDevice(model->key);
    diagnostics::err(QStringLiteral("<< Device not implemented: ") + diagnostics::escaped(name));
    return false;
}

bool MainWindow::changeDeviceCRC(unsigned int)
{
    diagnostics::err(
        QStringLiteral("MainWindow::changeDeviceCRC() was replaced by slotDeviceChanged()"));
    return false;
}

void MainWindow::on_cBDevice_currentTextChanged(const QString &text)
{
    changeDeviceName(text);
}

void MainWindow::on_cBDevice_activated(int index)
{
    // Picking the item that is shown already changes no text, yet may choose another model.
    const QString name = m_ui->cBDevice->itemText(index);
    const Model *model = modelOfName(name);
    if (model && !m_devices->isActiveDevice(model->key))
        changeDeviceName(name);
}

bool MainWindow::slotDeviceChanged(KovoDeviceCRCKey_TypeDef key)
{
    if (!m_devices->setDevice(key))
        return false;

    const Ui::MainWindow &ui = *m_ui;
    for (QWidget *widget :
         std::initializer_list<QWidget *>{ui.gb_pheriphery_externalshutter,
                                          ui.gb_pheriphery_externalshutteroptions,
                                          ui.comboBoxPort,
                                          ui.btConnectDisconnect,
                                          ui.gbSonyFCBCameraAdjustements,
                                          ui.gbSonyFCBFocus,
                                          ui.gbTamronFocus,
                                          ui.gbSonyFCBZoom,
                                          ui.gbTamronVibrationCompensation,
                                          ui.gbTamronZoom,
                                          ui.gb_videoMode,
                                          ui.gb_hdmivideoMode,
                                          ui.gb_compressionQuality,
                                          ui.gb_compressionQuality_slider,
                                          ui.gbImageOutput,
                                          ui.gbSyncMode,
                                          ui.gbSbusConnectionOptions,
                                          ui.gbTestModes,
                                          ui.gb_exp_uart,
                                          ui.gb_vlc_ae,
                                          ui.cbSbusZoom,
                                          ui.cbSbusZoomMode,
                                          ui.label_sbuschannel_zoom,
                                          ui.label_sbuschannel_zoommode,
                                          ui.label_sbuschannel_viewmode_switcthmode,
                                          ui.cbSbusViewModeSwitchMode,
                                          ui.label_sbus_Overlay,
                                          ui.cbSbusOverlay})
        widget->hide();
    ui.cBext0mode->clear();
    ui.cBext1mode->clear();

    switch (key) {
    case KovoDevice_QXBlend:
        showModelGroups({ui.label_sbus_Overlay, ui.cbSbusOverlay, ui.gbSonyFCBCameraAdjustements,
                         ui.gbSonyFCBFocus, ui.label_sbuschannel_viewmode_switcthmode,
                         ui.cbSbusViewModeSwitchMode});
        addModes(ui.cBext0mode, {EXP_MODE_NONE, EXP0_MODE_EXTERNAL_SHUTTER});
        addModes(ui.cBext1mode, {EXP_MODE_NONE, EXP1_MODE_EXTERNAL_SHUTTER});
        break;
    case KovoDevice_QXBlendZoom:
        showModelGroups({ui.gbTamronFocus, ui.gbTamronVibrationCompensation, ui.gbTamronZoom,
                         ui.gb_videoMode, ui.gb_hdmivideoMode, ui.gb_compressionQuality_slider,
                         ui.gbImageOutput, ui.gbSyncMode, ui.gbSbusConnectionOptions,
                         ui.gbTestModes, ui.cbSbusZoom, ui.cbSbusZoomMode,
                         ui.label_sbuschannel_zoom, ui.label_sbuschannel_zoommode, ui.gb_vlc_ae});
        addModes(ui.cBext0mode, {EXP_MODE_NONE, EXP0_MODE_FFC, EXP0_MODE_IMAGE_SYNC,
                                 EXP0_MODE_COMIO, EXP0_MODE_VISCA, EXP0_MODE_EXTERNAL_SHUTTER});
        addModes(ui.cBext1mode, {EXP_MODE_NONE, EXP1_MODE_EXTERNAL_SYNC_INPUT, EXP1_MODE_COMIO,
                                 EXP1_MODE_VISCA, EXP1_MODE_EXTERNAL_SHUTTER});
        break;
    case KovoDevice_QX20:
        diagnostics::err(
            QStringLiteral("<<< QX 2.0 not implemeted (%1)").arg(static_cast<quint32>(key)));
        break;
    default:
        diagnostics::err(
            QStringLiteral("<<< device CRC not implemeted (%1)").arg(static_cast<quint32>(key)));
        return false;
    }

    const QString name = m_devices->DeviceCRC2Name(key);
    if (name.compare(ui.cBDevice->currentText(), Qt::CaseInsensitive) == 0)
        return true;
    if (key == KovoDevice_QX20) {
        diagnostics::err(QStringLiteral("<< Device not implemented: ") + name);
        return false;
    }
    ui.cBDevice->setCurrentIndex(key == KovoDevice_QXBlendZoom ? 1 : 0);
    return true;
}

void MainWindow::showModelGroups(const QList<QWidget *> &groups)
{
    m_ui->comboBoxPort->show();
    m_ui->btConnectDisconnect->show();
    m_ui->gb_pheriphery_externalshutter->show();
    showExternalShutterOptions(m_ui->cb_pheriphery_externalshutter_installed->isChecked());
    for (QWidget *group : groups)
        group->show();
}

void MainWindow::requestConfig(KovoDeviceCRCKey_TypeDef key)
{
    switch (key) {
    case KovoDevice_QXBlendZoom:
        requestConfig_qx_blend_zoom();
        break;
    case KovoDevice_QXBlend:
        requestConfig_qx_blend();
        break;
    default:
        diagnostics::err(QStringLiteral("MainWindow::requestConfig() DEVICE NOT IMPLEMENTED"));
    }
}
