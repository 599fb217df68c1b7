#pragma once

#include "QuillaryCore/Store/Schema.h"
#include "QuillaryCore/Store/Statement.h"

#include <fmt/format.h>

#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

namespace Quillary {

/// How a member of a record is stored: its column type, its default as SQL, and how it is read from a row.
/// A member of any other type doesn't compile.
template <class Value>
struct Column;

template <class Integer, AttributeType integerType>
struct IntegerColumn
{
    static constexpr AttributeType type = integerType;
    static std::string defaultSQL(Integer value) { return fmt::format("{}", value); }

    /// A foreign or damaged file may hold a number that doesn't fit; it reads as 0 rather than as another number.
    static void read(const Statement& row, int column, Integer& value)
    {
        const std::int64_t stored = row.integer(column);
        value = std::in_range<Integer>(stored) ? static_cast<Integer>(stored) : Integer{0};
    }
};

template <>
struct Column<std::int16_t> : IntegerColumn<std::int16_t, AttributeType::int16>
{
};

template <>
struct Column<std::int32_t> : IntegerColumn<std::int32_t, AttributeType::int32>
{
};

template <>
struct Column<std::int64_t> : IntegerColumn<std::int64_t, AttributeType::int64>
{
};

template <>
struct Column<bool>
{
    static constexpr AttributeType type = AttributeType::boolean;
    static std::string defaultSQL(bool value) { return value ? "1" : "0"; }
    static void read(const Statement& row, int column, bool& value) { value = row.integer(column) != 0; }
};

template <>
struct Column<std::string>
{
    static constexpr AttributeType type = AttributeType::text;

    static std::string defaultSQL(const std::string& value)
    {
        std::string literal = "'";
        for (const char character : value) {
            literal += character;
            if (character == '\'') {
                literal += '\'';
            }
        }
        return literal + '\'';
    }

    static void read(const Statement& row, int column, std::string& value) { value = row.text(column); }
};

template <>
struct Column<std::optional<UUID>>
{
    static constexpr AttributeType type = AttributeType::uuid;
    static std::string defaultSQL(const std::optional<UUID>& /*value*/) { return {}; }
    static void read(const Statement& row, int column, std::optional<UUID>& value) { value = row.uuid(column); }
};

template <>
struct Column<std::optional<Instant>>
{
    static constexpr AttributeType type = AttributeType::date;
    static std::string defaultSQL(const std::optional<Instant>& /*value*/) { return {}; }
    static void read(const Statement& row, int column, std::optional<Instant>& value) { value = row.instant(column); }
};

template <>
struct Column<Bytes>
{
    static constexpr AttributeType type = AttributeType::binary;
    static std::string defaultSQL(const Bytes& /*value*/) { return {}; }
    static void read(const Statement& row, int column, Bytes& value) { value = row.bytes(column); }
};

} // namespace Quillary
