#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace Quillary {

/// What a schedule counts in, as stored in `Document::recurrenceUnitRaw`.
enum class RecurrenceUnit : std::int16_t {
    week = 0,
    month = 1,
    quarter = 2,
    year = 3,
};

inline constexpr std::array allRecurrenceUnits = {
    RecurrenceUnit::week, RecurrenceUnit::month, RecurrenceUnit::quarter, RecurrenceUnit::year};

/// No value: a stored number that no unit has.
[[nodiscard]] std::optional<RecurrenceUnit> recurrenceUnitFromRaw(std::int16_t raw);

/// "week" for a count of 1, else "weeks".
[[nodiscard]] std::string_view title(RecurrenceUnit unit, std::int64_t count);

} // namespace Quillary
