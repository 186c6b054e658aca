#pragma once

#include "Input.h"
#include "records/thermalCommPacket_Blend_R8_TypeDef.h"
#include "support/records.h"

/// Configuration records, valid and not.
namespace configuration {

constexpr int headerSize = 12;

/// A record of the input's rest in one of four kinds: as it stands; a Blend's or a Blend Zoom's
/// body, to which header and CRC are made; with a header of the input and a fitting CRC.
inline QByteArray fromInput(int kind, Input &input)
{
    if (kind == 0)
        return input.rest();
    QByteArray record = kind == 1 ? records::blend() : records::blendZoom();
    const int from = kind == 3 ? 0 : headerSize;
    const QByteArray content = input.bytes(record.size() - 2 - from);
    record.replace(from, content.size(), content);
    return records::sealed(record) + input.rest();
}

/// True for a valid record in the layout of the Blend Zoom.
inline bool isZoom(const QByteArray &record)
{
    return record.startsWith(records::blendZoom().left(headerSize));
}

/// The record without what may change when the form is filled with a record that it made itself:
/// the shutter's offset, whose hundredths lose the last digit to rounding, and the CRC.
inline QByteArray lasting(QByteArray record)
{
    records::put<quint32>(record,
                          offsetof(thermalCommPacket_Blend_R8_TypeDef, periphery) +
                              offsetof(PeripheryFields, ext_shutter_offset),
                          0);
    return record.chopped(2);
}

} // namespace configuration
