#include "QuillaryCore/Schedules/TimeTracking.h"

#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>
#include <chrono>

namespace Quillary {

namespace {

using Reason = TimeError::Reason;

void requireSpan(Instant start, Instant end)
{
    if (end < start) {
        throw TimeError(Reason::backwards, "The end lies before the start.");
    }
    if (end - start > std::chrono::seconds(Limits::timeSeconds)) {
        throw TimeError(Reason::tooLong, "A time entry can't be longer than a million hours.");
    }
}

void requireNotInFuture(Context& context, Instant at)
{
    if (at > context.clock().now()) {
        throw TimeError(Reason::inFuture, "A timer can't start or stop in the future.");
    }
}

void requireNotBilled(const TimeEntry& entry)
{
    if (entry.invoiceID) {
        throw TimeError(Reason::billed,
                        "This time is on an invoice. Remove its line there first; an invoice that was sent keeps it.");
    }
}

TimeEntry& insert(Context& context, const TimeTracking::Work& work, Instant start)
{
    TimeEntry& entry = context.insert<TimeEntry>();
    entry.client = work.client;
    entry.project = work.project;
    entry.note = work.note;
    entry.isBillable = work.isBillable;
    entry.start = start;
    return entry;
}

template <class Value>
void take(Value& value, const std::optional<Value>& wanted)
{
    if (wanted) {
        value = *wanted;
    }
}

} // namespace

std::vector<const TimeEntry*> TimeTracking::running(Context& context)
{
    return context.fetch<TimeEntry>("\"end\" IS NULL AND start IS NOT NULL ORDER BY start, id");
}

TimeEntry& TimeTracking::start(Context& context, const Work& work, Instant at)
{
    requireNotInFuture(context, at);
    stop(context, at);
    return insert(context, work, at);
}

std::vector<const TimeEntry*> TimeTracking::stop(Context& context, Instant at)
{
    requireNotInFuture(context, at);
    std::vector<const TimeEntry*> stopped = running(context);
    for (const TimeEntry* entry : stopped) {
        const Instant start = entry->start.value_or(at);
        const Instant latest = start + std::chrono::seconds(Limits::timeSeconds);
        context.edit(*entry).end = std::clamp(at, start, latest);
    }
    return stopped;
}

TimeEntry& TimeTracking::add(Context& context, const Work& work, Instant start, Instant end)
{
    requireSpan(start, end);
    TimeEntry& entry = insert(context, work, start);
    entry.end = end;
    return entry;
}

void TimeTracking::edit(Context& context, const TimeEntry& entry, const Change& change)
{
    requireNotBilled(entry);
    const std::optional<Instant> start = change.start ? change.start : entry.start;
    const std::optional<Instant> end = change.end ? change.end : entry.end;
    if (start && end) {
        requireSpan(*start, *end);
    } else if (start) {
        requireNotInFuture(context, *start);
    }
    TimeEntry& edited = context.edit(entry);
    take(edited.client, change.client);
    take(edited.project, change.project);
    take(edited.note, change.note);
    take(edited.isBillable, change.isBillable);
    edited.start = start;
    edited.end = end;
}

void TimeTracking::erase(Context& context, const TimeEntry& entry)
{
    requireNotBilled(entry);
    context.erase(entry);
}

std::vector<const TimeEntry*> TimeTracking::overlaps(Context& context, const TimeEntry& entry, Instant now)
{
    const std::optional<Instant> end = entry.end ? entry.end : std::max(entry.start, std::optional(now));
    if (!entry.start || !end || *end <= *entry.start) {
        return {};
    }
    const Instant from = *entry.start;
    const Instant until = *end;
    std::vector<const TimeEntry*> others = context.fetch<TimeEntry>(
        "start < ?1 AND ifnull(\"end\", ?2) > ?3 AND ifnull(\"end\", ?2) > start AND id <> ?4 ORDER BY start, id",
        until,
        now,
        from,
        entry.ref.key());
    return others;
}

} // namespace Quillary
