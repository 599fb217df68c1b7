#include "Quillary/Desktop.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/OpenLibrary.h"
#include "Quillary/PrintingHost.h"
#include "QuillaryCore/Assistant/Access/AssistantClient.h"
#include "QuillaryCore/Assistant/Tools/AssistantTool.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Schedules/OwedInvoice.h"

#include <QRegularExpression>
#include <QTimer>

#include <utility>

namespace Quillary {

namespace {

/// The list is on the screen by then, and nothing else to do.
constexpr int idleDelay = 300;
/// The day's notices come when the window has long been there.
constexpr int noticeDelay = 2'000;

/// What an assistant wants the user to look at now.
bool asksToShow(const AssistantTool& tool)
{
    return tool.name == "preview_document" || tool.name == "email_document";
}

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
        QObject::connect(m_window.get(), &MainWindow::unlocked, &m_teller, [this] { tellDay(); });
        QObject::connect(&m_teller, &DueTeller::wantedDocument, m_window.get(), [this](std::int64_t key) {
            m_window->present();
            m_window->showDocument(key);
        });
        QObject::connect(&m_teller, &DueTeller::wantedOverview, m_window.get(), [this] { show("overview"); });
        tellFailures();
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

/// A locked window's notices would show what it hides: they wait.
void Desktop::tellDay()
{
    if (m_window != nullptr && !m_window->isLocked()) {
        m_teller.tell();
    }
}

/// Of a run before the window was there, too.
void Desktop::tellFailures()
{
    if (m_window != nullptr && !m_failures.empty()) {
        const RecurringCatchUp::Failure& first = m_failures.front();
        m_window->warnOfRecurring(OwedInvoice::notice(first.message, m_failures.size()), first.recurring);
        m_failures.clear();
    }
}

void Desktop::dayBegan(const RecurringCatchUp::Outcome& recurring)
{
    m_teller.addMade(recurring.made);
    m_failures = recurring.failures;
    tellFailures();
    QTimer::singleShot(noticeDelay, &m_teller, [this] { tellDay(); });
    if (m_window != nullptr) {
        m_window->refreshDay();
    }
}

void Desktop::didCall(const AssistantClient& client, const AssistantTool& tool, const ToolResult& result)
{
    if (m_window == nullptr || result.isError || !m_library.isOpen()) {
        return;
    }
    const Document* document = result.documentID ? m_library.context().find<Document>(*result.documentID) : nullptr;
    const std::int64_t key = document == nullptr ? 0 : document->ref.key();
    QString what = text(result.summary.value_or(std::string(tool.title)));
    what.remove(QRegularExpression(QStringLiteral(" \\[[0-9A-F-]{36}\\]"))); // identifiers are for assistants
    const QString sentence = QStringLiteral("%1: %2").arg(text(client.displayName), what);
    if (asksToShow(tool) && key != 0 && !m_window->isBeingTypedIn()) {
        m_window->showDocument(key);
    } else if (key != 0 && (!tool.readOnly || asksToShow(tool))) {
        m_window->tellOf(sentence, key);
        return;
    }
    if (!tool.readOnly) {
        m_window->tell(sentence);
    }
}

} // namespace Quillary
