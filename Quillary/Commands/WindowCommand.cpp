#include "Quillary/Commands/WindowCommand.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/AssistantService.h"
#include "Quillary/Commands/AssistantSetup.h"
#include "Quillary/Control/ControlSocket.h"
#include "Quillary/Desktop.h"
#include "Quillary/ErrorOutput.h"
#include "Quillary/PrintingHost.h"
#include "Quillary/Screenshots.h"
#include "Quillary/StopSignals.h"
#include "Quillary/WordsLocale.h"
#include "QuillaryChannel/AssistantChannel.h"
#include "QuillaryCore/Assistant/Access/ActivityLog.h"
#include "QuillaryCore/Assistant/Access/AssistantSettingsFile.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Lock/LockFile.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/DesktopLook.h"
#include "QuillaryUI/Look/Translation.h"

#include <QApplication>
#include <QMessageBox>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <unistd.h>
#include <utility>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

/// A window that is busy answers within this.
constexpr std::chrono::milliseconds patienceWithWindow{5'000};
constexpr QRgb usualAccent = 0xff1f5fbf;

/// Whether a Quillary with a window holds the library and has come to the front.
bool isShownElsewhere(const fs::path& library, const std::string& section)
{
    std::optional<Descriptor> holder = ControlSocket::connect(library);
    if (!holder ||
        !ControlChannel::send(holder->number(), {.body = JSON::object({{"do", "show"}, {"section", section}})})) {
        return false;
    }
    const std::optional<ControlMessage> answer = ControlChannel::receive(holder->number(), patienceWithWindow);
    return answer && answer->text("did") == "show";
}

QApplication& application()
{
    return *static_cast<QApplication*>(QCoreApplication::instance());
}

Locale desktopWords()
{
    return wordsLocale([](const char* name) { return qgetenv(name).toStdString(); });
}

void introduce(const AppEnvironment& environment)
{
    QCoreApplication::setOrganizationName(QStringLiteral("Quillary"));
    QCoreApplication::setApplicationName(QStringLiteral("quillary"));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.quillary.Quillary"));
    Translation::install(application(), desktopWords(), environment.locale());
}

ProgramPlaces places(const AppEnvironment& environment, PrintingHost& host)
{
    return {.assistantSettings = environment.configurationFolder() / AssistantSettingsFile::fileName,
            .activityLog = environment.stateFolder() / ActivityLog::fileName,
            .assistantSetup =
                AssistantSetup::configuration(AssistantSetup::helperBeside(environment.programFile())).pretty(),
            .lock = environment.configurationFolder() / LockFile::fileName,
            .now = [&environment] { return environment.clock().now(); },
            .makeLogo =
                [&host](const Bytes& file) {
                    return host.logo(file);
                }};
}

/// What stands between the user and the library, in a window: nobody reads standard error.
void showFailure(const UserError& error)
{
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Quillary"), CoreText::sentence(error.message()));
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

} // namespace

WindowCommand::WindowCommand(CLI::App& app)
    : m_app(app)
{
    app.add_option("--screenshots", m_screenshots, "Draws every section of a sample library, light and dark.")
        ->type_name("FOLDER");
}

bool WindowCommand::wasGiven() const
{
    return !m_screenshots.empty() || (m_app.get_subcommands().empty() && AppEnvironment().hasDisplay());
}

int WindowCommand::run(const CommandSetting& setting) const
{
    return m_screenshots.empty() ? open(setting) : drawSections(setting);
}

std::string WindowCommand::wantedSection() const
{
    return m_app.count("--show-assistants") > 0  ? "settings/assistants"
           : m_app.count("--show-recurring") > 0 ? "recurring"
                                                 : "";
}

int WindowCommand::open(const CommandSetting& setting) const
{
    const std::string section = wantedSection();
    if (isShownElsewhere(setting.library, section)) {
        return 0;
    }
    AppEnvironment& environment = setting.environment;
    ErrorOutput::surviveBrokenPipes();
    PrintingHost host(environment);
    host.startApplication(PrintingHost::Windows::shown);
    introduce(environment);
    DesktopLook look(application(), QColor(usualAccent));
    int status = 0;
    AssistantService* served = nullptr; // which needs the windows, as they need it
    ProgramPlaces around = places(environment, host);
    around.restore = [&served](const fs::path& backup, std::function<void(const RestoreOutcome&)> done) {
        served->restore(backup, std::move(done));
    };
    Desktop desktop(environment, host, std::move(around));
    QObject::connect(&look, &DesktopLook::changed, &look, [&desktop] { desktop.window().refreshDay(); });
    try {
        AssistantService service({.library = setting.library,
                                  .socket = AssistantChannel::socketPath(environ),
                                  .settings = environment.configurationFolder() / AssistantSettingsFile::fileName,
                                  .log = environment.stateFolder() / ActivityLog::fileName,
                                  .lock = environment.configurationFolder() / LockFile::fileName,
                                  .asker = &desktop.asker(),
                                  .windows = &desktop},
                                 environment,
                                 host,
                                 [&status](int result) {
                                     status = result;
                                     QCoreApplication::quit();
                                 });
        served = &service;
        service.claim();
        const StopSignals endings([] { QCoreApplication::quit(); });
        service.start();
        desktop.show(section);
        look.listen();
        QCoreApplication::exec();
        service.stop();
    } catch (const UserError& error) {
        ErrorOutput::writeLine(error.message());
        showFailure(error);
        return 1;
    }
    return status;
}

int WindowCommand::drawSections(const CommandSetting& setting) const
{
    if (!setting.environment.hasDisplay() && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    PrintingHost host(setting.environment);
    host.startApplication(PrintingHost::Windows::shown);
    introduce(setting.environment);
    const std::string setup = AssistantSetup::configuration("/usr/bin/quillary-mcp").pretty();
    const int count = Screenshots::draw(fs::absolute(m_screenshots), host, desktopWords(), setup);
    fmt::print("{} pictures in {}\n", count, fs::absolute(m_screenshots).string());
    return 0;
}

} // namespace Quillary
