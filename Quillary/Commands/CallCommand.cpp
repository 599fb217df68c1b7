#include "Quillary/Commands/CallCommand.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/OpenLibrary.h"
#include "Quillary/PrintingHost.h"
#include "QuillaryCore/Assistant/Operations/AssistantActions.h"
#include "QuillaryCore/Foundation/Files.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Numbering/UniqueFilePath.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <cstdio>
#include <iostream>
#include <iterator>
#include <optional>
#include <utility>

namespace Quillary {

namespace {

/// More than any call needs; keeps a pipe that never ends from filling the memory.
constexpr std::size_t largestInput = 64'000'000;

std::string standardInput()
{
    std::string text;
    std::array<char, 65536> buffer{};
    while (std::cin.read(buffer.data(), buffer.size()) || std::cin.gcount() > 0) {
        text.append(buffer.data(), static_cast<std::size_t>(std::cin.gcount()));
        if (text.size() > largestInput) {
            throw UserError("The JSON on standard input is too long: at most 64 MB.");
        }
    }
    return text;
}

std::string optionNames(const std::string& property)
{
    const std::string dashed = replacing(property, "_", "-");
    return dashed == property ? "--" + property : fmt::format("--{},--{}", dashed, property);
}

std::string describe(const JSON& property)
{
    std::string text = *property.find("description")->string();
    if (const JSON* choices = property.find("enum")) {
        std::string list;
        for (const JSON& choice : *choices->array()) {
            list += (list.empty() ? "" : ", ") + *choice.string();
        }
        text += fmt::format(" One of: {}.", list);
    }
    if (const JSON* items = property.find("items"); items != nullptr && items->find("properties") != nullptr) {
        text += " Each is JSON or \"name=value; …\" with:";
        for (const auto& [name, member] : *items->find("properties")->object()) {
            text += fmt::format("\n  {}: {}", name, *member.find("description")->string());
        }
    }
    return text;
}

} // namespace

CallCommand::CallCommand(CLI::App& app)
    : m_app(app.add_subcommand("call", "Runs one operation on the library, as an assistant would."))
{
    m_app->require_subcommand(1);
    m_app->add_option("--output", m_output, "How to answer: text or json.")->check(CLI::IsMember({"text", "json"}));
    m_app->add_option("--image", m_image, "The file that an image is written to.")->type_name("FILE");
    for (const AssistantTool& tool : ToolCatalogue::tools()) {
        addTool(*m_app, tool);
    }
}

void CallCommand::addTool(CLI::App& call, const AssistantTool& tool)
{
    CLI::App* command = call.add_subcommand(tool.name, tool.description);
    command->fallthrough();
    command->callback([this, &tool] { m_tool = tool.name; });
    command->add_option("--json", m_json, "All arguments as one JSON object; - reads it from standard input.");
    for (const auto& [name, property] : *tool.input.find("properties")->object()) {
        const bool isFlag = *property.find("type")->string() == "boolean";
        CLI::Option* option = command->add_option_function<std::vector<std::string>>(
            optionNames(name),
            [this, key = name](const std::vector<std::string>& values) { m_values[key] = values; },
            describe(property));
        option->type_name(*property.find("type")->string());
        // Text in square brackets is the user's own and no list of the parser's.
        option->allow_extra_args(false);
        option->expected(isFlag ? 0 : 1, 1)->take_all();
        if (isFlag) {
            option->default_str("true");
        } else {
            option->expected(1);
            option->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
        }
    }
}

bool CallCommand::wasGiven() const
{
    return m_app->parsed();
}

JSON CallCommand::arguments() const
{
    JSON base;
    if (!m_json.empty()) {
        std::optional<JSON> given = JSON::parse(m_json == "-" ? standardInput() : m_json);
        if (!given) {
            throw UserError("The arguments given with --json aren't readable as JSON.");
        }
        base = std::move(*given);
    }
    return ToolArguments::fromTyped(ToolCatalogue::find(m_tool)->input, m_values, std::move(base));
}

/// The library is let go of before anything is printed: a running Quillary waits for it, and whoever reads what is
/// printed may take long over it.
int CallCommand::run(const CommandSetting& setting) const
{
    return print(result(setting.library, setting.environment));
}

ToolResult CallCommand::result(const std::filesystem::path& library, AppEnvironment& environment) const
{
    const JSON given = arguments();
    OpenLibrary open(library, environment);
    PrintingHost host(environment);
    AssistantActions actions(open.actionsEnvironment(environment, host));
    ToolResult result;
    bool isAnswered = false;
    actions.call(m_tool, given, [&](ToolResult answer) {
        result = std::move(answer);
        isAnswered = true;
    });
    host.runUntil([&isAnswered] { return isAnswered; });
    open.backUpIfDue(environment);
    return result;
}

int CallCommand::print(const ToolResult& result) const
{
    if (result.isError) {
        fmt::print(stderr, "{}\n", result.text);
        return 1;
    }
    if (m_output == "json") {
        fmt::print("{}\n", result.data.value_or(JSON::object({{"text", result.text}})).pretty());
    } else {
        fmt::print("{}{}", result.text, result.text.ends_with('\n') ? "" : "\n");
    }
    if (result.image) {
        const std::string name = result.documentID ? result.documentID->text() : "page";
        const std::filesystem::path path = m_image.empty()
                                               ? replaceFile(uniqueFilePath(".", name, "png"), *result.image)
                                               : replaceFile(m_image, *result.image);
        // The answer itself may be read by a program, so the name of the file goes beside it.
        fmt::print(m_output == "json" ? stderr : stdout, "Image: {}\n", path.string());
    }
    return 0;
}

} // namespace Quillary
