#include "Quillary/Desktop.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/OpenLibrary.h"
#include "Quillary/PrintingHost.h"
#include "QuillaryCore/Assistant/Access/AssistantClient.h"
#include "QuillaryCore/Assistant/Tools/AssistantTool.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"

#include <QTimer>

#include <utility>

namespace Quillary {

namespace {

/// The list is on the screen by then, and nothing else to do.
constexpr int idleDelay = 300;

} // namespace

Desktop::Desktop(AppEnvironment& environment, PrintingHost& host, ProgramPlaces places)
    : m_environment(environment)
    , m_host(host)
    , m_places(std::move(places))
    , m_library(host, Formats(environment.locale(), environment.calendar()))
{
    m_host.onFailure([this](const std::string& sentence) { window().warn(text(sentence)); });
}

void Desktop::didOpen(OpenLibrary& library)
{
    m_library.open(library.actionsEnvironment(m_environment, m_host));
}

void Desktop::willClose()
{
    if (m_window != nullptr) {
        m_window->flush();
    }
    m_library.close();
}

MainWindow& Desktop::window()
{
    if (m_window == nullptr) {
        m_window = std::make_unique<MainWindow>(m_library, m_places);
    }
    return *m_window;
}

void Desktop::show(const std::string& section)
{
    MainWindow& window = this->window();
    if (!section.empty()) {
        window.showSection(text(section));
    }
    window.present();
    QTimer::singleShot(idleDelay, &window, [this] { m_host.warmUp(); });
}

void Desktop::dayBegan()
{
    if (m_window != nullptr) {
        m_window->refreshDay();
    }
}

void Desktop::didCall(const AssistantClient& client, const AssistantTool& tool, const ToolResult& result)
{
    if (m_window != nullptr && !tool.readOnly && !result.isError) {
        m_window->tell(MainWindow::tr("%1: %2").arg(text(client.displayName),
                                                    text(result.summary.value_or(std::string(tool.title)))));
    }
}

} // namespace Quillary
