#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Schedules/RecurrenceUnit.h"

#include <cstdint>
#include <optional>
#include <string>

namespace Quillary {

/// How often something happens, and on which day of the month.
///
/// Every date is reckoned from the start of the schedule and never from the date before it, so that a schedule on the
/// 31st returns to the 31st after February.
struct Recurrence
{
    RecurrenceUnit unit = RecurrenceUnit::month;
    int interval = 1;  ///< how many units lie between two dates; at least 1
    int anchorDay = 1; ///< 1 to 31, for months, quarters and years; a shorter month uses its last day

    /// "Every month", "Every 2 weeks"
    [[nodiscard]] std::string summary() const;

    /// "1st", "22nd", "113th"
    [[nodiscard]] static std::string ordinal(std::int64_t number);

    /// The date of the n-th step after the start, for negative `n` of a step before it. Weeks count days; months,
    /// quarters and years take the anchor day of the month they lead to, step 0 that of the start's own month. A date
    /// outside the years 0 to 9999 is the start.
    [[nodiscard]] CalendarDate date(std::int64_t n, CalendarDate start) const;

    /// The same from the day on which an instant falls, as `Calendar::storedDay`.
    [[nodiscard]] Instant date(std::int64_t n, Instant start, const Calendar& calendar) const;

    /// The first n, from 0, whose date lies after a day; found by division. No value: none within the years.
    [[nodiscard]] std::optional<std::int64_t> firstIndexAfter(CalendarDate day, CalendarDate start) const;

    friend bool operator==(const Recurrence&, const Recurrence&) = default;

private:
    /// No value: outside the years.
    [[nodiscard]] std::optional<CalendarDate> dateWithinYears(std::int64_t n, CalendarDate start) const;
    [[nodiscard]] std::int64_t monthsPerStep() const;
};

} // namespace Quillary
