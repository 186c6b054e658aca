#include "simulator/CameraModel.h"

#include "records/FactorySettingsRecords.h"
#include "records/crc16.h"
#include "records/thermalCommPacket_Blend_R8_TypeDef.h"
#include "records/thermalCommPacket_Blend_Zoom_R13_TypeDef.h"

#include <cstring>

namespace {

template <class Configuration, class Factory>
constexpr CameraModel withRecords(const char *name)
{
    return {name, Configuration::deviceKey, Configuration::version, int(sizeof(Configuration)),
            int(sizeof(Factory))};
}

constexpr CameraModel models[] = {
    withRecords<thermalCommPacket_Blend_R8_TypeDef, FactorySettings_QXBlend_TypeDef>("blend"),
    withRecords<thermalCommPacket_Blend_Zoom_R13_TypeDef, FactorySettings_QXBlendZoom_TypeDef>(
        "blend-zoom"),
    {"2.0", 0xA0AF139F, 0, 0, 0},
};

QString sizeDefect(int size, int expected)
{
    const int padded = (expected + 3) / 4 * 4;
    if (size >= expected && size <= padded)
        return {};
    return QStringLiteral("%1 bytes instead of %2").arg(size).arg(expected);
}

QString noRecords()
{
    return QStringLiteral("this model has no records");
}

} // namespace

const CameraModel *findModel(const QString &name)
{
    for (const CameraModel &model : models) {
        if (name == QLatin1String(model.name))
            return &model;
    }
    return nullptr;
}

QStringList modelNames()
{
    QStringList names;
    for (const CameraModel &model : models)
        names << QString::fromLatin1(model.name);
    return names;
}

QString configurationDefect(const CameraModel &model, const QByteArray &record)
{
    if (!model.hasRecords())
        return noRecords();
    QString wrongSize = sizeDefect(record.size(), model.configurationSize);
    if (!wrongSize.isEmpty())
        return wrongSize;

    ControlStructureHeader header;
    std::memcpy(&header, record.constData(), sizeof header);
    const int crcOffset = model.configurationSize - int(sizeof(le_u16));
    const auto *bytes = reinterpret_cast<const uchar *>(record.constData());

    if (header.device_key != model.key)
        return QStringLiteral("wrong device key 0x%1").arg(header.device_key, 8, 16, QChar('0'));
    if (header.data_length != quint32(crcOffset) - sizeof header)
        return QStringLiteral("wrong data length %1").arg(header.data_length);
    if (header.control_struct_version != model.configurationVersion)
        return QStringLiteral("wrong version %1").arg(header.control_struct_version);
    if (qFromLittleEndian<quint16>(bytes + crcOffset) != crc16(bytes, crcOffset))
        return QStringLiteral("wrong CRC-16");
    return {};
}

QString factoryDefect(const CameraModel &model, const QByteArray &record)
{
    return model.hasRecords() ? sizeDefect(record.size(), model.factorySize) : noRecords();
}
