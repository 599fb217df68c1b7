#include "QuillaryCore/Schedules/WorkTimes.h"

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Schedules/TimeInput.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <optional>

namespace Quillary {

namespace {

using std::chrono::hours;
using std::chrono::seconds;

constexpr hours usualStart{9};

CalendarDate dayAfter(CalendarDate day)
{
    return std::chrono::sys_days(day) + std::chrono::days(1);
}

WorkTimes lengthOn(Context& context, CalendarDate day, std::int64_t length, const WorkTimes::Setting& setting)
{
    const Calendar& calendar = setting.calendar;
    if (day == calendar.date(setting.now)) {
        return {.start = setting.now - seconds(length), .end = setting.now};
    }
    Instant start = calendar.instant(day, usualStart);
    const auto ofDay = context.fetch<TimeEntry>(
        "start >= ? AND start < ?", calendar.startOfDay(day), calendar.startOfDay(dayAfter(day)));
    for (const TimeEntry* entry : ofDay) {
        start = std::max(start, entry->end.value_or(start));
    }
    return {.start = start, .end = start + seconds(length)};
}

} // namespace

WorkTimes WorkTimes::read(Context& context, std::string_view text, CalendarDate day, const Setting& setting)
{
    const Calendar& calendar = setting.calendar;
    if (const std::optional<TimeInput::Span> span = TimeInput::span(text)) {
        const bool isOverMidnight = span->end >= hours(24);
        return {.start = calendar.instant(day, span->start),
                .end = isOverMidnight ? calendar.instant(dayAfter(day), span->end - hours(24))
                                      : calendar.instant(day, span->end)};
    }
    const std::optional<std::int64_t> length = TimeInput::duration(text, setting.locale);
    if (!length) {
        throw UserError(fmt::format(
            "“{}” is no time. Write from when to when, like 9:00-10:30, or how long, like 1:30 or 90m.", text));
    }
    return lengthOn(context, day, *length, setting);
}

WorkTimes WorkTimes::readFor(
    Context& context, const TimeEntry& entry, std::string_view text, CalendarDate day, const Setting& setting)
{
    const std::optional<std::int64_t> length =
        TimeInput::span(text) ? std::nullopt : TimeInput::duration(text, setting.locale);
    if (!length || !entry.start) {
        return read(context, text, day, setting);
    }
    const Instant start = setting.calendar.instant(day, setting.calendar.timeOfDay(*entry.start));
    return {.start = start, .end = start + seconds(*length)};
}

} // namespace Quillary
