#include "Quillary/Commands/CommandSession.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/Commands/RecordLookup.h"
#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Tools/Arguments.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/Project.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <cstdio>

namespace Quillary {

CommandSession::CommandSession(const CommandSetting& setting)
    : m_library(setting.library, setting.environment)
    , m_host(setting.environment)
    , m_environment(m_library.actionsEnvironment(setting.environment, m_host))
{
}

int CommandSession::run(const CommandSetting& setting, const std::string& output, const Work& work)
{
    CommandAnswer answer;
    {
        CommandSession session(setting);
        answer = work(session);
        session.m_library.backUpIfDue(setting.environment);
    }
    if (output == "json") {
        fmt::print("{}\n", answer.data.pretty());
    } else {
        fmt::print("{}", answer.text);
    }
    fmt::print(stderr, "{}", answer.complaint);
    return answer.complaint.empty() ? 0 : 1;
}

void CommandSession::addOutput(CLI::App& command, std::string& output)
{
    command.add_option("--output", output, "How to answer: text or json.")->check(CLI::IsMember({"text", "json"}));
}

Instant CommandSession::day(const std::string& typed) const
{
    const Calendar& calendar = m_environment.calendar;
    if (typed.empty()) {
        return calendar.storedDay(calendar.date(now()));
    }
    const std::optional<CalendarDate> date = documentDate(typed);
    if (!date) {
        throw UserError(fmt::format("“{}” is no day; write it as YYYY-MM-DD.", typed));
    }
    return calendar.storedDay(*date);
}

const Document& CommandSession::document(std::string_view asked)
{
    return Lookup::document(m_environment, asked);
}

const Client& CommandSession::client(std::string_view asked)
{
    return Lookup::client(m_environment, asked);
}

const Project& CommandSession::project(std::string_view asked)
{
    return RecordLookup::find<Project>(
        context(), asked, "project", "project", [](const Project& project) { return project.name; });
}

JSON CommandSession::typed(std::initializer_list<std::pair<std::string_view, const std::string&>> values)
{
    JSON given = JSON::object({});
    for (const auto& [name, value] : values) {
        if (!value.empty()) {
            given.set(name, value);
        }
    }
    return given;
}

} // namespace Quillary
