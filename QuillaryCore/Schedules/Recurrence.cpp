#include "QuillaryCore/Schedules/Recurrence.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

namespace Quillary {

namespace {

using std::chrono::days;
using std::chrono::sys_days;

constexpr std::int64_t daysPerWeek = 7;
constexpr std::int64_t monthsPerYear = 12;

/// Months since January of the year 0.
constexpr std::int64_t lastMonth = 9999 * monthsPerYear + 11;

std::int64_t monthNumber(CalendarDate date)
{
    return int{date.year()} * monthsPerYear + unsigned{date.month()} - 1;
}

/// Rounded down, also below zero. `divisor` is above zero.
std::int64_t quotient(std::int64_t value, std::int64_t divisor)
{
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

} // namespace

std::string Recurrence::summary() const
{
    return interval == 1 ? fmt::format("Every {}", title(unit, 1))
                         : fmt::format("Every {} {}", interval, title(unit, interval));
}

std::string Recurrence::ordinal(std::int64_t number)
{
    const std::int64_t lastTwo = number < 0 ? -(number % 100) : number % 100;
    const bool isTeen = lastTwo >= 11 && lastTwo <= 13;
    switch (isTeen ? 0 : lastTwo % 10) {
    case 1:
        return fmt::format("{}st", number);
    case 2:
        return fmt::format("{}nd", number);
    case 3:
        return fmt::format("{}rd", number);
    default:
        return fmt::format("{}th", number);
    }
}

std::int64_t Recurrence::monthsPerStep() const
{
    switch (unit) {
    case RecurrenceUnit::week:
        break;
    case RecurrenceUnit::month:
        return interval;
    case RecurrenceUnit::quarter:
        return std::int64_t{3} * interval;
    case RecurrenceUnit::year:
        return monthsPerYear * interval;
    }
    return 0;
}

std::optional<CalendarDate> Recurrence::dateWithinYears(std::int64_t n, CalendarDate start) const
{
    // In 128 bits no product of the two leaves its range, whatever was stored.
    if (unit == RecurrenceUnit::week) {
        const Int128 number = Int128{sys_days(start).time_since_epoch().count()} + Int128{n} * daysPerWeek * interval;
        constexpr std::int64_t first = sys_days(std::chrono::year(0) / 1 / 1).time_since_epoch().count();
        constexpr std::int64_t last = sys_days(std::chrono::year(9999) / 12 / 31).time_since_epoch().count();
        if (number < first || number > last) {
            return std::nullopt;
        }
        return CalendarDate(sys_days(days(static_cast<int>(number))));
    }
    const Int128 number = Int128{monthNumber(start)} + Int128{n} * monthsPerStep();
    if (number < 0 || number > lastMonth) {
        return std::nullopt;
    }
    const auto month = static_cast<std::int64_t>(number);
    const std::chrono::year_month yearMonth = std::chrono::year(static_cast<int>(month / monthsPerYear)) /
                                              std::chrono::month(static_cast<unsigned>(month % monthsPerYear + 1));
    const std::chrono::day lastDay = (yearMonth / std::chrono::last).day();
    return yearMonth / std::min(std::chrono::day(static_cast<unsigned>(anchorDay)), lastDay);
}

CalendarDate Recurrence::date(std::int64_t n, CalendarDate start) const
{
    return dateWithinYears(n, start).value_or(start);
}

Instant Recurrence::date(std::int64_t n, Instant start, const Calendar& calendar) const
{
    return calendar.storedDay(date(n, calendar.date(start)));
}

std::optional<std::int64_t> Recurrence::firstIndexAfter(CalendarDate day, CalendarDate start) const
{
    std::int64_t near = 0;
    if (unit == RecurrenceUnit::week) {
        near = quotient((sys_days(day) - sys_days(start)).count(), daysPerWeek * interval);
    } else {
        near = quotient(monthNumber(day) - monthNumber(start), monthsPerStep());
    }
    // The date of `near` lies in the day's own period or before it, so the next one after the day is this or the next.
    for (std::int64_t n = std::max<std::int64_t>(near, 0);; ++n) {
        const std::optional<CalendarDate> found = dateWithinYears(n, start);
        if (!found || *found > day) {
            return found ? std::optional(n) : std::nullopt;
        }
    }
}

} // namespace Quillary
