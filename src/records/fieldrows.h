#pragma once

#include "records/Field.h"
#include "records/LittleEndian.h"

#include <array>
#include <cstddef>
#include <type_traits>
#include <utility>

// What the rows of field tables are made of.
namespace fields {

constexpr Meaning number(double minimum, double maximum, Codec codec = codecs::plain)
{
    return {codec, {minimum, maximum}};
}

constexpr Meaning choice(const Vocabulary &vocabulary)
{
    return {codecs::plain, {}, &vocabulary};
}

/// A table whose entries all take the one number that is set.
constexpr Meaning oneForAll(double minimum, double maximum)
{
    return {codecs::plain, {minimum, maximum}, nullptr, true};
}

/// The wire of a record's member.
template <class T>
struct WireOf
{
    static constexpr Wire at(std::size_t offset)
    {
        return {static_cast<int>(offset), sizeof(T), std::is_signed_v<T>};
    }
};
template <class T>
struct WireOf<LittleEndian<T>> : WireOf<T>
{
};
template <class T, std::size_t N>
struct WireOf<std::array<T, N>>
{
    static constexpr Wire at(std::size_t offset)
    {
        Wire wire = WireOf<T>::at(offset);
        wire.count = N;
        wire.isText = std::is_same_v<T, char>;
        return wire;
    }
};

constexpr Field editable(Wire wire, const char *name, const char *title, const char *unit,
                         const Meaning &meaning, Role role = Role::Setting)
{
    return {name,
            title,
            unit,
            wire,
            meaning.codec,
            meaning.range,
            meaning.vocabulary,
            meaning.oneForAll,
            role,
            0};
}

constexpr Field fixed(Wire wire, const char *name, qint64 constant)
{
    const auto shown = static_cast<double>(constant);
    return {name,           "fixed", "",    wire,        codecs::plain,
            {shown, shown}, nullptr, false, Role::Fixed, constant};
}

constexpr Field unused(Wire wire, const char *name)
{
    return {name, "free", "", wire, codecs::plain, {0, 255}, nullptr, false, Role::Free, 0};
}

/// The rows of several groups, one group behind the other.
template <std::size_t... sizes>
constexpr auto joined(const std::array<Field, sizes> &...groups)
{
    std::array<Field, (sizes + ...)> all{};
    std::size_t next = 0;
    const auto append = [&](const auto &group) {
        for (const Field &field : group)
            all[next++] = field;
    };
    (append(groups), ...);
    return all;
}

template <class... Row>
constexpr std::array<Field, sizeof...(Row)> rows(const Row &...row)
{
    return {row...};
}

/// The rows in the order of their bytes.
template <std::size_t N>
constexpr std::array<Field, N> inOrder(std::array<Field, N> rows)
{
    for (std::size_t i = 1; i < N; ++i)
        for (std::size_t j = i; j > 0 && rows[j].wire.offset < rows[j - 1].wire.offset; --j) {
            const Field row = rows[j];
            rows[j] = rows[j - 1];
            rows[j - 1] = row;
        }
    return rows;
}

/// One byte of an array of bytes; does not compile at compile time for an offset beside it.
constexpr Wire byteOf(const Wire &bytes, int offset)
{
    return offset >= bytes.offset && offset < bytes.end()
               ? Wire{offset}
               : throw "this byte does not belong to the member"; // never at run time
}

} // namespace fields

/// Wire of a member of a record, nested ones included.
#define WIRE(Record, member)                                                                       \
    fields::WireOf<decltype(std::declval<Record>().member)>::at(offsetof(Record, member))

/// A row: FIELD(Record, member, name, title, unit, meaning[, role]).
#define FIELD(Record, member, ...) fields::editable(WIRE(Record, member), __VA_ARGS__)

/// Rows of the members fixed_N and unset_N, which lie at offset N.
#define FIXED(Record, offset, constant)                                                            \
    fields::fixed(WIRE(Record, fixed_##offset), "fixed." #offset, constant)
#define FREE(Record, offset) fields::unused(WIRE(Record, unset_##offset), "free." #offset)

/// Row of the byte at `offset`, one of several that the member fixed_FIRST holds.
#define FIXED_BYTE(Record, first, offset, constant)                                                \
    fields::fixed(fields::byteOf(WIRE(Record, fixed_##first), offset), "fixed." #offset, constant)
