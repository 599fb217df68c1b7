#include "Quillary/Commands/CommandLine.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/BuildInfo.h"
#include "Quillary/Commands/AssistantsCommand.h"
#include "Quillary/Commands/BackupCommand.h"
#include "Quillary/Commands/CallCommand.h"
#include "Quillary/Commands/DocumentCommand.h"
#include "Quillary/Commands/EmailCommand.h"
#include "Quillary/Commands/EmailTemplateCommand.h"
#include "Quillary/Commands/ExampleCommand.h"
#include "Quillary/Commands/ImportCommand.h"
#include "Quillary/Commands/ManualPage.h"
#include "Quillary/Commands/OverdueCommand.h"
#include "Quillary/Commands/RecordCommand.h"
#include "Quillary/Commands/RecurringCommand.h"
#include "Quillary/Commands/RemindCommand.h"
#include "Quillary/Commands/ReportCommand.h"
#include "Quillary/Commands/SamplesCommand.h"
#include "Quillary/Commands/ServeCommand.h"
#include "Quillary/Commands/SettingsCommand.h"
#include "Quillary/Commands/TimeCommand.h"
#include "Quillary/Commands/WindowCommand.h"
#include "QuillaryCore/Assistant/Tools/AssistantTool.h"
#include "QuillaryCore/Foundation/UserError.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

constexpr int statusFailed = 1;
constexpr int statusMisunderstood = 2;

struct Flags
{
    std::string library;
    bool buildInfo = false;
    bool assistantTools = false;
    bool initializeCloudKitSchema = false;
    bool manual = false;
};

void addFlags(CLI::App& app, Flags& flags)
{
    app.add_option("--library", flags.library, "The folder of the library; the user's own by default.")
        ->type_name("FOLDER");
    app.add_flag("--print-build-info", flags.buildInfo, "Prints the version and what it was built with.");
    app.add_flag("--print-assistant-tools", flags.assistantTools, "Prints the tools/list answer as JSON.");
    app.add_flag("--print-manual", flags.manual, "Prints the manual page, in the language of man.")->group("");
    app.add_flag("--initialize-cloudkit-schema", flags.initializeCloudKitSchema, "Prepares the cloud mirror's schema.");
}

std::string toolListing()
{
    JSON::Array tools;
    for (const AssistantTool& tool : ToolCatalogue::tools()) {
        tools.push_back(tool.listing());
    }
    return JSON::object({{"tools", std::move(tools)}}).pretty();
}

using CommandList = std::vector<std::unique_ptr<Command>>;

/// In the order in which the help lists them.
CommandList makeCommands(CLI::App& app)
{
    CommandList commands;
    commands.push_back(std::make_unique<DocumentCommand>(app));
    commands.push_back(std::make_unique<EmailCommand>(app));
    commands.push_back(std::make_unique<RemindCommand>(app));
    commands.push_back(std::make_unique<OverdueCommand>(app));
    commands.push_back(std::make_unique<EmailTemplateCommand>(app));
    commands.push_back(std::make_unique<RecurringCommand>(app));
    commands.push_back(std::make_unique<TimeCommand>(app));
    commands.push_back(std::make_unique<ReportCommand>(app));
    commands.push_back(std::make_unique<ImportCommand>(app));
    commands.push_back(std::make_unique<SettingsCommand>(app));
    for (auto& command : recordCommands(app)) {
        commands.push_back(std::move(command));
    }
    commands.push_back(std::make_unique<CallCommand>(app));
    commands.push_back(std::make_unique<ExampleCommand>(app));
    commands.push_back(std::make_unique<BackupCommand>(app));
    commands.push_back(std::make_unique<AssistantsCommand>(app));
    commands.push_back(std::make_unique<SamplesCommand>(app));
    commands.push_back(std::make_unique<ServeCommand>(app));
    commands.push_back(std::make_unique<WindowCommand>(app)); // last: it is what nothing else was asked for means
    return commands;
}

/// What the core advises in the names of tools, such as “find_documents lists them”, as somebody at a shell can type it.
/// A name that the user wrote stands in quotation marks and stays.
std::string asTyped(const std::string& sentence)
{
    constexpr std::string_view nameCharacters = "abcdefghijklmnopqrstuvwxyz_";
    std::string result;
    std::size_t position = 0;
    while (position < sentence.size()) {
        const std::size_t begin = std::min(sentence.find_first_of(nameCharacters, position), sentence.size());
        const std::size_t end = std::min(sentence.find_first_not_of(nameCharacters, begin), sentence.size());
        result.append(sentence, position, begin - position);
        const std::string word = sentence.substr(begin, end - begin);
        if (ToolCatalogue::find(word) == nullptr || result.ends_with("“")) {
            result += word;
        } else {
            result += word == "find_documents" ? "`quillary document list`" : fmt::format("`quillary call {}`", word);
        }
        position = end;
    }
    return result;
}

int run(const CommandList& commands, const Flags& flags, const CLI::App& app)
{
    if (flags.buildInfo) {
        fmt::print("{}", buildInfo());
        return 0;
    }
    if (flags.assistantTools) {
        fmt::print("{}\n", toolListing());
        return 0;
    }
    if (flags.manual) {
        fmt::print("{}", manualPage(app, version()));
        return 0;
    }
    if (flags.initializeCloudKitSchema) {
        throw UserError("This build of Quillary mirrors to no cloud, so there is no schema to initialize.");
    }
    AppEnvironment environment;
    const bool isLibraryNamed = !flags.library.empty();
    const CommandSetting setting{
        .library = isLibraryNamed ? std::filesystem::path(flags.library) : environment.libraryFolder(),
        .isLibraryNamed = isLibraryNamed,
        .environment = environment,
    };
    for (const auto& command : commands) {
        if (!command->wasGiven()) {
            continue;
        }
        try {
            return command->run(setting);
        } catch (const UserError& error) {
            throw UserError(asTyped(error.message()));
        }
    }
    fmt::print("{}", app.help());
    return 0;
}

int parseAndRun(int argumentCount, char** arguments)
{
    CLI::App app("Quillary makes invoices, quotes and credit notes on your own computer.", "quillary");
    app.set_version_flag("--version", std::string("Quillary ") + std::string(version()));
    app.require_subcommand(0, 1);
    Flags flags;
    addFlags(app, flags);
    const CommandList commands = makeCommands(app);
    try {
        app.parse(argumentCount, arguments);
    } catch (const CLI::ParseError& error) {
        // Help and version come as "errors" that exit with 0.
        return app.exit(error) == 0 ? 0 : statusMisunderstood;
    }
    const int status = run(commands, flags, app);
    // An answer that did not arrive (a full disk behind a pipe) is no success.
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        throw UserError("The answer couldn't be written to standard output; what was asked for has been done.");
    }
    return status;
}

} // namespace

int runCommandLine(int argumentCount, char** arguments) noexcept
{
    try {
        return parseAndRun(argumentCount, arguments);
    } catch (const std::bad_alloc&) {
        std::fputs("There isn't enough memory for this.\n", stderr);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return statusFailed;
}

} // namespace Quillary
