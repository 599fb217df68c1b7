#include "QuillaryCore/Schedules/RecurringTemplate.h"

#include "QuillaryCore/Model/Document.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

namespace Quillary {

namespace {

using std::chrono::days;
using std::chrono::sys_days;

constexpr int lastAnchorDay = 31;

/// The day that the schedule starts on.
std::optional<CalendarDate> startDay(const Document& recurring, const Calendar& calendar)
{
    const std::optional<Instant> start = recurring.issueDate ? recurring.issueDate : recurring.nextIssueDate;
    return start ? std::optional(calendar.date(*start)) : std::nullopt;
}

int anchorDay(const Document& recurring, const Calendar& calendar)
{
    if (recurring.recurrenceAnchorDay >= 1 && recurring.recurrenceAnchorDay <= lastAnchorDay) {
        return recurring.recurrenceAnchorDay;
    }
    const std::optional<CalendarDate> start = startDay(recurring, calendar);
    return start ? static_cast<int>(unsigned{start->day()}) : 1;
}

/// "on the 31st" where the schedule goes by days of the month.
std::string dayPart(const Recurrence& recurrence)
{
    return recurrence.unit == RecurrenceUnit::week
               ? ""
               : fmt::format(" on the {}", Recurrence::ordinal(recurrence.anchorDay));
}

std::string endPart(const Document& recurring, const Calendar& calendar)
{
    switch (recurrenceEndFromRaw(recurring.recurrenceEndRaw).value_or(RecurrenceEnd::never)) {
    case RecurrenceEnd::never:
        break;
    case RecurrenceEnd::afterCount:
        return fmt::format(", {} of {} made", recurring.recurrenceCount, recurring.recurrenceEndCount);
    case RecurrenceEnd::onDate:
        return recurring.recurrenceEndDate ? ", until " + isoText(calendar.date(*recurring.recurrenceEndDate)) : "";
    }
    return {};
}

/// The dates from the next one to the last day, whether paused or not.
std::vector<CalendarDate>
datesUntil(const Document& recurring, CalendarDate lastDay, std::size_t limit, const Calendar& calendar)
{
    std::vector<CalendarDate> dates;
    if (!RecurringTemplate::isReadable(recurring)) {
        return dates;
    }
    Document ahead = recurring;
    while (dates.size() < limit && !RecurringTemplate::hasEnded(ahead, calendar)) {
        const std::optional<Instant> next = ahead.nextIssueDate;
        if (!next || calendar.date(*next) > lastDay) {
            break;
        }
        dates.push_back(calendar.date(*next));
        ahead.recurrenceCount += 1;
        RecurringTemplate::advance(ahead, dates.back(), calendar);
    }
    return dates;
}

} // namespace

std::string_view title(RecurringState state)
{
    switch (state) {
    case RecurringState::active:
        return "Active";
    case RecurringState::paused:
        return "Paused";
    case RecurringState::ended:
        return "Ended";
    }
    return {};
}

std::optional<Recurrence> RecurringTemplate::recurrence(const Document& recurring, const Calendar& calendar)
{
    const std::optional<RecurrenceUnit> unit = recurrenceUnitFromRaw(recurring.recurrenceUnitRaw);
    if (!unit) {
        return std::nullopt;
    }
    return Recurrence{.unit = *unit,
                      .interval = std::max<int>(recurring.recurrenceInterval, 1),
                      .anchorDay = anchorDay(recurring, calendar)};
}

bool RecurringTemplate::isReadable(const Document& recurring)
{
    return recurrenceUnitFromRaw(recurring.recurrenceUnitRaw) && recurrenceEndFromRaw(recurring.recurrenceEndRaw);
}

bool RecurringTemplate::hasEnded(const Document& recurring, const Calendar& calendar)
{
    if (!recurring.nextIssueDate) {
        return true;
    }
    switch (recurrenceEndFromRaw(recurring.recurrenceEndRaw).value_or(RecurrenceEnd::never)) {
    case RecurrenceEnd::never:
        break;
    case RecurrenceEnd::afterCount:
        return recurring.recurrenceCount >= recurring.recurrenceEndCount;
    case RecurrenceEnd::onDate:
        return recurring.recurrenceEndDate &&
               calendar.date(*recurring.nextIssueDate) > calendar.date(*recurring.recurrenceEndDate);
    }
    return false;
}

RecurringState RecurringTemplate::state(const Document& recurring, const Calendar& calendar)
{
    if (hasEnded(recurring, calendar)) {
        return RecurringState::ended;
    }
    return recurring.isPaused ? RecurringState::paused : RecurringState::active;
}

std::string RecurringTemplate::summary(const Document& recurring, const Calendar& calendar)
{
    const std::optional<Recurrence> schedule = recurrence(recurring, calendar);
    if (!schedule || !isReadable(recurring)) {
        return "A schedule of a newer Quillary";
    }
    return schedule->summary() + dayPart(*schedule) + endPart(recurring, calendar);
}

std::optional<Instant>
RecurringTemplate::dateAfter(const Document& recurring, CalendarDate day, const Calendar& calendar)
{
    const std::optional<Recurrence> schedule = recurrence(recurring, calendar);
    const std::optional<CalendarDate> start = startDay(recurring, calendar);
    if (!schedule || !start) {
        return std::nullopt;
    }
    const std::optional<std::int64_t> index = schedule->firstIndexAfter(day, *start);
    return index ? std::optional(calendar.storedDay(schedule->date(*index, *start))) : std::nullopt;
}

void RecurringTemplate::advance(Document& recurring, CalendarDate made, const Calendar& calendar)
{
    if (!recurring.nextIssueDate || made < calendar.date(*recurring.nextIssueDate)) {
        return;
    }
    if (!recurring.issueDate) {
        recurring.issueDate = recurring.nextIssueDate; // the start, which the dates to come are reckoned from
    }
    recurring.nextIssueDate = dateAfter(recurring, made, calendar);
}

std::vector<CalendarDate>
RecurringTemplate::dueDates(const Document& recurring, CalendarDate today, std::size_t limit, const Calendar& calendar)
{
    return recurring.isPaused ? std::vector<CalendarDate>() : datesUntil(recurring, today, limit, calendar);
}

std::vector<CalendarDate>
RecurringTemplate::nextDates(const Document& recurring, std::size_t limit, const Calendar& calendar)
{
    return datesUntil(recurring, std::chrono::year(9999) / 12 / 31, limit, calendar);
}

std::size_t
RecurringTemplate::resume(Document& recurring, CalendarDate today, MissedDates missed, const Calendar& calendar)
{
    recurring.isPaused = false;
    if (missed == MissedDates::madeUp || !recurring.nextIssueDate || hasEnded(recurring, calendar)) {
        return 0;
    }
    const std::optional<Recurrence> schedule = recurrence(recurring, calendar);
    const std::optional<CalendarDate> start = startDay(recurring, calendar);
    const CalendarDate next = calendar.date(*recurring.nextIssueDate);
    if (!schedule || !start || next >= today) {
        return 0;
    }
    const CalendarDate yesterday(sys_days(today) - days(1));
    const auto first = schedule->firstIndexAfter(next, *start);
    const auto resumed = schedule->firstIndexAfter(yesterday, *start);
    advance(recurring, yesterday, calendar);
    return first && resumed ? static_cast<std::size_t>(*resumed - *first) + 1 : 1; // the next date itself, and more
}

} // namespace Quillary
