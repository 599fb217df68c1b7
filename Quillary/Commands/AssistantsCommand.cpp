#include "Quillary/Commands/AssistantsCommand.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/Commands/AccessWord.h"
#include "Quillary/Commands/AssistantSetup.h"
#include "QuillaryCore/Assistant/Access/ActivityLog.h"
#include "QuillaryCore/Assistant/Access/AssistantSettingsFile.h"
#include "QuillaryCore/Assistant/Access/ShownText.h"
#include "QuillaryCore/Assistant/Session/MCPSession.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

/// The known assistant that a person means: by its name, else by it without regard to case and accents.
std::string meant(const AssistantSettings& settings, std::string_view typed)
{
    if (trimmed(typed).empty()) {
        throw UserError("Which assistant? Give its name as `quillary assistants` shows it.");
    }
    std::string name = ShownText::assistantName(typed);
    if (settings.find(name) == nullptr) {
        for (const KnownAssistant& known : settings.assistants) {
            if (folded(known.name) == folded(name)) {
                return known.name;
            }
        }
        // One that has not called yet goes by the name that it will have then: "claude" is "Claude".
        if (const std::string shown = MCPSession::displayName(name, ""); folded(shown) == folded(name)) {
            return shown;
        }
    }
    return name;
}

std::string localTime(Instant instant, const Calendar& calendar)
{
    const std::chrono::hh_mm_ss time(calendar.timeOfDay(instant));
    return fmt::format("{} {:02}:{:02}", isoText(calendar.date(instant)), time.hours().count(), time.minutes().count());
}

void printNames(const AssistantSettings& settings, AssistantApproval approval, const char* heading)
{
    const char* lead = heading;
    for (const KnownAssistant& known : settings.assistants) {
        if (known.approval == approval) {
            fmt::print("{}{}", std::exchange(lead, ", "), known.name);
        }
    }
    fmt::print("{}", lead == heading ? "" : "\n");
}

void printWaiting(const AssistantSettings& settings, const Calendar& calendar)
{
    for (const KnownAssistant& known : settings.assistants) {
        if (known.approval != AssistantApproval::waiting) {
            continue;
        }
        fmt::print("Waiting for your word: {}{}\n  quillary assistants allow {}\n",
                   known.name,
                   known.askedAt ? ", last seen " + localTime(*known.askedAt, calendar) : "",
                   AssistantSetup::shellWord(known.name));
    }
}

JSON names(const AssistantSettings& settings, AssistantApproval approval)
{
    JSON::Array list;
    for (const KnownAssistant& known : settings.assistants) {
        if (known.approval == approval && approval == AssistantApproval::waiting) {
            JSON entry = JSON::object({{"name", known.name}});
            if (known.askedAt) {
                entry.set("asked", ShownText::timestamp(*known.askedAt));
            }
            list.push_back(std::move(entry));
        } else if (known.approval == approval) {
            list.emplace_back(known.name);
        }
    }
    return list;
}

JSON stateAsJSON(const AssistantSettings& settings, const fs::path& helper)
{
    return JSON::object({{"on", settings.isOn},
                         {"access", AccessWord::of(settings.access)},
                         {"accessTitle", title(settings.access)},
                         {"accessDetail", detail(settings.access)},
                         {"allowed", names(settings, AssistantApproval::allowed)},
                         {"denied", names(settings, AssistantApproval::denied)},
                         {"waiting", names(settings, AssistantApproval::waiting)},
                         {"helper", helper.string()},
                         {"configuration", AssistantSetup::configuration(helper)}});
}

} // namespace

AssistantsCommand::AssistantsCommand(CLI::App& app)
    : m_app(app.add_subcommand("assistants", "Shows and sets what AI assistants may do, and how to connect one."))
    , m_on(m_app->add_subcommand("on", "Lets the assistants that you allow use Quillary."))
    , m_off(m_app->add_subcommand("off", "Refuses every call of an assistant."))
    , m_allow(m_app->add_subcommand("allow", "Allows an assistant."))
    , m_deny(m_app->add_subcommand("deny", "Refuses an assistant."))
    , m_forget(m_app->add_subcommand("forget", "Forgets an assistant: it will be asked about again."))
    , m_log(m_app->add_subcommand("log", "Lists what assistants did, the newest last."))
{
    app.add_flag("--show-assistants",
                 m_isShown,
                 "Shows what AI assistants may do: in the window, or as text where there is no screen.");
    m_app->require_subcommand(0, 1);
    m_app->add_option("--access", m_access, "What assistants may do: look, drafts or everything.")
        ->check(CLI::IsMember({"look", "drafts", "everything"}));
    m_app->add_option("--output", m_output, "How to answer: text or json.")->check(CLI::IsMember({"text", "json"}));
    for (CLI::App* command : {m_on, m_off, m_allow, m_deny, m_forget, m_log}) {
        command->fallthrough();
    }
    for (CLI::App* command : {m_allow, m_deny, m_forget}) {
        command->add_option("name", m_name, "The assistant's name as it is shown.")->required();
    }
    m_log->add_option("--limit", m_limit, "At most this many (default 20).");
}

bool AssistantsCommand::wasGiven() const
{
    return m_app->parsed() || (m_isShown && !AppEnvironment().hasDisplay());
}

bool AssistantsCommand::changesSomething() const
{
    return !m_access.empty() || std::ranges::any_of(std::array{m_on, m_off, m_allow, m_deny, m_forget},
                                                    [](const CLI::App* command) { return command->parsed(); });
}

void AssistantsCommand::apply(AssistantSettings& settings) const
{
    settings.access = AccessWord::read(m_access).value_or(settings.access);
    if (m_on->parsed() || m_off->parsed()) {
        settings.isOn = m_on->parsed();
    }
    if (m_allow->parsed() || m_deny->parsed()) {
        settings.decide(meant(settings, m_name),
                        m_allow->parsed() ? AssistantApproval::allowed : AssistantApproval::denied);
    }
    if (m_forget->parsed() && !settings.forget(meant(settings, m_name))) {
        throw UserError(
            fmt::format("There's no assistant called “{}”. `quillary assistants` shows those that are known.",
                        ShownText::assistantName(m_name)));
    }
}

void AssistantsCommand::change(AssistantSettingsFile& file) const
{
    const auto kept = file.change([this](AssistantSettings& settings) { apply(settings); });
    if (kept) {
        fmt::print(stderr, "The settings before could not be understood; they are kept as {}\n", kept->string());
    }
}

int AssistantsCommand::run(const CommandSetting& setting) const
{
    const AppEnvironment& environment = setting.environment;
    if (m_log->parsed()) {
        printLog(environment);
        return 0;
    }
    AssistantSettingsFile file(environment.configurationFolder() / AssistantSettingsFile::fileName);
    if (changesSomething()) {
        change(file);
    }
    printState(file, environment);
    return 0;
}

void AssistantsCommand::printState(AssistantSettingsFile& file, const AppEnvironment& environment) const
{
    const AssistantSettings& settings = file.current();
    const fs::path helper = AssistantSetup::helperBeside(environment.programFile());
    if (const auto& problem = file.problem()) {
        fmt::print(stderr, "{}\n", *problem);
    }
    if (answersJSON()) {
        fmt::print("{}\n", stateAsJSON(settings, helper).pretty());
        return;
    }
    fmt::print("AI assistants are turned {}.{}\n",
               settings.isOn ? "on" : "off",
               settings.isOn ? "" : " Turn them on with: quillary assistants on");
    fmt::print("Access: {} (--access {})\n  {}\n",
               title(settings.access),
               AccessWord::of(settings.access),
               detail(settings.access));
    printNames(settings, AssistantApproval::allowed, "Allowed: ");
    printNames(settings, AssistantApproval::denied, "Not allowed: ");
    printWaiting(settings, environment.calendar());
    if (!changesSomething()) {
        fmt::print("\n{}", AssistantSetup::instructions(helper));
    }
}

void AssistantsCommand::printLog(const AppEnvironment& environment) const
{
    const auto entries = ActivityLog(environment.stateFolder() / ActivityLog::fileName).last(m_limit);
    if (answersJSON()) {
        JSON::Array list;
        for (const ActivityEntry& entry : entries) {
            list.push_back(entry.json());
        }
        fmt::print("{}\n", JSON(std::move(list)).pretty());
        return;
    }
    if (entries.empty()) {
        fmt::print("No assistant has done anything yet.\n");
    }
    for (const ActivityEntry& entry : entries) {
        fmt::print("{}  {}  {}{}{}\n",
                   localTime(entry.time, environment.calendar()),
                   entry.assistant,
                   entry.summary,
                   entry.documentID ? " [" + entry.documentID->text() + "]" : "",
                   entry.outcome == CallOutcome::done ? "" : fmt::format(" ({})", text(entry.outcome)));
    }
}

} // namespace Quillary
