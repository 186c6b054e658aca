#include "app/recordDefect.h"

#include "devices/KovoDevices.h"
#include "records/ControlStructureHeader.h"
#include "records/crc16.h"
#include "records/thermalCommPacket_Blend_R8_TypeDef.h"
#include "records/thermalCommPacket_Blend_Zoom_R13_TypeDef.h"

#include <QCoreApplication>
#include <QtEndian>

#include <cstring>

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(recordDefect)
};

template <class Record>
QString defectOf(const QVector<unsigned char> &record, const ControlStructureHeader &header)
{
    const quint32 version = header.control_struct_version;
    if (version > Record::version)
        return Text::tr("of version %1, newer than this tool knows").arg(version);
    if (version < Record::version)
        return Text::tr("of version %1, older than this tool reads").arg(version);
    if (record.size() < int(sizeof(Record)))
        return Text::tr("too short: %1 bytes instead of %2").arg(record.size()).arg(sizeof(Record));
    constexpr int crcOffset = offsetof(Record, crc);
    if (header.data_length != quint32(crcOffset) - sizeof header)
        return Text::tr("wrong data length: %1").arg(quint32(header.data_length));
    if (qFromLittleEndian<quint16>(record.constData() + crcOffset) !=
        crc16(record.constData(), crcOffset))
        return Text::tr("wrong checksum");
    return {};
}

} // namespace

QString recordDefect(const QVector<unsigned char> &record)
{
    ControlStructureHeader header;
    if (record.size() < int(sizeof header))
        return record.isEmpty() ? Text::tr("empty")
                                : Text::tr("too short: %1 bytes").arg(record.size());
    std::memcpy(&header, record.constData(), sizeof header);
    switch (quint32(header.device_key)) {
    case KovoDevice_QXBlend:
        return defectOf<thermalCommPacket_Blend_R8_TypeDef>(record, header);
    case KovoDevice_QXBlendZoom:
        return defectOf<thermalCommPacket_Blend_Zoom_R13_TypeDef>(record, header);
    case KovoDevice_QX20:
        return Text::tr("of a Quorvix 2.0, whose settings this tool does not know");
    default:
        return Text::tr("of no known camera");
    }
}
