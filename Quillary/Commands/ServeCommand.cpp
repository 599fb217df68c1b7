#include "Quillary/Commands/ServeCommand.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/AssistantService.h"
#include "Quillary/Commands/AccessWord.h"
#include "Quillary/ErrorOutput.h"
#include "Quillary/PrintingHost.h"
#include "Quillary/StopSignals.h"
#include "QuillaryChannel/AssistantChannel.h"
#include "QuillaryCore/Assistant/Access/AssistantSettings.h"
#include "QuillaryCore/Foundation/Files.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Lock/LockFile.h"
#include "QuillaryCore/Samples/SampleLibrary.h"
#include "QuillaryCore/Store/LibraryCopy.h"

#include <QCoreApplication>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <stdlib.h>
#include <system_error>
#include <unistd.h>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

fs::path assistantSocket()
{
    try {
        return AssistantChannel::socketPath(environ);
    } catch (const AssistantChannel::Error& error) {
        throw UserError(error.what());
    }
}

int serve(AssistantService::Options options, AppEnvironment& environment)
{
    ErrorOutput::surviveBrokenPipes();
    PrintingHost host(environment);
    host.startApplication();
    TerminalAsker terminal;
    if (options.asker == nullptr) {
        options.asker = &terminal;
    }
    int status = 0;
    AssistantService service(std::move(options), environment, host, [&status](int result) {
        status = result;
        QCoreApplication::quit();
    });
    service.claim(); // which may take long, and is ended by any signal
    const StopSignals endings([] { QCoreApplication::quit(); });
    service.start();
    ErrorOutput::writeLine(fmt::format("Quillary serves AI assistants at {}", service.socketPath().string()));
    QCoreApplication::exec();
    service.stop();
    return status;
}

/// A folder that goes with everything in it.
class PassingFolder
{
public:
    PassingFolder()
    {
        std::string name = (fs::temp_directory_path() / "quillary-test-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) {
            throw UserError("A folder for the test library couldn't be made.");
        }
        m_path = name;
    }
    PassingFolder(const PassingFolder&) = delete;
    PassingFolder& operator=(const PassingFolder&) = delete;
    ~PassingFolder()
    {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }

    [[nodiscard]] const fs::path& path() const { return m_path; }

private:
    fs::path m_path;
};

/// Whoever starts a test server wants the assistant that comes.
class AllowingAsker final : public ApprovalAsker
{
public:
    [[nodiscard]] std::unique_ptr<Question> ask(const std::string& /*assistant*/, Answer answer) override
    {
        answer(ApprovalAnswer::allow);
        return std::make_unique<Question>();
    }
};

} // namespace

ServeCommand::ServeCommand(CLI::App& app)
    : m_app(app.add_subcommand("serve", "Serves the library to AI assistants, without windows."))
{
    m_app->add_flag(
        "--background", m_isBackground, "Gives way to a Quillary that somebody starts, and ends when idle.");
    m_app->add_option("--idle-seconds", m_idleSeconds, "How long it stays in the background without an assistant.")
        ->check(CLI::Range(0.1, 86'400.0));
    app.add_flag("--assistant-test-server",
                 m_isTest,
                 "Serves sample documents in a folder of its own, with every assistant allowed.");
    app.add_option("--test-access", m_access, "What assistants may do there: look, drafts or everything.")
        ->check(CLI::IsMember({"look", "drafts", "everything"}));
}

bool ServeCommand::wasGiven() const
{
    return m_app->parsed() || m_isTest;
}

int ServeCommand::run(const CommandSetting& setting) const
{
    AppEnvironment& environment = setting.environment;
    if (m_isTest) {
        return serveSamples(environment);
    }
    return serve({.library = setting.library,
                  .socket = assistantSocket(),
                  .settings = environment.configurationFolder() / AssistantSettingsFile::fileName,
                  .log = environment.stateFolder() / ActivityLog::fileName,
                  .lock = environment.configurationFolder() / LockFile::fileName,
                  .isBackground = m_isBackground,
                  .idleTime = std::chrono::milliseconds(static_cast<std::int64_t>(m_idleSeconds * 1000))},
                 environment);
}

int ServeCommand::serveSamples(AppEnvironment& environment) const
{
    const PassingFolder folder;
    const fs::path library = folder.path() / "library";
    fs::create_directory(library);
    SampleLibrary samples(DocumentLanguage::english);
    LibraryCopy::make(samples.context().store().connection(), library / Store::fileName, {});
    AssistantSettings settings;
    settings.isOn = true;
    settings.access = AccessWord::read(m_access).value_or(settings.access);
    const fs::path file = folder.path() / AssistantSettingsFile::fileName;
    replaceFile(file, settings.json().dump());
    AllowingAsker asker;
    return serve({.library = library,
                  .socket = assistantSocket(),
                  .settings = file,
                  .log = folder.path() / ActivityLog::fileName,
                  .asker = &asker,
                  .makesRecurring = false}, // the samples stay as they are
                 environment);
}

} // namespace Quillary
