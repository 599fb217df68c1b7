#include "Quillary/Commands/TimeDesk.h"

#include "Quillary/TextTable.h"
#include "QuillaryCore/Assistant/Access/ShownText.h"
#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Schedules/TimeInvoicing.h"
#include "QuillaryCore/Schedules/TimeMath.h"
#include "QuillaryCore/Schedules/TimeTracking.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

namespace Quillary {

namespace {

using std::chrono::minutes;

constexpr std::size_t shownDigits = 8; ///< of an entry's id
constexpr std::size_t fewestDigits = 4;
constexpr std::size_t widestText = 40;
constexpr std::size_t longestSentence = 300; ///< Unit: characters

std::string shortID(const TimeEntry& entry)
{
    return entry.uuid ? entry.uuid->text().substr(0, shownDigits) : "";
}

} // namespace

Ref<Client> TimeDesk::client(std::string_view name) const
{
    return trimmed(name).empty() ? Ref<Client>() : Lookup::client(m_environment, name).ref;
}

Ref<Project> TimeDesk::project(std::string_view name) const
{
    return trimmed(name).empty() ? Ref<Project>() : Lookup::project(context(), name).ref;
}

CalendarDate TimeDesk::day(std::string_view text) const
{
    const std::optional<CalendarDate> day = TimeInput::day(text, today());
    if (!day) {
        throw UserError(fmt::format("“{}” is no day. Write it like 2026-03-31, or today or yesterday.", text));
    }
    return *day;
}

Instant TimeDesk::momentOfToday(std::string_view text) const
{
    const std::optional<minutes> time = TimeInput::timeOfDay(text);
    if (!time) {
        throw UserError(fmt::format("“{}” is no time of the day. Write it like 9:30.", text));
    }
    return m_environment.calendar.instant(today(), *time);
}

WorkTimes TimeDesk::times(std::string_view text, CalendarDate day) const
{
    return WorkTimes::read(
        context(), text, day, {.now = now(), .calendar = m_environment.calendar, .locale = m_environment.locale});
}

const TimeEntry& TimeDesk::entry(std::string_view asked) const
{
    const std::string wanted = upperCasedASCII(trimmed(asked));
    if (wanted == "LAST") {
        if (const TimeEntry* last = context().first<TimeEntry>("start IS NOT NULL ORDER BY start DESC, id DESC")) {
            return *last;
        }
        throw UserError("There are no time entries yet.");
    }
    std::vector<const TimeEntry*> found;
    if (const std::optional<UUID> uuid = Lookup::idIn(wanted)) {
        found = context().fetch<TimeEntry>("uuid = ?", *uuid);
    } else if (wanted.size() >= fewestDigits) {
        std::vector<Ref<TimeEntry>> keys;
        context().query("SELECT id, uuid FROM TimeEntry", [&](const Statement& row) {
            const std::optional<UUID> id = row.uuid(1);
            if (id && id->text().starts_with(wanted)) {
                keys.emplace_back(row.integer(0));
            }
        });
        for (const Ref<TimeEntry> key : keys) {
            found.push_back(context().find(key));
        }
    }
    if (found.empty()) {
        throw UserError(fmt::format("There's no time entry “{}”. “quillary time list” shows their ids.", asked));
    }
    if (found.size() > 1) {
        throw UserError(fmt::format("“{}” fits several time entries. Give more of the id.", asked));
    }
    return *found.front();
}

std::string TimeDesk::clockText(Instant instant) const
{
    const auto time = std::chrono::floor<minutes>(m_environment.calendar.timeOfDay(instant)).count();
    return fmt::format("{}:{:02}", time / 60, time % 60);
}

std::string TimeDesk::timesText(const TimeEntry& entry) const
{
    if (!entry.start) {
        return {};
    }
    return fmt::format("{}–{}", clockText(*entry.start), entry.end ? clockText(*entry.end) : "");
}

std::string TimeDesk::clientName(const TimeEntry& entry) const
{
    const Client* client = context().find(entry.client);
    return client == nullptr ? "" : displayName(*client);
}

std::string TimeDesk::projectName(const TimeEntry& entry) const
{
    const Project* project = context().find(entry.project);
    return project == nullptr ? "" : project->name;
}

std::string TimeDesk::billedOn(const TimeEntry& entry) const
{
    const Document* invoice = entry.invoiceID ? context().find<Document>(*entry.invoiceID) : nullptr;
    if (invoice != nullptr) {
        return invoice->number.empty() ? "on a draft" : invoice->number;
    }
    return entry.isBillable ? "" : "not billable";
}

std::string TimeDesk::sentence(const TimeEntry& entry) const
{
    std::vector<std::string> parts;
    if (entry.start) {
        const std::string day = isoText(m_environment.calendar.date(*entry.start));
        parts.push_back(entry.end ? fmt::format("{} {}", day, timesText(entry))
                                  : fmt::format("{} since {}", day, clockText(*entry.start)));
    }
    if (entry.end) {
        parts.push_back(TimeMath::hoursAndMinutes(TimeInvoicing::duration(entry, now())) + " h");
    }
    parts.push_back(clientName(entry));
    parts.push_back(projectName(entry));
    parts.push_back(entry.note);
    std::erase(parts, "");
    return fmt::format(
        "{} [{}]", ShownText::line(fmt::format("{}", fmt::join(parts, ", ")), longestSentence), shortID(entry));
}

std::string TimeDesk::table(const std::vector<const TimeEntry*>& entries) const
{
    TextTable table({{.heading = "Id"},
                     {.heading = "Day"},
                     {.heading = "Time", .alignment = TextTable::Alignment::right},
                     {.heading = "Hours", .alignment = TextTable::Alignment::right},
                     {.heading = "Client", .widest = widestText},
                     {.heading = "Project", .widest = widestText},
                     {.heading = "Note", .widest = widestText},
                     {.heading = "Billed"}});
    std::int64_t sum = 0;
    for (const TimeEntry* entry : entries) {
        const std::int64_t length = std::max<std::int64_t>(TimeInvoicing::duration(*entry, now()), 0);
        sum = checkedAdd(sum, length);
        table.addRow({shortID(*entry),
                      entry->start ? isoText(m_environment.calendar.date(*entry->start)) : "",
                      timesText(*entry),
                      TimeMath::hoursAndMinutes(length),
                      clientName(*entry),
                      projectName(*entry),
                      entry->note,
                      billedOn(*entry)});
    }
    table.addRule();
    table.addRow({"", "", "", TimeMath::hoursAndMinutes(sum)});
    return table.text();
}

JSON TimeDesk::data(const TimeEntry& entry) const
{
    const auto instant = [](const std::optional<Instant>& value) {
        return value ? JSON(ShownText::timestamp(*value)) : JSON();
    };
    const auto named = [](const std::string& name) {
        return name.empty() ? JSON() : JSON(name);
    };
    return JSON::object({{"id", entry.uuid ? JSON(entry.uuid->text()) : JSON()},
                         {"start", instant(entry.start)},
                         {"end", instant(entry.end)},
                         {"seconds", std::max<std::int64_t>(TimeInvoicing::duration(entry, now()), 0)},
                         {"client", named(clientName(entry))},
                         {"project", named(projectName(entry))},
                         {"note", entry.note},
                         {"billable", entry.isBillable},
                         {"invoice_id", entry.invoiceID ? JSON(entry.invoiceID->text()) : JSON()}});
}

JSON TimeDesk::data(const std::vector<const TimeEntry*>& entries) const
{
    JSON::Array list;
    for (const TimeEntry* entry : entries) {
        list.push_back(data(*entry));
    }
    return JSON::object({{"entries", std::move(list)}});
}

std::string TimeDesk::overlapWarning(const TimeEntry& entry) const
{
    std::string warning;
    for (const TimeEntry* other : TimeTracking::overlaps(context(), entry, now())) {
        warning += fmt::format("Counts some of the same time: {}\n", sentence(*other));
    }
    return warning;
}

} // namespace Quillary
