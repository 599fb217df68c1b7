#include "Quillary/CommandLine.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/AssistantsCommand.h"
#include "Quillary/BackupCommand.h"
#include "Quillary/BuildInfo.h"
#include "Quillary/CallCommand.h"
#include "Quillary/ExampleCommand.h"
#include "Quillary/SamplesCommand.h"
#include "Quillary/ServeCommand.h"
#include "QuillaryCore/Assistant/AssistantTool.h"
#include "QuillaryCore/Foundation/UserError.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <new>
#include <optional>
#include <string>

namespace Quillary {

namespace {

constexpr int statusFailed = 1;
constexpr int statusMisunderstood = 2;

struct Flags
{
    std::string library;
    bool buildInfo = false;
    bool assistantTools = false;
    bool showAssistants = false;
    bool initializeCloudKitSchema = false;
};

void addFlags(CLI::App& app, Flags& flags)
{
    app.add_option("--library", flags.library, "The folder of the library; the user's own by default.")
        ->type_name("FOLDER");
    app.add_flag("--print-build-info", flags.buildInfo, "Prints the version and what it was built with.");
    app.add_flag("--print-assistant-tools", flags.assistantTools, "Prints the tools/list answer as JSON.");
    app.add_flag(
        "--show-assistants", flags.showAssistants, "Prints what AI assistants may do, and how to connect them.");
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

/// The commands of one command line and what was parsed into them.
class Commands
{
public:
    explicit Commands(CLI::App& app)
        : m_call(app)
        , m_example(app)
        , m_backup(app)
        , m_assistants(app)
        , m_samples(app)
        , m_serve(app)
    {
        addFlags(app, m_flags);
    }

    [[nodiscard]] int run(const CLI::App& app)
    {
        if (m_flags.buildInfo) {
            fmt::print("{}", buildInfo());
            return 0;
        }
        if (m_flags.assistantTools) {
            fmt::print("{}\n", toolListing());
            return 0;
        }
        if (m_flags.initializeCloudKitSchema) {
            throw UserError("This build of Quillary mirrors to no cloud, so there is no schema to initialize.");
        }
        return runOnLibrary(app);
    }

private:
    [[nodiscard]] int runOnLibrary(const CLI::App& app)
    {
        AppEnvironment environment;
        const std::filesystem::path library =
            m_flags.library.empty() ? environment.libraryFolder() : std::filesystem::path(m_flags.library);
        if (m_samples.wasGiven()) {
            return m_samples.run(environment);
        }
        if (m_call.wasGiven()) {
            return m_call.run(library, environment);
        }
        if (m_serve.wasGiven()) {
            return m_serve.run(library, environment);
        }
        if (m_assistants.wasGiven() || m_flags.showAssistants) {
            return m_assistants.run(environment);
        }
        if (m_backup.wasGiven()) {
            return m_backup.run(library, environment);
        }
        if (m_example.wasGiven()) {
            const bool named = !m_flags.library.empty();
            return m_example.run(named ? std::optional(library) : std::nullopt, environment);
        }
        fmt::print("{}", app.help());
        return 0;
    }

    Flags m_flags;
    CallCommand m_call;
    ExampleCommand m_example;
    BackupCommand m_backup;
    AssistantsCommand m_assistants;
    SamplesCommand m_samples;
    ServeCommand m_serve;
};

int parseAndRun(int argumentCount, char** arguments)
{
    CLI::App app("Quillary makes invoices, quotes and credit notes on your own computer.", "quillary");
    app.set_version_flag("--version", std::string("Quillary ") + std::string(version()));
    app.require_subcommand(0, 1);
    Commands commands(app);
    try {
        app.parse(argumentCount, arguments);
    } catch (const CLI::ParseError& error) {
        // Help and version come as "errors" that exit with 0.
        return app.exit(error) == 0 ? 0 : statusMisunderstood;
    }
    const int status = commands.run(app);
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
