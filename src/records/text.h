#pragma once

#include "records/Field.h"

#include <QString>

/// The value of a field as text, and back. Numbers have a decimal point in every locale.
namespace text {

/// The value as a form shows it, without unit: a number, a choice or a text; a table as a list
/// unless its entries agree and are set together. What, typed, would not give the same bytes again
/// has the stored number behind it ("1 [1999]") or in place of it ("[200]": no such choice). Bytes
/// that mean nothing are hexadecimal.
QString valueOf(const Field &field, const uchar *record);
/// The same with the field's unit, if it has one: "120 s".
QString valueWithUnit(const Field &field, const uchar *record);

/// Stores a value that somebody typed: a number with or without unit, a choice by its text or its
/// stored number, one number for all entries of a table or all of them. Returns what is wrong with
/// it, and stores nothing then; empty if it was stored.
QString set(const Field &field, const QString &value, uchar *record);

// Of use to other notations of values.

/// Why `number` cannot be typed for this field; empty if it can.
QString numberDefect(const Field &field, double number);
/// Whether the form could show that number, by its decimals.
bool hasDecimalsOf(const Field &field, double number);
/// "0 to 86400 s"
QString rangeOf(const Field &field);
/// The characters up to the first zero byte.
QString characters(const Field &field, const uchar *record);
void putCharacters(const Field &field, const QString &characters, uchar *record);
/// Whether storing `characters` would give the bytes of `record`, and they are plain text.
bool isPlainText(const Field &field, const uchar *record);
/// All bytes of the field, hexadecimal.
QString hex(const Field &field, const uchar *record);

} // namespace text
