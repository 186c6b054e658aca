#include "factory/FactorySettings.h"

#include "camera/models.h"
#include "diagnostics/diagnostics.h"
#include "diagnostics/escaped.h"
#include "factory/tables.h"
#include "forms/inputs.h"
#include "forms/messagebox.h"
#include "forms/narrowscreen.h"
#include "ui_FactorySettings.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <cstring>

using diagnostics::err;
using diagnostics::out;

FactorySettings::FactorySettings(QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::FactorySettings>())
{
    setLocale(inputs::locale());
    m_ui->setupUi(this);
    inputs::guardAll(this);
    setUpTables();
    setUpNotes();
    for (QWidget *group : std::initializer_list<QWidget *>{
             m_ui->gb_QXB_LiveViewAdjustements, m_ui->gb_QXB_ArdviewAdjustements,
             m_ui->gb_QXBZ_analog, m_ui->gb_QXBZ_hdmi, m_ui->gb_QXBZ_ardview})
        group->hide();
    narrowscreen::breakRow(m_ui->layoutButtons, m_ui->verticalLayout,
                           m_ui->layoutButtons->indexOf(m_ui->btnCalcADFromHDMI));
}

FactorySettings::~FactorySettings() = default;

void FactorySettings::setPacketManager(kovoPacketManager *packetManager)
{
    m_packetManager = packetManager;
}

void FactorySettings::setDevices(KovoDevices *devices)
{
    m_devices = devices;
}

void FactorySettings::connectDevice(bool /*connected*/)
{
    setEnabled(true);
}

void FactorySettings::slotDeviceChanged(KovoDeviceCRCKey_TypeDef key)
{
    const Model *chosen = models::ofKey(key);
    for (const Model &model : models::all())
        for (const char *group : model.factoryGroups)
            findChild<QWidget *>(QLatin1String(group))->setVisible(&model == chosen);
    const bool supported = chosen && chosen->hasRecords();
    m_ui->labelNoModel->setVisible(!supported);
    showCellsBeyond16Bit();
    if (!supported)
        err(QStringLiteral("FactorySettings::slotDeviceChanged() Device not implemented"));
}

unsigned int FactorySettings::activeDevice() const
{
    return m_devices != nullptr ? m_devices->getDevice() : 0;
}

void FactorySettings::send(ComioInterfaceCommand_TypeDef command, const void *data, size_t length)
{
    QByteArray frame;
    m_packetManager->prepareMessage(data, length, 1, 1, command, frame);
    emit signalSendPackage(frame);
}

bool FactorySettings::parseFactorySettings(QVector<uint8_t> payload)
{
    switch (activeDevice()) {
    case KovoDevice_QXBlendZoom: {
        FactorySettings_QXBlendZoom_TypeDef record;
        if (size_t(payload.size()) < sizeof(record)) {
            err(QStringLiteral("FactorySettings::parseFactorySettings() Record too short: %1 bytes")
                    .arg(payload.size()));
            return false;
        }
        std::memcpy(&record, payload.constData(), sizeof(record));
        parseFactorySettings_QXBlendZoom(&record);
        return true;
    }
    case KovoDevice_QXBlend:
        return parseFactorySettings_QXBlend(payload);
    default:
        err(QStringLiteral("FactorySettings::parseFactorySettings() Device unknown"));
        return false;
    }
}

std::array<FactorySettings::BlendField, 5> FactorySettings::blendFields() const
{
    using Record = FactorySettings_QXBlend_TypeDef;
    return {{
        {&Record::ardview_horizontal, m_ui->sbHorizontalAdjustement, 0},
        {&Record::ardview_vertical, m_ui->sbVerticalAdjustment, 0},
        {&Record::liveview_horizontal, m_ui->sbLiveViewHorizontalAdjustment, 40},
        {&Record::liveview_vertical, m_ui->sbLiveViewVerticalAdjustment, 12},
        {&Record::ardview_scale, m_ui->sbScale, 0},
    }};
}

bool FactorySettings::parseFactorySettings_QXBlend(QVector<uint8_t> payload)
{
    FactorySettings_QXBlend_TypeDef record;
    if (size_t(payload.size()) < sizeof(record)) {
        err(QStringLiteral("FactorySettings::parseFactorySettings() Record too short: %1 bytes")
                .arg(payload.size()));
        return false;
    }
    std::memcpy(&record, payload.constData(), sizeof(record));

    const QScopedValueRollback<bool> showing(m_showingRecord, true);
    showSerialNumber(record.device_serial_number);
    for (const BlendField &row : blendFields()) {
        const qint32 value = record.*row.field;
        if (value == -1) // 0xFFFFFFFF, erased memory
            continue;
        const qint64 shown = qint64(value) - row.offset;
        row.box->setValue(int(qBound<qint64>(row.box->minimum(), shown, row.box->maximum())));
    }
    return true;
}

bool FactorySettings::parseFactorySettings_QXBlendZoom(FactorySettings_QXBlendZoom_TypeDef *record)
{
    showSerialNumber(record->device_serial_number);

    if (!messagebox::accepted(this, {tr("Read Settings?"),
                                     tr("<p>Do you want to replace the currect GUI settings?</p>"),
                                     QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok,
                                     messagebox::TitleBar::WithoutContextHelpButton}))
        return false;

    for (size_t zoom = 0; zoom < record->hdmi_displacement.size(); ++zoom) {
        tables::showColumn(m_ui->tw_QXBZ_hdmi, int(zoom), record->hdmi_displacement[zoom]);
        tables::showColumn(m_ui->tw_QXBZ_analog, int(zoom), record->analog_displacement[zoom]);
        tables::showColumn(m_ui->tw_QXBZ_ardview, int(zoom), record->ardview_adjust[zoom]);
    }
    return true;
}

FactorySettings_QXBlendZoom_TypeDef FactorySettings::ui2struct_QXBlendZoom()
{
    FactorySettings_QXBlendZoom_TypeDef record{};
    record.device_serial_number = serialNumber();
    for (size_t zoom = 0; zoom < record.hdmi_displacement.size(); ++zoom) {
        tables::readColumn(m_ui->tw_QXBZ_hdmi, int(zoom), record.hdmi_displacement[zoom]);
        tables::readColumn(m_ui->tw_QXBZ_analog, int(zoom), record.analog_displacement[zoom]);
        tables::readColumn(m_ui->tw_QXBZ_ardview, int(zoom), record.ardview_adjust[zoom]);
    }
    record.struct_version = FactorySettings_QXBlendZoom_TypeDef::version;
    return record;
}

void FactorySettings::setFactorySettings_QXBlend()
{
    out(QStringLiteral("FactorySettings::setFactorySettings_QXBlend"));
    FactorySettings_QXBlend_TypeDef record{};
    record.device_serial_number = serialNumber();
    for (const BlendField &row : blendFields())
        record.*row.field = row.box->value() + row.offset;
    send(COMIO_CMD_SET_SERIAL, &record, sizeof(record));
}

void FactorySettings::setFactorySettings_QXBlend_Zoom()
{
    out(QStringLiteral("FactorySettings::setFactorySettings_QXBlend")); // shared with the Blend
    const FactorySettings_QXBlendZoom_TypeDef record = ui2struct_QXBlendZoom();
    send(COMIO_CMD_SET_SERIAL, &record, sizeof(record));
}

void FactorySettings::on_pbGetFactorySettings_clicked()
{
    send(COMIO_CMD_GET_FACTORY_SETTINGS, nullptr, 0);
}

void FactorySettings::on_pbSetFactorySettings_clicked()
{
    out(QStringLiteral("FactorySettings::on_pbSetFactorySettings_clicked"));
    switch (activeDevice()) {
    case KovoDevice_QXBlendZoom:
        setFactorySettings_QXBlend_Zoom();
        break;
    case KovoDevice_QXBlend:
        setFactorySettings_QXBlend();
        break;
    default:
        err(QStringLiteral("FactorySettings::parseFactorySettings() Device unknown"));
    }
}

void FactorySettings::on_sbLiveViewHorizontalAdjustment_valueChanged(int /*value*/)
{
    if (!m_showingRecord)
        on_pbSetFactorySettings_clicked();
}

void FactorySettings::on_sbLiveViewVerticalAdjustment_valueChanged(int /*value*/)
{
    if (!m_showingRecord)
        on_pbSetFactorySettings_clicked();
}

void FactorySettings::showSerialNumber(const std::array<char, 12> &bytes)
{
    if (std::all_of(bytes.begin(), bytes.end(), [](char byte) { return byte == '\xFF'; })) {
        out(QStringLiteral("<<< device_serial_number is 0xFF array"));
        return;
    }
    const auto end = std::find(bytes.begin(), bytes.end(), '\0');
    const QString text = QString::fromLatin1(bytes.data(), int(end - bytes.begin()));
    out(QStringLiteral("<<< ") + diagnostics::escaped(text));
    m_ui->leSerialNumber->setText(text);
    noteCutSerialNumber(m_ui->leSerialNumber->text() == text ? QString() : text);
}

std::array<char, 12> FactorySettings::serialNumber() const
{
    const QString text = m_ui->leSerialNumber->text();
    out(QStringLiteral("<<< ") + diagnostics::escaped(text));
    std::array<char, 12> bytes{};
    const QByteArray latin1 = text.toLatin1().left(int(bytes.size()));
    std::copy(latin1.begin(), latin1.end(), bytes.begin());
    return bytes;
}
