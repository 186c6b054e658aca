#include "app/MainWindow.h"

#include "app/StateLabels.h"
#include "app/recordDefect.h"
#include "camera/models.h"
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

namespace {

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

void addModes(QComboBox *box, const Vocabulary &modes)
{
    for (const Choice &mode : modes)
        box->addItem(QString::fromUtf8(mode.text));
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

    if (!models::ofKey(key)->hasRecords()) {
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
    const Model *model = models::ofKey(key);
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
    if (qFromLittleEndian<quint32>(record.constData()) == KovoDevice_QXBlendZoom) {
        const auto zoom = recordOf<thermalCommPacket_Blend_Zoom_R13_TypeDef>(record);
        config2ui_qxblendzoom(&zoom);
    } else {
        const auto blend = recordOf<thermalCommPacket_Blend_R8_TypeDef>(record);
        config2ui_qxblend(&blend);
    }
    return true;
}

bool MainWindow::checkFirmwareDate(unsigned int firmwareDate)
{
    const Model *model = models::ofKey(m_devices->getDevice());
    if (!model || !model->outdatedFirmware) {
        diagnostics::err(QStringLiteral("MainWindow::checkFirmwareDate() Device unknown"));
        return false;
    }
    if (model->oldestFirmware <= firmwareDate)
        return true;
    diagnostics::out(QStringLiteral("<<< firmwaredate is to old"));
    return messagebox::accepted(this, {tr("Firmware outdated"), tr(model->outdatedFirmware),
                                       QMessageBox::Ok, QMessageBox::Ok,
                                       messagebox::TitleBar::WithoutCloseButton});
}

bool MainWindow::changeDeviceName(const QString &name)
{
    if (const Model *model = models::ofLongName(name))
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
    const Model *model = models::ofLongName(name);
    if (model && !m_devices->isActiveDevice(model->key))
        changeDeviceName(name);
}

bool MainWindow::slotDeviceChanged(KovoDeviceCRCKey_TypeDef key)
{
    if (!m_devices->setDevice(key))
        return false;

    const auto forEachGroup = [this](const Model &model, void (QWidget::*hideOrShow)()) {
        for (const char *group : model.formGroups)
            (centralWidget()->findChild<QWidget *>(QLatin1String(group))->*hideOrShow)();
    };
    for (const Model &other : models::all())
        forEachGroup(other, &QWidget::hide);
    for (QWidget *shownByNoModel :
         {m_ui->gbSonyFCBZoom, m_ui->gb_compressionQuality, m_ui->gb_exp_uart})
        shownByNoModel->hide();
    m_ui->gb_pheriphery_externalshutteroptions->hide();
    m_ui->cBext0mode->clear();
    m_ui->cBext1mode->clear();

    const Model &model = *models::ofKey(key);
    if (model.hasRecords()) {
        forEachGroup(model, &QWidget::show);
        showExternalShutterOptions(m_ui->cb_pheriphery_externalshutter_installed->isChecked());
        addModes(m_ui->cBext0mode, *model.extensionModes[0]);
        addModes(m_ui->cBext1mode, *model.extensionModes[1]);
    } else {
        diagnostics::err(
            QStringLiteral("<<< QX 2.0 not implemeted (%1)").arg(static_cast<quint32>(key)));
    }

    const QString name = m_devices->DeviceCRC2Name(key);
    if (!model.hasRecords()) {
        diagnostics::err(QStringLiteral("<< Device not implemented: ") + name);
        return false;
    }
    m_ui->cBDevice->setCurrentText(QString::fromLatin1(model.longName));
    return true;
}

void MainWindow::requestConfig(KovoDeviceCRCKey_TypeDef key)
{
    if (key == KovoDevice_QXBlendZoom)
        requestConfig_qx_blend_zoom();
    else if (key == KovoDevice_QXBlend)
        requestConfig_qx_blend();
    else
        diagnostics::err(QStringLiteral("MainWindow::requestConfig() DEVICE NOT IMPLEMENTED"));
}
