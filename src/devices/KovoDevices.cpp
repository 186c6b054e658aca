#include "devices/KovoDevices.h"

#include "diagnostics/diagnostics.h"
#include "records/crc16.h"
#include "records/thermalCommPacket_Blend_R8_TypeDef.h"
#include "records/thermalCommPacket_Blend_Zoom_R13_TypeDef.h"

#include <QMessageBox>

#include <algorithm>
#include <cstring>

namespace {

/// The one control structure that the tool accepts of a model.
struct AcceptedStructure
{
    quint32 key;
    quint32 version;
    int size;
    const char *wrongVersion;
};

template <class Record>
constexpr AcceptedStructure accepted(const char *wrongVersion)
{
    return {Record::deviceKey, Record::version, int(sizeof(Record)), wrongVersion};
}

constexpr AcceptedStructure acceptedStructures[] = {
    accepted<thermalCommPacket_Blend_R8_TypeDef>(
        "KovoDevices::isValidControlStruct unknown control struct version"),
    accepted<thermalCommPacket_Blend_Zoom_R13_TypeDef>(
        "KovoDevices::isValidControlStruct() unsupported control struct version"),
};

constexpr int headerSize = sizeof(ControlStructureHeader);
constexpr int crcSize = sizeof(le_u16);

} // namespace

KovoDevices::KovoDevices(QObject *parent)
    : QObject(parent), m_shortNames{QStringLiteral("QX Blend"), QStringLiteral("QX Blend Zoom")}
{
}

QString KovoDevices::DeviceCRC2Name(unsigned int key)
{
    if (key != KovoDevice_QXBlend && key != KovoDevice_QXBlendZoom) {
        diagnostics::err(QStringLiteral("<<< not a valid device"));
        return QStringLiteral("false");
    }
    QString name = m_shortNames.at(key == KovoDevice_QXBlendZoom ? 1 : 0);
    diagnostics::out(QStringLiteral("<<< ") + name);
    return name;
}

bool KovoDevices::isKnownDevice(unsigned int key)
{
    if (key == KovoDevice_QX20 || key == KovoDevice_QXBlend || key == KovoDevice_QXBlendZoom)
        return true;
    diagnostics::err(QStringLiteral("<<< not a valid device id"));
    return false;
}

bool KovoDevices::setDevice(unsigned int key)
{
    if (!isKnownDevice(key))
        return false;
    if (key == m_currentDevice) {
        diagnostics::err(
            QStringLiteral("KovoDevices::setDevice() >> unnecessary call to this function"));
        return true;
    }
    m_currentDevice = key;
    emit signalDeviceChanged(static_cast<KovoDeviceCRCKey_TypeDef>(key));
    return true;
}

void KovoDevices::showDialog(KovoDevices_ShowDialogMode_TypeDef mode)
{
    diagnostics::outUnterminated(
        QStringLiteral("KovoDevices::showDialog(%1) ").arg(static_cast<int>(mode)));
    QMessageBox box;
    if (mode == ShowDialog_SoftwareOutdated)
        box.setText(tr("This software tool is outdated.\n Please download a new version "
                       "of this software at\nhttps://www.quorvix.example/download."));
    else if (mode == ShowDialog_FirmwareOutdated)
        box.setText(tr("The device firmware is outdated.\n Please update the device firmware."));
    else
        return;
    box.exec();
}

bool KovoDevices::isValidControlStruct(QVector<unsigned char> record)
{
    if (record.size() < headerSize) {
        diagnostics::err(QStringLiteral("KovoDevices::isValidControlStruct() record of %1 bytes is "
                                        "shorter than its header")
                             .arg(record.size()));
        return false;
    }
    ControlStructureHeader header;
    std::memcpy(&header, record.constData(), sizeof header);

    if (!isKnownDevice(header.device_key)) {
        diagnostics::err(QStringLiteral("KovoDevices::isValidControlStruct() Device is not known"));
        return false;
    }
    const auto structure =
        std::find_if(std::begin(acceptedStructures), std::end(acceptedStructures),
                     [&](const AcceptedStructure &s) { return s.key == header.device_key; });
    if (structure == std::end(acceptedStructures)) {
        diagnostics::err(
            QStringLiteral("KovoDevices::isValidControlStruct()  Device not implemented"));
        return false;
    }
    if (header.control_struct_version != structure->version) {
        diagnostics::err(QString::fromLatin1(structure->wrongVersion));
        showDialog(header.control_struct_version > structure->version
                       ? ShowDialog_SoftwareOutdated
                       : ShowDialog_FirmwareOutdated);
        return false;
    }
    if (record.size() < structure->size) {
        diagnostics::err(QStringLiteral("KovoDevices::isValidControlStruct() record of %1 bytes is "
                                        "too short, expected: %2")
                             .arg(record.size())
                             .arg(structure->size));
        return false;
    }

    const int crcOffset = structure->size - crcSize;
    unsigned short crc = 0;
    calc_crc(record.data(), crcOffset, &crc);

    const quint32 dataLength = static_cast<quint32>(crcOffset - headerSize);
    if (header.data_length != dataLength) {
        diagnostics::out(
            QStringLiteral("<<< unknown data length %1 bytes").arg(quint32(header.data_length)));
        diagnostics::out(QStringLiteral("<<< Expected: %1 bytes").arg(dataLength));
        return false;
    }
    if (qFromLittleEndian<quint16>(record.constData() + crcOffset) != crc) {
        diagnostics::out(QStringLiteral("KovoDevices::isValidControlStruct() CRC not OK"));
        return false;
    }
    return true;
}

void KovoDevices::calc_crc(unsigned char *data, int length, unsigned short *crc)
{
    *crc = crc16(data, length);
}

unsigned short KovoDevices::crc_update(unsigned short crc, unsigned char data,
                                       unsigned short polynomial)
{
    for (int bit = 0; bit < 8; ++bit) {
        const bool divide = ((crc ^ data) & 1) != 0;
        crc = static_cast<unsigned short>(crc >> 1);
        if (divide)
            crc ^= polynomial;
        data = static_cast<unsigned char>(data >> 1);
    }
    return crc;
}
