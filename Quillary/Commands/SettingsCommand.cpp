#include "Quillary/Commands/SettingsCommand.h"

#include "Quillary/Commands/CommandSession.h"
#include "Quillary/TextTable.h"
#include "QuillaryCore/Assistant/Operations/BusinessSettings.h"
#include "QuillaryCore/Foundation/Files.h"
#include "QuillaryUI/Printing/LogoImage.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <utility>

namespace Quillary {

namespace {

constexpr std::size_t widestValue = 60;

JSON dataOf(const BusinessSettings::Entry& entry)
{
    JSON data = JSON::object({{"name", entry.name}, {"value", entry.value}});
    if (!entry.note.empty()) {
        data.set("note", entry.note);
    }
    return data;
}

/// "hourly_rate: 90.00", with what follows from it.
std::string lineOf(const BusinessSettings::Entry& entry)
{
    return fmt::format("{}: {}{}\n", entry.name, entry.text, entry.note.empty() ? "" : "\n  " + entry.note);
}

/// A picture becomes the PNG that is kept of it; no file takes the logo off.
void setLogo(CommandSession& session, const std::string& file)
{
    Bytes png;
    if (!file.empty()) {
        const std::string bytes = readFile(file, LogoImage::maximumFileBytes);
        png = session.host().logo(Bytes(bytes.begin(), bytes.end()));
    }
    BusinessSettings::setLogo(session.environment(), std::move(png));
}

} // namespace

SettingsCommand::SettingsCommand(CLI::App& app)
    : m_app(app.add_subcommand("settings", "Shows and sets what your documents are made with."))
    , m_list(m_app->add_subcommand("list", "Lists all settings."))
    , m_get(m_app->add_subcommand("get", "Prints one setting."))
    , m_set(m_app->add_subcommand("set", "Sets one setting; an empty text clears it."))
{
    m_app->require_subcommand(1);
    CommandSession::addOutput(*m_app, m_output);
    for (CLI::App* command : {m_list, m_get, m_set}) {
        command->fallthrough();
    }
    for (CLI::App* command : {m_get, m_set}) {
        command->add_option("name", m_name, "The setting as “list” names it.")->required();
    }
    m_set->add_option("value", m_value, "Its value; of the logo a PNG, JPEG, WebP or SVG file.")->required();
}

bool SettingsCommand::wasGiven() const
{
    return m_app->parsed();
}

int SettingsCommand::run(const CommandSetting& setting) const
{
    return CommandSession::run(setting, m_output, [this](CommandSession& session) {
        return m_list->parsed() ? list(session) : m_get->parsed() ? get(session) : set(session);
    });
}

CommandAnswer SettingsCommand::list(CommandSession& session) const
{
    TextTable table({{.heading = "Setting"}, {.heading = "Value", .widest = widestValue}, {.heading = ""}});
    JSON::Array list;
    for (const BusinessSettings::Entry& entry : BusinessSettings::all(session.environment())) {
        table.addRow({entry.name, entry.text, entry.note});
        list.push_back(dataOf(entry));
    }
    return {.text = table.text(), .data = JSON::object({{"settings", std::move(list)}})};
}

CommandAnswer SettingsCommand::get(CommandSession& session) const
{
    const BusinessSettings::Entry entry = BusinessSettings::entry(session.environment(), m_name);
    return {.text = lineOf(entry), .data = dataOf(entry)};
}

CommandAnswer SettingsCommand::set(CommandSession& session) const
{
    auto scope = session.context().beginScope("Settings");
    const std::string name = BusinessSettings::nameOf(m_name);
    if (name == BusinessSettings::logo) {
        setLogo(session, m_value);
    } else {
        BusinessSettings::set(session.environment(), name, m_value);
    }
    scope.commit();
    const BusinessSettings::Entry entry = BusinessSettings::entry(session.environment(), name);
    return {.text = lineOf(entry), .data = dataOf(entry)};
}

} // namespace Quillary
