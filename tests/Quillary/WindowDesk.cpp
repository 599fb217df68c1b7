#include "tests/Quillary/WindowDesk.h"

#include <QSize>
#include <QString>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

namespace Quillary {

namespace {

constexpr QSize usualSize(1360, 860);

/// Without what Qt remarks on each window that has no screen.
void tellMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (!message.startsWith(QLatin1String("This plugin does not support"))) {
        std::fputs(qPrintable(qFormatLogMessage(type, context, message) + QLatin1Char('\n')), stderr);
    }
}

void moveInto(const std::filesystem::path& home)
{
    std::filesystem::create_directory(home / "Downloads");
    const std::pair<const char*, std::string> variables[] = {{"HOME", home},
                                                             {"XDG_DATA_HOME", home / "data"},
                                                             {"XDG_CONFIG_HOME", home / "config"},
                                                             {"XDG_STATE_HOME", home / "state"},
                                                             {"LC_ALL", "en_US.UTF-8"},
                                                             {"QT_QPA_PLATFORM", "offscreen"}};
    for (const auto& [name, value] : variables) {
        setenv(name, value.c_str(), 1);
    }
}

} // namespace

WindowDesk::WindowDesk(const std::filesystem::path& home)
{
    moveInto(home);
    qInstallMessageHandler(tellMessage);
    environment = std::make_unique<AppEnvironment>();
    host = std::make_unique<PrintingHost>(*environment);
    host->startApplication(PrintingHost::Windows::shown);
    ProgramPlaces places;
    places.restore = [this](const auto& backup, auto done) {
        service->restore(backup, std::move(done));
    };
    desktop = std::make_unique<Desktop>(*environment, *host, places);
    service = std::make_unique<AssistantService>(AssistantService::Options{.library = environment->libraryFolder(),
                                                                           .socket = home / "socket",
                                                                           .settings = home / "assistants.json",
                                                                           .log = home / "log",
                                                                           .asker = &desktop->asker(),
                                                                           .windows = desktop.get()},
                                                 *environment,
                                                 *host,
                                                 [](int) {});
    service->claim();
    service->start();
    desktop->show("invoices");
    desktop->window().resize(usualSize); // however small the screen is that isn't there
}

WindowDesk::~WindowDesk()
{
    service->stop();
    service.reset();
    desktop.reset();
    host.reset();
}

} // namespace Quillary
