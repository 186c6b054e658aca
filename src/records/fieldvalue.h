#pragma once

#include "records/Field.h"

#include <QtEndian>

/// The number that entry `entry` of a wire stores in `record`.
inline qint64 stored(const Wire &wire, const uchar *record, int entry = 0)
{
    const uchar *bytes = record + wire.offsetOf(entry);
    switch (wire.width) {
    case 1:
        return wire.isSigned ? static_cast<qint8>(*bytes) : qint64(*bytes);
    case 2:
        return wire.isSigned ? qFromLittleEndian<qint16>(bytes)
                             : qint64(qFromLittleEndian<quint16>(bytes));
    default:
        return wire.isSigned ? qFromLittleEndian<qint32>(bytes)
                             : qint64(qFromLittleEndian<quint32>(bytes));
    }
}

/// Stores a number, cut to the width of the wire.
inline void putStored(const Wire &wire, uchar *record, qint64 number, int entry = 0)
{
    uchar *bytes = record + wire.offsetOf(entry);
    switch (wire.width) {
    case 1:
        *bytes = static_cast<uchar>(number);
        break;
    case 2:
        qToLittleEndian(static_cast<quint16>(number), bytes);
        break;
    default:
        qToLittleEndian(static_cast<quint32>(number), bytes);
    }
}

/// The number that a form shows, in the field's unit, whatever its range.
inline double shown(const Field &field, const uchar *record, int entry = 0)
{
    return field.codec.shown(stored(field.wire, record, entry));
}

/// Stores a shown number as a form does. All entries of a table that are set together get it.
inline void putShown(const Field &field, uchar *record, double number)
{
    const qint64 encoded = field.codec.stored(number);
    for (int entry = 0; entry < (field.oneForAll ? field.wire.count : 1); ++entry)
        putStored(field.wire, record, encoded, entry);
}

/// List position of the choice that a form shows; -1 for an unknown number.
inline int position(const Field &field, const uchar *record)
{
    return field.vocabulary->positionRead(stored(field.wire, record));
}

/// Whether the bytes that entry `entry` holds are those that its shown value is stored as.
inline bool isExact(const Field &field, const uchar *record, int entry = 0)
{
    const qint64 number = stored(field.wire, record, entry);
    if (field.vocabulary)
        return field.vocabulary->positionOf(number) >= 0;
    return field.codec.stored(field.codec.shown(number)) == number;
}
