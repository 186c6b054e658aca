#pragma once

#include "records/ControlStructureHeader.h"
#include "records/Field.h"

#include <QByteArray>
#include <QLatin1String>

#include <array>
#include <vector>

/// What a record consists of. A configuration record begins with a header and ends with a CRC-16; a
/// factory record has neither. All other bytes belong to the fields, each to one.
struct Layout
{
    quint32 key;     ///< model that the header names; 0 without a header
    quint32 version; ///< date as the decimal number yyyymmdd; 0 if the record tells none
    int size;        ///< bytes, header and CRC included
    const Field *firstField;
    int fieldCount;

    constexpr bool isSealed() const { return key != 0; }
    constexpr int bodyOffset() const
    {
        return isSealed() ? int(sizeof(ControlStructureHeader)) : 0;
    }
    constexpr int crcOffset() const { return size - (isSealed() ? int(sizeof(le_u16)) : 0); }
    /// What the header tells: bytes between header and CRC.
    constexpr quint32 dataLength() const { return quint32(crcOffset() - bodyOffset()); }

    // The fields in the order of their bytes.
    constexpr const Field *begin() const { return firstField; }
    constexpr const Field *end() const { return firstField + fieldCount; }

    /// Position of the field that begins at `offset`; -1 if none does.
    constexpr int positionAt(int offset) const
    {
        for (int position = 0; position < fieldCount; ++position)
            if (firstField[position].wire.offset == offset)
                return position;
        return -1;
    }
    /// That field; null if none begins there.
    const Field *fieldAt(int offset) const
    {
        const int position = positionAt(offset);
        return position < 0 ? nullptr : firstField + position;
    }
    /// The field of that name; null if this record has none.
    const Field *field(QLatin1String name) const;
    const Field *field(const QString &name) const;
};

template <class Record, std::size_t N>
constexpr Layout configurationLayout(const std::array<Field, N> &fields)
{
    return {Record::deviceKey, Record::version, sizeof(Record), fields.data(), N};
}

/// The layout of a record type; only those with a field table have one.
template <class Record>
inline constexpr Layout layoutOf{};

/// The field of a record's member, nested ones included. A member that is no field does not
/// compile.
#define FIELD_OF(Record, member)                                                                   \
    ([]() -> const Field & {                                                                       \
        constexpr int position = layoutOf<Record>.positionAt(offsetof(Record, member));            \
        static_assert(position >= 0, #member " is no field");                                      \
        return layoutOf<Record>.firstField[position];                                              \
    }())

/// Whether every byte between header and CRC belongs to exactly one field.
constexpr bool ownsEveryByte(const Layout &layout)
{
    int next = layout.bodyOffset();
    for (const Field &field : layout) {
        if (field.wire.offset != next)
            return false;
        next = field.wire.end();
    }
    return next == layout.crcOffset();
}

/// A record as it is before anything is set: fixed bytes have their constants, all others are 0.
QByteArray blank(const Layout &layout);

/// Writes header and CRC-16 of a record of `layout.size` bytes, where the layout has them.
void seal(const Layout &layout, uchar *record);
void seal(const Layout &layout, QByteArray &record);

/// The key of the Quorvix 2.0, which is known, but of which no record is.
inline constexpr quint32 keyWithoutRecord = 0xA0AF139F;

/// What is wrong with a record, in the order in which it is looked for.
enum class Defect {
    None,
    NoHeader,       ///< shorter than a header
    UnknownDevice,  ///< no model has this key
    NotImplemented, ///< a model of which no record is known
    Older,          ///< version before the one that the tool knows
    Newer,
    TooShort,
    WrongLength, ///< the header tells another data length
    WrongCrc,
};

struct Verdict
{
    Defect defect = Defect::None;
    const Layout *layout = nullptr; ///< of the model that the record names, if it has records
    quint32 found = 0; ///< what does not fit: bytes, key, version, data length or CRC-16

    bool isValid() const { return defect == Defect::None; }
};

/// Judges what claims to be a configuration record. Bytes behind the record (a frame's padding) are
/// not looked at, and none behind `size`.
Verdict judge(const uchar *bytes, int size);
Verdict judge(const QByteArray &bytes);

/// The fields whose bytes are not the same in all of `records`, in the order of their bytes; fixed
/// and free ones included. A field that a record is too short for counts as having the bytes it
/// has.
std::vector<const Field *> differences(const Layout &layout,
                                       const std::vector<QByteArray> &records);
