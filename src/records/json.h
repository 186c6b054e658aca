#pragma once

#include "records/Layout.h"

#include <QJsonObject>
#include <QStringList>

/// Values of fields as JSON, and back. A number is in the field's unit, a choice is its text, a
/// table whose entries are set together is one number where they agree; other tables are lists. A
/// stored value that, typed, would not give the same bytes again is {"raw": N}, N being the stored
/// number, or {"raw": "hex"} for several bytes.
namespace json {

QJsonValue valueOf(const Field &field, const uchar *record);

/// The settings of a record of `layout.size` bytes by name, and those fixed and free fields that do
/// not hold what the tool writes.
QJsonObject fieldsOf(const Layout &layout, const uchar *record);

/// Which values are taken.
enum class Values {
    Typed,   ///< those that can be typed: within the range, known choices
    Carried, ///< whatever a record can hold, so that every record can be built from its fields
};

/// Stores a value. Returns what is wrong with it, and stores nothing then; empty if it was stored.
QString set(const Field &field, const QJsonValue &value, Values values, uchar *record);

/// Stores the values of `fields` in a record of `layout.size` bytes and seals it. Returns what is
/// wrong, one text ("NAME reason") a name or value; what is right is stored all the same.
QStringList setFields(const Layout &layout, const QJsonObject &fields, Values values,
                      uchar *record);

/// Names of the settings that `fields` lacks, which a record that is built from nothing needs.
QStringList missingSettings(const Layout &layout, const QJsonObject &fields);

/// What is known of a field: name, title, unit, offset, size, count, minimum, maximum, choices,
/// role. Fields that have choices, or hold text, have no minimum and maximum (null).
QJsonObject describe(const Field &field);

} // namespace json
