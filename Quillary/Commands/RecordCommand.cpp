#include "Quillary/Commands/RecordCommand.h"

#include "Quillary/Commands/CommandSession.h"
#include "Quillary/Commands/RecordLookup.h"
#include "Quillary/TextTable.h"
#include "QuillaryCore/Assistant/Operations/RecordFields.h"
#include "QuillaryCore/Foundation/PlainText.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/CatalogItem.h"
#include "QuillaryCore/Model/CustomUnit.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Model/TaxRate.h"
#include "QuillaryCore/Model/TextPreset.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace Quillary {

namespace {

constexpr std::size_t widestCell = 50;

/// "yes" and "no" where a flag is set; everything else as it was typed.
JSON typedValue(bool isFlag, const std::string& typed)
{
    const std::string word = lowerCasedASCII(typed);
    if (isFlag && (word == "yes" || word == "true" || word == "on")) {
        return true;
    }
    if (isFlag && (word == "no" || word == "false" || word == "off")) {
        return false;
    }
    return typed;
}

/// "tax_rate" gives "Tax rate".
std::string heading(std::string_view field)
{
    std::string text = replacing(field, "_", " ");
    return text.empty() ? text : upperCasedASCII(text.substr(0, 1)) + text.substr(1);
}

/// In the user's order where there is one, else by name.
template <class Record>
std::vector<const Record*> sorted(CommandSession& session)
{
    std::vector<const Record*> records = session.context().fetch<Record>("");
    std::ranges::stable_sort(records, {}, [&](const Record* record) {
        if constexpr (requires { record->sortIndex; }) {
            return record->sortIndex;
        } else {
            return folded(recordFields<Record>().front().text(session.environment(), *record));
        }
    });
    return records;
}

} // namespace

template <class Record>
RecordCommand<Record>::RecordCommand(CLI::App& app,
                                     const std::string& command,
                                     std::string_view word,
                                     const std::string& description)
    : m_word(word)
    , m_app(app.add_subcommand(command, description))
    , m_list(m_app->add_subcommand("list", "Lists them."))
    , m_add(m_app->add_subcommand("add", "Adds one."))
    , m_edit(m_app->add_subcommand("edit", "Changes one."))
    , m_delete(m_app->add_subcommand("delete", "Deletes one; documents keep what they took from it."))
{
    m_app->require_subcommand(1);
    CommandSession::addOutput(*m_app, m_output);
    for (CLI::App* each : {m_list, m_add, m_edit, m_delete}) {
        each->fallthrough();
    }
    for (CLI::App* each : {m_edit, m_delete}) {
        each->add_option("record", m_name, "Its name, a part of it, or its id.")->required();
    }
    addFields(*m_add);
    addFields(*m_edit);
}

template <class Record>
void RecordCommand<Record>::addFields(CLI::App& command)
{
    for (const RecordField<Record>& field : recordFields<Record>()) {
        command
            .add_option_function<std::string>(
                "--" + replacing(field.name, "_", "-"),
                [this, &field](const std::string& typed) { m_values.set(field.name, typedValue(field.isFlag, typed)); },
                std::string(field.description))
            ->type_name(field.isFlag ? "yes|no" : "TEXT")
            ->allow_extra_args(false);
    }
}

template <class Record>
bool RecordCommand<Record>::wasGiven() const
{
    return m_app->parsed();
}

template <class Record>
int RecordCommand<Record>::run(const CommandSetting& setting) const
{
    return CommandSession::run(setting, m_output, [this](CommandSession& session) {
        return m_list->parsed()   ? list(session)
               : m_add->parsed()  ? add(session)
               : m_edit->parsed() ? edit(session)
                                  : remove(session);
    });
}

template <class Record>
const Record& RecordCommand<Record>::meant(CommandSession& session) const
{
    return RecordLookup::find<Record>(session.context(), m_name, m_word, m_app->get_name(), [&](const Record& record) {
        return recordFields<Record>().front().text(session.environment(), record);
    });
}

template <class Record>
JSON RecordCommand<Record>::data(CommandSession& session, const Record& record) const
{
    JSON data = JSON::object({{"id", Lookup::idText(record.uuid)}});
    for (const RecordField<Record>& field : recordFields<Record>()) {
        std::string text = field.text(session.environment(), record);
        data.set(field.name, field.isFlag ? JSON(!text.empty()) : JSON(std::move(text)));
    }
    return data;
}

template <class Record>
CommandAnswer RecordCommand<Record>::told(CommandSession& session, std::string_view what, const Record& record) const
{
    const std::string name = plainText(recordFields<Record>().front().text(session.environment(), record));
    return {.text = fmt::format("{} the {} {} [{}].\n", what, m_word, name, Lookup::idText(record.uuid)),
            .data = data(session, record)};
}

template <class Record>
CommandAnswer RecordCommand<Record>::list(CommandSession& session) const
{
    std::vector<TextTable::Column> columns;
    for (const RecordField<Record>& field : recordFields<Record>()) {
        columns.push_back({.heading = heading(field.name), .widest = widestCell});
    }
    TextTable table(std::move(columns));
    JSON::Array list;
    for (const Record* record : sorted<Record>(session)) {
        std::vector<std::string> cells;
        for (const RecordField<Record>& field : recordFields<Record>()) {
            cells.push_back(field.text(session.environment(), *record));
        }
        table.addRow(std::move(cells));
        list.push_back(data(session, *record));
    }
    return {.text = list.empty() ? "There are none yet.\n" : table.text(),
            .data = JSON::object({{"records", std::move(list)}})};
}

template <class Record>
CommandAnswer RecordCommand<Record>::add(CommandSession& session) const
{
    auto scope = session.context().beginScope("Add");
    const Record& record = addRecord<Record>(session.environment(), Arguments(m_values));
    scope.commit();
    return told(session, "Added", record);
}

template <class Record>
CommandAnswer RecordCommand<Record>::edit(CommandSession& session) const
{
    const Record& record = meant(session);
    auto scope = session.context().beginScope("Edit");
    editRecord(session.environment(), Arguments(m_values), record);
    scope.commit();
    return told(session, "Changed", record);
}

template <class Record>
CommandAnswer RecordCommand<Record>::remove(CommandSession& session) const
{
    const Record& record = meant(session);
    CommandAnswer answer = told(session, "Deleted", record);
    auto scope = session.context().beginScope("Delete");
    removeRecord(session.environment(), record);
    scope.commit();
    return answer;
}

std::vector<std::unique_ptr<Command>> recordCommands(CLI::App& app)
{
    std::vector<std::unique_ptr<Command>> commands;
    commands.push_back(std::make_unique<RecordCommand<CatalogItem>>(
        app, "catalog", "catalog item", "Lists and changes your products and services."));
    commands.push_back(
        std::make_unique<RecordCommand<Project>>(app, "project", "project", "Lists and changes your projects."));
    commands.push_back(
        std::make_unique<RecordCommand<TaxRate>>(app, "tax-rate", "tax rate", "Lists and changes your tax rates."));
    commands.push_back(
        std::make_unique<RecordCommand<CustomUnit>>(app, "unit", "unit", "Lists and changes your own units."));
    commands.push_back(
        std::make_unique<RecordCommand<TextPreset>>(app, "preset", "preset", "Lists and changes your saved texts."));
    return commands;
}

} // namespace Quillary
