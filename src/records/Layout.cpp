#include "records/Layout.h"

#include "records/crc16.h"
#include "records/fieldvalue.h"
#include "records/layouts.h"

#include <algorithm>
#include <cstring>

const Field *Layout::field(QLatin1String name) const
{
    const Field *found = std::find_if(
        begin(), end(), [=](const Field &field) { return name == QLatin1String(field.name); });
    return found == end() ? nullptr : found;
}

const Field *Layout::field(const QString &name) const
{
    return field(QLatin1String(name.toLatin1()));
}

QByteArray blank(const Layout &layout)
{
    QByteArray record(layout.size, '\0');
    for (const Field &field : layout)
        for (int entry = 0; entry < field.wire.count; ++entry)
            putStored(field.wire, reinterpret_cast<uchar *>(record.data()), field.constant, entry);
    seal(layout, record);
    return record;
}

void seal(const Layout &layout, uchar *record)
{
    if (!layout.isSealed())
        return;
    const ControlStructureHeader header{layout.key, layout.dataLength(), layout.version};
    std::memcpy(record, &header, sizeof header);
    const le_u16 crc = crc16(record, layout.crcOffset());
    std::memcpy(record + layout.crcOffset(), &crc, sizeof crc);
}

void seal(const Layout &layout, QByteArray &record)
{
    Q_ASSERT(record.size() >= layout.size);
    seal(layout, reinterpret_cast<uchar *>(record.data()));
}

Verdict judge(const uchar *bytes, int size)
{
    if (size < int(sizeof(ControlStructureHeader)))
        return {Defect::NoHeader, nullptr, quint32(std::max(size, 0))};
    ControlStructureHeader header;
    std::memcpy(&header, bytes, sizeof header);

    if (header.device_key == keyWithoutRecord)
        return {Defect::NotImplemented, nullptr, header.device_key};
    const Layout *layout = layouts::configurationOf(header.device_key);
    if (!layout)
        return {Defect::UnknownDevice, nullptr, header.device_key};
    if (header.control_struct_version < layout->version)
        return {Defect::Older, layout, header.control_struct_version};
    if (header.control_struct_version > layout->version)
        return {Defect::Newer, layout, header.control_struct_version};
    if (size < layout->size)
        return {Defect::TooShort, layout, quint32(size)};
    if (header.data_length != layout->dataLength())
        return {Defect::WrongLength, layout, header.data_length};
    const auto crc = qFromLittleEndian<quint16>(bytes + layout->crcOffset());
    if (crc != crc16(bytes, layout->crcOffset()))
        return {Defect::WrongCrc, layout, crc};
    return {Defect::None, layout, 0};
}

Verdict judge(const QByteArray &bytes)
{
    return judge(reinterpret_cast<const uchar *>(bytes.constData()), bytes.size());
}

/// Whether both records hold the same bytes there, a byte behind the end being equal to none.
static bool agree(const QByteArray &one, const QByteArray &other, const Wire &wire)
{
    const auto end = [&](const QByteArray &record) {
        return record.cbegin() + std::min(wire.end(), record.size());
    };
    const auto begin = [&](const QByteArray &record) {
        return record.cbegin() + std::min(wire.offset, record.size());
    };
    return std::equal(begin(one), end(one), begin(other), end(other));
}

std::vector<const Field *> differences(const Layout &layout, const std::vector<QByteArray> &records)
{
    std::vector<const Field *> differing;
    for (const Field &field : layout)
        if (!std::all_of(records.begin(), records.end(), [&](const QByteArray &record) {
                return agree(record, records.front(), field.wire);
            }))
            differing.push_back(&field);
    return differing;
}
