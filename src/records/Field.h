#pragma once

#include "records/Vocabulary.h"

/// Where the bytes of a field lie: `count` little-endian numbers of `width` bytes, one behind the
/// other, from `offset` on.
struct Wire
{
    int offset = 0;
    int width = 1;
    bool isSigned = false;
    int count = 1;
    bool isText = false; ///< `count` characters, padded with zero bytes

    constexpr int size() const { return width * count; }
    constexpr int end() const { return offset + size(); }
    constexpr int offsetOf(int entry) const { return offset + entry * width; }
    constexpr qint64 minimum() const { return isSigned ? -(qint64(1) << (8 * width - 1)) : 0; }
    constexpr qint64 maximum() const { return (qint64(1) << (8 * width - (isSigned ? 1 : 0))) - 1; }
};

/// How a stored number and the number that is shown for it follow from each other.
struct Codec
{
    double (*shown)(qint64 stored);
    qint64 (*stored)(double shown); ///< as a form stores it; for |shown| below 2^53
    int decimals;                   ///< of the shown number
};

/// Numbers that are shown, in the field's unit. For a text its number of characters.
struct Range
{
    double minimum = 0;
    double maximum = 0;

    constexpr bool contains(double number) const { return number >= minimum && number <= maximum; }
};

enum class Role {
    Setting,   ///< read and written
    WriteOnly, ///< written; a form that is filled from a record keeps its own
    Fixed,     ///< always written with `Field::constant`
    Free,      ///< written as 0, ignored when read
};

/// What a row of a field table says of a number beyond its place.
struct Meaning
{
    Codec codec;
    Range range;
    const Vocabulary *vocabulary = nullptr;
    bool oneForAll = false;
};

/// One field of a record, with all that is known of it.
struct Field
{
    const char *name;  ///< stable key, unique in its record: "ffc.delay"
    const char *title; ///< English
    const char *unit;  ///< of the shown number; empty if it has none
    Wire wire;
    Codec codec;
    Range range;
    const Vocabulary *vocabulary; ///< the choices; null for a field that has none
    bool oneForAll;               ///< entries of a table that are set together, to one number
    Role role;
    qint64 constant; ///< what every entry of a fixed field stores

    constexpr bool isEditable() const { return role == Role::Setting || role == Role::WriteOnly; }
};

namespace codecs {

/// Whole numbers, stored with `offset` added.
template <int offset>
inline constexpr Codec shifted{[](qint64 stored) { return static_cast<double>(stored - offset); },
                               [](double shown) { return static_cast<qint64>(shown) + offset; }, 0};

inline constexpr Codec plain = shifted<0>;

/// Whole numbers, stored `factor` times as large; the remainder is dropped when they are shown.
template <int factor>
inline constexpr Codec multiplied{[](qint64 stored) {
                                      const qint64 whole = stored / factor;
                                      return static_cast<double>(whole);
                                  },
                                  [](double shown) { return static_cast<qint64>(shown) * factor; },
                                  0};

/// Two decimals, stored as hundredths. The product is cut, not rounded: 0.29 is stored as 28, as
/// cameras have always got it.
inline constexpr Codec hundredths{[](qint64 stored) { return static_cast<double>(stored) / 100.0; },
                                  [](double shown) { return static_cast<qint64>(shown * 100); }, 2};

/// The focus byte of the Sony FCB: 11 (plus) or 01 (minus) in the two top bits, then six bits of
/// size. Other top bits stand for 0.
inline constexpr Codec sonyFcbFocus{
    [](qint64 stored) {
        const qint64 size = stored & 0x3F;
        const qint64 sign = stored >> 6;
        return static_cast<double>(sign == 3 ? size : sign == 1 ? -size : 0);
    },
    [](double shown) -> qint64 {
        const auto value = static_cast<qint64>(shown);
        if (value == 0)
            return 0;
        return value > 0 ? value | 0xC0 : (-value & 0x3F) | 0x40;
    },
    0};

} // namespace codecs
