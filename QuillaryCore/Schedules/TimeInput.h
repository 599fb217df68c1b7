#pragma once

#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Foundation/Locale.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string_view>

namespace Quillary {

/// The tolerant reader of typed times. What could mean two things is read as neither.
namespace TimeInput {

/// A length of time: "1:30", "1:30:15", "90m", "90 min", "1.5h", "1,5 hours", "1h30", "1h 30m". A number alone counts
/// hours where it has a fraction ("0.25"), and is nothing where it hasn't: 2 could be hours or minutes.
/// Unit: seconds, at most `Limits::timeSeconds`. No value: no length, or none above zero.
[[nodiscard]] std::optional<std::int64_t> duration(std::string_view text, const Locale& locale);

/// A time of the day: "9:00", "9", "09.30", "9h30", "9 am", "12:15pm", "24:00". Unit: since midnight.
[[nodiscard]] std::optional<std::chrono::minutes> timeOfDay(std::string_view text);

/// From one time of the day to another: "9:00-10:30", "9 – 10:30", "22:00 to 1:00".
struct Span
{
    std::chrono::minutes start;
    std::chrono::minutes end; ///< on the next day, above 24 hours, where it isn't after the start

    friend bool operator==(const Span&, const Span&) = default;
};

[[nodiscard]] std::optional<Span> span(std::string_view text);

/// A day: "2026-03-31", "today", "yesterday".
[[nodiscard]] std::optional<CalendarDate> day(std::string_view text, CalendarDate today);

} // namespace TimeInput

} // namespace Quillary
