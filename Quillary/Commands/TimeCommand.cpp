#include "Quillary/Commands/TimeCommand.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/Commands/TimeDesk.h"
#include "Quillary/OpenLibrary.h"
#include "Quillary/PrintingHost.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Schedules/TimeInvoicing.h"
#include "QuillaryCore/Schedules/TimeMath.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace Quillary {

namespace {

constexpr const char* timeHelp = "From when to when (9:00-10:30), or how long (1:30, 90m, 1.5h).";

/// An empty text is a value too, which optional values of the parser's own are not.
CLI::Option*
addText(CLI::App* command, const char* name, std::optional<std::string>& value, const std::string& description)
{
    return command->add_option_function<std::string>(
        name, [&value](const std::string& text) { value = text; }, description);
}

std::string joined(const std::vector<std::string>& words)
{
    return fmt::format("{}", fmt::join(words, " "));
}

} // namespace

TimeCommand::TimeCommand(CLI::App& app)
    : m_app(app.add_subcommand("time", "Records working time and bills it."))
{
    m_app->require_subcommand(1);
    m_app->add_option("--output", m_output, "How to answer: text or json.")->check(CLI::IsMember({"text", "json"}));
    addTimer();
    addEntries();
    addInvoice();
}

CLI::App* TimeCommand::add(const char* name, const char* description, Action action)
{
    CLI::App* command = m_app->add_subcommand(name, description);
    command->fallthrough();
    m_actions[command] = action;
    return command;
}

void TimeCommand::addWork(CLI::App* command)
{
    addText(command, "--client", m_client, "Whose work it is: a name or an id; empty for nobody's.");
    addText(command, "--project", m_project, "The project: a name or an id; empty for none.");
    command->add_option("--billable", m_isBillable, "Whether it will be billed (true or false).");
}

void TimeCommand::addFilter(CLI::App* command)
{
    addText(command, "--project", m_project, "Only of this project; empty for time of none.");
    addText(command, "--from", m_from, "Only from this day on: 2026-03-31, today or yesterday.");
    addText(command, "--until", m_until, "Only up to this day.");
}

void TimeCommand::addTimer()
{
    CLI::App* start = add("start", "Starts the timer; one that runs is stopped.", &TimeCommand::start);
    addText(start, "note", m_note, "What it is about.");
    addWork(start);
    CLI::App* stop = add("stop", "Stops the timer.", &TimeCommand::stop);
    for (CLI::App* command : {start, stop}) {
        addText(command, "--at", m_at, "When it was, today, such as 9:15; now by default.");
    }
    add("status", "Shows the timer and the hours of today.", &TimeCommand::status);
}

void TimeCommand::addEntries()
{
    CLI::App* record = add("add", "Records time that has passed.", &TimeCommand::record);
    addText(record, "time", m_time, timeHelp)->required();
    addText(record, "note", m_note, "What it was about.");
    addWork(record);
    CLI::App* list = add("list", "Lists the entries, the oldest first.", &TimeCommand::list);
    addText(list, "--client", m_client, "Only of this client; empty for time of none.");
    addFilter(list);
    list->add_flag("--unbilled", m_isUnbilled, "Only what can still be billed.");
    CLI::App* edit = add("edit", "Changes an entry that is on no invoice.", &TimeCommand::edit);
    edit->add_option("entry", m_entries, "Its id as the list shows it, or last.")->required()->expected(1);
    addText(edit, "--time", m_time, timeHelp);
    addText(edit, "--note", m_note, "What it was about.");
    addWork(edit);
    for (CLI::App* command : {record, edit}) {
        addText(command, "--date", m_date, "The day: 2026-03-31, today or yesterday.");
    }
    add("delete", "Deletes entries that are on no invoice.", &TimeCommand::erase)
        ->add_option("entries", m_entries, "Their ids as the list shows them, or last.")
        ->required();
}

void TimeCommand::addInvoice()
{
    CLI::App* invoice =
        add("invoice", "Bills a client's time on a new draft, or on one there is.", &TimeCommand::invoice);
    addText(invoice, "--client", m_client, "Whose time: a name or an id.");
    addFilter(invoice);
    addText(invoice, "--document", m_document, "The draft to add to: its number or id.");
    std::vector<std::string> groupings;
    groupings.reserve(TimeInvoicing::allGroupings.size());
    for (const TimeInvoicing::Grouping grouping : TimeInvoicing::allGroupings) {
        groupings.emplace_back(TimeInvoicing::rawText(grouping));
    }
    addText(invoice, "--grouping", m_grouping, "The lines: for each entry, for each project, or one for all.")
        ->check(CLI::IsMember(groupings, CLI::ignore_case));
    invoice->add_option("--rounding", m_rounding, "Rounds each entry up to so many minutes; the business's by default.")
        ->check(CLI::IsMember(TimeMath::roundingChoices));
}

bool TimeCommand::wasGiven() const
{
    return m_app->parsed();
}

int TimeCommand::run(const CommandSetting& setting) const
{
    const auto chosen = std::ranges::find_if(m_actions, [](const auto& action) { return action.first->parsed(); });
    Answer answer;
    {
        OpenLibrary library(setting.library, setting.environment);
        PrintingHost host(setting.environment);
        const AssistantEnvironment environment = library.actionsEnvironment(setting.environment, host);
        TimeDesk desk(environment);
        answer = (this->*chosen->second)(desk);
        library.backUpIfDue(setting.environment);
    }
    fmt::print("{}", answer.text);
    fmt::print(stderr, "{}", answer.warning);
    return 0;
}

TimeTracking::Work TimeCommand::work(TimeDesk& desk) const
{
    return {.client = desk.client(m_client.value_or("")),
            .project = desk.project(m_project.value_or("")),
            .note = m_note.value_or(""),
            .isBillable = m_isBillable.value_or(true)};
}

TimeCommand::Answer TimeCommand::start(TimeDesk& desk) const
{
    const TimeTracking::Work work = this->work(desk);
    const Instant at = m_at ? desk.momentOfToday(*m_at) : desk.now();
    const std::vector<const TimeEntry*> before = TimeTracking::running(desk.context());
    auto scope = desk.context().beginScope("Start timer");
    const TimeEntry& entry = TimeTracking::start(desk.context(), work, at);
    scope.commit();
    Answer answer{.text = isJSON() ? desk.data(entry).pretty() + "\n" : "", .warning = desk.overlapWarning(entry)};
    if (!isJSON()) {
        for (const TimeEntry* stopped : before) {
            answer.text += "Stopped " + desk.sentence(*stopped) + "\n";
        }
        answer.text += "Started " + desk.sentence(entry) + "\n";
    }
    return answer;
}

TimeCommand::Answer TimeCommand::stop(TimeDesk& desk) const
{
    auto scope = desk.context().beginScope("Stop timer");
    const std::vector<const TimeEntry*> stopped =
        TimeTracking::stop(desk.context(), m_at ? desk.momentOfToday(*m_at) : desk.now());
    if (stopped.empty()) {
        throw UserError("No timer is running.");
    }
    scope.commit();
    Answer answer{.text = isJSON() ? desk.data(stopped).pretty() + "\n" : "", .warning = {}};
    for (const TimeEntry* entry : stopped) {
        answer.text += isJSON() ? "" : "Stopped " + desk.sentence(*entry) + "\n";
        answer.warning += desk.overlapWarning(*entry);
    }
    return answer;
}

TimeCommand::Answer TimeCommand::status(TimeDesk& desk) const
{
    const Calendar& calendar = desk.environment().calendar;
    const std::vector<const TimeEntry*> running = TimeTracking::running(desk.context());
    std::int64_t today = 0;
    for (const TimeEntry* entry : desk.context().fetch<TimeEntry>("start >= ?", calendar.startOfDay(desk.today()))) {
        today += std::max<std::int64_t>(TimeInvoicing::duration(*entry, desk.now()), 0);
    }
    if (isJSON()) {
        JSON data = desk.data(running);
        data.set("seconds_today", today);
        return {.text = data.pretty() + "\n", .warning = {}};
    }
    std::string text = running.empty() ? "No timer is running.\n" : "";
    for (const TimeEntry* entry : running) {
        text += fmt::format(
            "{}  {}\n", TimeMath::clock(TimeInvoicing::duration(*entry, desk.now())), desk.sentence(*entry));
    }
    return {.text = text + fmt::format("Today: {} h\n", TimeMath::hoursAndMinutes(today)), .warning = {}};
}

TimeCommand::Answer TimeCommand::record(TimeDesk& desk) const
{
    const TimeTracking::Work work = this->work(desk);
    const WorkTimes times = desk.times(m_time.value_or(std::string()), m_date ? desk.day(*m_date) : desk.today());
    auto scope = desk.context().beginScope("Add time");
    const TimeEntry& entry = TimeTracking::add(desk.context(), work, times.start, times.end);
    scope.commit();
    return {.text = isJSON() ? desk.data(entry).pretty() + "\n" : "Added " + desk.sentence(entry) + "\n",
            .warning = desk.overlapWarning(entry)};
}

TimeCommand::Answer TimeCommand::list(TimeDesk& desk) const
{
    const Calendar& calendar = desk.environment().calendar;
    const auto startOf = [&](const std::string& text, int days) {
        return calendar.startOfDay(calendar.addingDays(calendar.storedDay(desk.day(text)), days));
    };
    const std::int64_t client = m_client ? desk.client(*m_client).key() : -1;
    const std::int64_t project = m_project ? desk.project(*m_project).key() : -1;
    const Instant from = m_from ? startOf(*m_from, 0) : Instant::min();
    const Instant until = m_until ? startOf(*m_until, 1) : Instant::max();
    const std::vector<const TimeEntry*> entries = desk.context().fetch<TimeEntry>(
        "(?1 < 0 OR client = ?1) AND (?2 < 0 OR project = ?2) AND start >= ?3 AND start < ?4 AND (NOT ?5 OR "
        "(isBillable AND invoiceID IS NULL AND \"end\" IS NOT NULL)) ORDER BY start, id",
        client,
        project,
        from,
        until,
        m_isUnbilled);
    if (isJSON()) {
        return {.text = desk.data(entries).pretty() + "\n", .warning = {}};
    }
    return {.text = entries.empty() ? "There is no such time.\n" : desk.table(entries), .warning = {}};
}

TimeTracking::Change TimeCommand::change(TimeDesk& desk, const TimeEntry& entry) const
{
    const Calendar& calendar = desk.environment().calendar;
    TimeTracking::Change change;
    if (m_client) {
        change.client = desk.client(*m_client);
    }
    if (m_project) {
        change.project = desk.project(*m_project);
    }
    change.note = m_note;
    change.isBillable = m_isBillable;
    if (!entry.start) {
        return change;
    }
    const CalendarDate day = m_date ? desk.day(*m_date) : calendar.date(*entry.start);
    const auto span = m_time ? TimeInput::span(*m_time) : std::nullopt;
    const auto length = m_time && !span ? TimeInput::duration(*m_time, desk.environment().locale) : std::nullopt;
    if (m_time && !length) {
        const WorkTimes times = desk.times(*m_time, day);
        change.start = times.start;
        change.end = times.end;
        return change;
    }
    if (m_date) { // the same time of another day, and as long
        change.start = calendar.instant(day, calendar.timeOfDay(*entry.start));
    }
    const Instant start = change.start.value_or(*entry.start);
    if (length) {
        change.end = start + std::chrono::seconds(*length);
    } else if (m_date && entry.end) {
        change.end = start + (*entry.end - *entry.start);
    }
    return change;
}

TimeCommand::Answer TimeCommand::edit(TimeDesk& desk) const
{
    const TimeEntry& entry = desk.entry(joined(m_entries));
    const TimeTracking::Change change = this->change(desk, entry);
    auto scope = desk.context().beginScope("Change time");
    TimeTracking::edit(desk.context(), entry, change);
    scope.commit();
    return {.text = isJSON() ? desk.data(entry).pretty() + "\n" : "Now " + desk.sentence(entry) + "\n",
            .warning = desk.overlapWarning(entry)};
}

TimeCommand::Answer TimeCommand::erase(TimeDesk& desk) const
{
    std::string text;
    auto scope = desk.context().beginScope("Delete time");
    for (const std::string& asked : m_entries) {
        const TimeEntry& entry = desk.entry(asked);
        text += "Deleted " + desk.sentence(entry) + "\n";
        TimeTracking::erase(desk.context(), entry);
    }
    scope.commit();
    return {.text = isJSON() ? "{}\n" : text, .warning = {}};
}

} // namespace Quillary
