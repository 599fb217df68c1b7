#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace Quillary {

/// When a schedule ends, as stored in `Document::recurrenceEndRaw`.
enum class RecurrenceEnd : std::int16_t {
    never = 0,
    afterCount = 1, ///< after `Document::recurrenceEndCount` invoices
    onDate = 2,     ///< `Document::recurrenceEndDate` is the last day on which an invoice is made
};

inline constexpr std::array allRecurrenceEnds = {
    RecurrenceEnd::never, RecurrenceEnd::afterCount, RecurrenceEnd::onDate};

/// No value: a stored number that no rule has.
[[nodiscard]] std::optional<RecurrenceEnd> recurrenceEndFromRaw(std::int16_t raw);

/// "Never", "After", "On"
[[nodiscard]] std::string_view title(RecurrenceEnd end);

} // namespace Quillary
