#include "Quillary/AssistantService.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/BuildInfo.h"
#include "Quillary/ErrorOutput.h"
#include "Quillary/PrintingHost.h"
#include "QuillaryChannel/AssistantChannel.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Store/Backups.h"

#include <fmt/format.h>

#include <exception>
#include <optional>
#include <system_error>
#include <tuple>
#include <unistd.h>
#include <utility>

namespace Quillary {

namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

/// How often a service looks whether it is idle before it takes itself for it.
constexpr int idleLooks = 4;
constexpr milliseconds betweenBackups{60 * 60 * 1000};
constexpr milliseconds betweenLooksAtTheDay{60 * 1000};

} // namespace

AssistantService::AssistantService(Options options,
                                   AppEnvironment& environment,
                                   PrintingHost& host,
                                   std::function<void(int)> end)
    : m_options(std::move(options))
    , m_environment(environment)
    , m_host(host)
    , m_end(std::move(end))
    , m_socketPath(m_options.socket)
    , m_lock(m_options.lock)
    , m_settings(m_options.settings)
    , m_log(m_options.log)
    , m_gate({.settings = m_settings,
              .lock = m_lock,
              .asker = m_options.asker,
              .delay = m_delay,
              .clock = environment.clock(),
              .report = [](const std::string& sentence) {
                  ErrorOutput::writeLine(sentence);
              }})
{
    QObject::connect(&m_idle, &QTimer::timeout, &m_idle, [this] { endWhenIdle(); });
    QObject::connect(&m_backups, &QTimer::timeout, &m_backups, [this] { backUpIfDue(); });
    QObject::connect(&m_days, &QTimer::timeout, &m_days, [this] { guarded([this] { catchUpIfDue(); }); });
}

AssistantService::~AssistantService() = default;

void AssistantService::claim()
{
    m_right = ServingRight::obtain(m_options.library, m_socketPath, m_options.isBackground);
}

void AssistantService::start()
{
    std::optional<ServingRight::Taken> taken = std::exchange(m_right.taken, std::nullopt);
    if (taken) {
        m_socketPath = taken->handover.socketPath; // as the other one wrote it
    }
    m_server = std::make_unique<AssistantServer>(m_socketPath, [this] { return makeSession(); });
    if (taken) {
        takeOver(*std::move(taken));
    } else {
        openLibrary(std::move(m_right.claim));
        m_server->start();
        listen();
    }
    backUpIfDue();
    catchUpIfDue();
}

/// Whatever fails before the word that ends the other one leaves that one serving.
void AssistantService::takeOver(ServingRight::Taken taken)
{
    openLibrary({.lender = {}, .lock = LibraryLock::adopted(taken.handover.lock.release())});
    listen();
    std::ignore = ControlChannel::send(taken.holder.number(), {.body = JSON::object({{"did", "take over"}})});
    m_server->adopt(std::move(taken.handover.assistants));
}

void AssistantService::openLibrary(LibraryClaim claim)
{
    m_library = std::make_unique<OpenLibrary>(m_options.library, m_environment, std::move(claim));
    if (m_options.windows != nullptr) {
        m_options.windows->didOpen(*m_library);
    }
}

void AssistantService::tellClosing()
{
    if (m_options.windows != nullptr && m_library != nullptr) {
        m_options.windows->willClose();
    }
}

void AssistantService::backUpIfDue()
{
    if (m_library != nullptr) {
        m_library->backUpIfDue(m_environment);
    }
}

/// Not in the middle of a call. What one run leaves follows at the next look.
void AssistantService::catchUpIfDue()
{
    const Instant now = m_environment.clock().now();
    const Calendar& calendar = m_environment.calendar();
    if (!m_options.makesRecurring || m_library == nullptr || m_library->context().scopeDepth() > 0 ||
        !m_recurring.isDue(now, calendar)) {
        return;
    }
    const RecurringCatchUp::Outcome outcome = RecurringCatchUp::run(m_library->context(), now, calendar);
    if (outcome.isComplete) {
        m_recurring.didRun(now, calendar);
    }
    if (m_options.windows != nullptr) {
        m_options.windows->dayBegan(outcome);
    }
}

void AssistantService::listen()
{
    m_control =
        std::make_unique<ControlServer>(m_options.library, [this](const ControlMessage& request, Descriptor asker) {
            guarded([&] { didAsk(request, std::move(asker)); });
        });
    m_backups.start(betweenBackups);
    m_days.start(betweenLooksAtTheDay);
    if (m_options.isBackground) {
        m_idle.start(m_options.idleTime / idleLooks);
    }
}

std::unique_ptr<MCPSession> AssistantService::makeSession()
{
    return std::make_unique<MCPSession>(
        m_library->actionsEnvironment(m_environment, m_host),
        std::string(version()),
        [this](const AssistantClient& client, const AssistantTool& tool, MCPSession::Decision decision) {
            m_gate.authorize(client, tool, std::move(decision));
        },
        [this](const AssistantClient& client, const AssistantTool& tool, const ToolResult& result) {
            didCall(client, tool, result);
        });
}

void AssistantService::didCall(const AssistantClient& client, const AssistantTool& tool, const ToolResult& result)
{
    try {
        m_log.append(ActivityEntry::of(client, tool, result, m_environment.clock().now()));
    } catch (const UserError& error) {
        ErrorOutput::writeLine(
            error.message()); // the call was made; that nobody wrote it down is no reason to say otherwise
    }
    if (m_options.windows != nullptr) {
        m_options.windows->didCall(client, tool, result);
    }
}

/// What goes wrong in the event loop ends the service, and with its library in order.
void AssistantService::guarded(const std::function<void()>& work)
{
    try {
        work();
    } catch (const std::exception& error) {
        ErrorOutput::writeLine(error.what());
        end(1);
    }
}

/// The event loop may have more on its way to here, which then finds nobody.
void AssistantService::end(int status)
{
    m_hasEnded = true;
    m_idle.stop();
    m_backups.stop();
    m_days.stop();
    m_end(status);
}

void AssistantService::didAsk(const ControlMessage& request, Descriptor asker)
{
    const std::string what = request.text("do");
    if (what == "show" && m_options.windows != nullptr && !m_hasEnded) {
        m_options.windows->show(request.text("section"));
        std::ignore = ControlChannel::send(asker.number(), {.body = JSON::object({{"did", "show"}})});
        return;
    }
    if (m_hasEnded || (what != "lend" && what != "hand over")) {
        return;
    }
    const auto kind = what == "hand over" ? LibraryLoan::Kind::handedOver : LibraryLoan::Kind::lent;
    if (const std::string no = kind == LibraryLoan::Kind::handedOver ? refusal(request) : ""; !no.empty()) {
        std::ignore = ControlChannel::send(asker.number(), {.body = JSON::object({{"refusal", no}})});
        return;
    }
    m_requests.push_back({.kind = kind, .asker = std::move(asker)});
    if (m_requests.size() == 1) {
        serveNext();
    }
}

/// Why nothing is handed over; empty when it is.
std::string AssistantService::refusal(const ControlMessage& request) const
{
    if (!m_options.isBackground) {
        return ServingRight::alreadyRunning;
    }
    const std::string wanted = request.text("socket");
    if (!wanted.empty() && wanted != ServingRight::comparable(m_socketPath)) {
        return fmt::format("A Quillary in the background serves this library to assistants at {}, and this one should "
                           "serve them at {}. Set {} to the first of them, or wait until that one has ended.",
                           m_socketPath.string(),
                           wanted,
                           AssistantChannel::socketVariable);
    }
    return {};
}

/// Calls under way are ended first; those that only wait for the user would hold everybody up and are refused.
void AssistantService::serveNext()
{
    m_gate.giveUp();
    m_server->release([this](AssistantServer::Handover assistants) { guarded([&] { give(std::move(assistants)); }); });
}

/// The event loop goes on while others have what was given to them, so that the service can be told to end.
void AssistantService::give(AssistantServer::Handover assistants)
{
    Request& request = m_requests.front();
    tellClosing();
    if (!request.backup.empty()) {
        exchange(std::move(assistants));
        return;
    }
    m_loan = std::make_unique<LibraryLoan>(
        request.kind,
        std::move(request.asker),
        LibraryLoan::Contents{.lock = OpenLibrary::close(std::move(m_library)), .assistants = std::move(assistants)});
    if (request.kind == LibraryLoan::Kind::handedOver) {
        m_control.reset(); // the other one listens there from now on
    }
    if (!m_loan->give(m_socketPath)) {
        goOn();
        return;
    }
    m_word = std::make_unique<QSocketNotifier>(m_loan->asker(), QSocketNotifier::Read);
    QObject::connect(m_word.get(), &QSocketNotifier::activated, m_word.get(), [this] { guarded([this] { hear(); }); });
}

void AssistantService::hear()
{
    const LibraryLoan::Word word = m_loan->hear();
    if (word == LibraryLoan::Word::none) {
        return;
    }
    m_word->setEnabled(false);
    if (word == LibraryLoan::Word::takenOver) {
        end(0);
    } else {
        goOn();
    }
}

/// What was given is this service's own again.
void AssistantService::goOn()
{
    m_requests.pop_front();
    LibraryLoan::Contents contents = m_loan->takeBack();
    if (m_control == nullptr) {
        listen();
    }
    openLibrary({.lender = {}, .lock = std::move(contents.lock)});
    m_server->adopt(std::move(contents.assistants));
    m_loan.reset();
    backUpIfDue();
    catchUpIfDue();
    if (!m_requests.empty()) {
        serveNext();
    }
}

void AssistantService::restore(fs::path backup, std::function<void(const RestoreOutcome&)> done)
{
    if (m_hasEnded) {
        return;
    }
    m_requests.push_back({.backup = std::move(backup), .done = std::move(done)});
    if (m_requests.size() == 1) {
        serveNext();
    }
}

void AssistantService::exchange(AssistantServer::Handover assistants)
{
    m_waiting = std::move(assistants);
    const Backups backups(fs::absolute(m_options.library), DataModel::history(), m_environment.calendar());
    m_exchange = std::make_unique<LibraryExchange>(OpenLibrary::close(std::move(m_library)),
                                                   backups,
                                                   m_requests.front().backup,
                                                   m_environment.clock().now(),
                                                   [this] { guarded([this] { didExchange(); }); });
}

void AssistantService::didExchange()
{
    if (m_hasEnded) {
        return;
    }
    const RestoreOutcome outcome = openRestored(*m_exchange);
    QTimer::singleShot(0, &m_days, [this] { m_exchange.reset(); }); // which is telling this
    const Request request = std::move(m_requests.front());
    m_requests.pop_front();
    m_server->adopt(std::move(m_waiting));
    request.done(outcome);
    backUpIfDue();
    catchUpIfDue();
    if (!m_requests.empty()) {
        serveNext();
    }
}

/// A backup was checked before it was put there, and still its upgrade may fail: a full disk is enough.
RestoreOutcome AssistantService::openRestored(LibraryExchange& exchange)
{
    RestoreOutcome outcome = exchange.outcome();
    try {
        openLibrary({.lender = {}, .lock = exchange.takeLock()});
        return outcome;
    } catch (const UserError& error) {
        if (!outcome.kept) {
            throw;
        }
        m_library.reset();
        LibraryClaim claim = claimLibrary(m_options.library);
        const Backups backups(fs::absolute(m_options.library), DataModel::history(), m_environment.calendar());
        std::ignore = backups.restore(*outcome.kept, m_environment.clock().now(), *claim.lock);
        openLibrary(std::move(claim));
        return {.kept = outcome.kept, .refusal = error.message()};
    }
}

void AssistantService::endWhenIdle()
{
    const bool isIdle = m_server->connectionCount() == 0 && m_requests.empty();
    m_idleLooks = isIdle ? m_idleLooks + 1 : 0;
    if (m_idleLooks >= idleLooks && m_server->stopIfUnused()) {
        end(0);
    }
}

/// A borrower keeps its copy of the lock for as long as it needs it.
void AssistantService::stop()
{
    m_hasEnded = true;
    tellClosing();
    m_word.reset();
    m_control.reset();
    const bool isBeingExchanged = m_exchange != nullptr;
    m_exchange.reset();
    if (isBeingExchanged || (m_loan && !m_loan->isElsewhere())) {
        unlink(m_socketPath.c_str());
    }
    m_loan.reset();
    m_waiting = {};
    if (m_server != nullptr) {
        m_server->stop();
    }
}

} // namespace Quillary
