#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

/// A point in time. Unit: milliseconds since 1970-01-01 00:00 UTC.
using Instant = std::chrono::sys_time<std::chrono::milliseconds>;

/// A day of the Gregorian calendar, without a time zone.
using CalendarDate = std::chrono::year_month_day;

/// A day as "YYYY-MM-DD". Years 0 to 9999.
[[nodiscard]] std::string isoText(CalendarDate date);

/// Reads exactly "YYYY-MM-DD" (ISO 8601). No value: any other text, or a day that does not exist.
[[nodiscard]] std::optional<CalendarDate> parseISODate(std::string_view text);

} // namespace Quillary
