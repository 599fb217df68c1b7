#include "Quillary/AssistantService.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/BuildInfo.h"
#include "Quillary/ErrorOutput.h"
#include "Quillary/PrintingHost.h"
#include "QuillaryChannel/AssistantChannel.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/UserError.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <exception>
#include <optional>
#include <sys/socket.h>
#include <system_error>
#include <tuple>
#include <unistd.h>
#include <utility>

namespace Quillary {

namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

/// The other Quillary first ends the call it is at, which may print a long document.
constexpr milliseconds handoverPatience{150'000};
/// How often a service looks whether it is idle before it takes itself for it.
constexpr int idleLooks = 4;
constexpr milliseconds betweenBackups{60 * 60 * 1000};

constexpr const char* alreadyRunning = "Quillary is already running.";

/// So many times a Quillary that began to serve just now is asked for everything.
constexpr int mostTries = 5;
/// The helper, which starts a service in the background, waits for ten seconds.
constexpr milliseconds backgroundPatience{9'000};

fs::path comparable(const fs::path& path)
{
    std::error_code failure;
    fs::path whole = fs::weakly_canonical(path, failure);
    return failure ? path : whole;
}

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
}

AssistantService::~AssistantService() = default;

void AssistantService::claim()
{
    for (int tries = 0; !askForHandover(); ++tries) {
        LibraryClaim claim;
        if (fs::is_directory(m_options.library)) {
            claim = claimLibrary(m_options.library, m_options.isBackground ? backgroundPatience : patienceWithCommands);
        }
        if (!claim.lender.isOpen()) {
            m_claim = std::move(claim);
            return;
        }
        // Somebody serves since just now. A loan is not for good; what was lent goes back, and everything is asked for.
        if (tries == mostTries) {
            throw UserError(alreadyRunning);
        }
    }
}

/// Asks the Quillary that holds the library, if one does. False: none does.
bool AssistantService::askForHandover()
{
    std::optional<Descriptor> holder = ControlSocket::connect(m_options.library);
    if (!holder) {
        return false;
    }
    if (m_options.isBackground) {
        throw UserError(alreadyRunning);
    }
    const ControlMessage request{
        .body = JSON::object({{"do", "hand over"}, {"socket", comparable(m_socketPath).string()}})};
    if (!ControlChannel::send(holder->number(), request)) {
        return false;
    }
    std::optional<ControlMessage> answer = ControlChannel::receive(holder->number(), handoverPatience);
    if (!answer) {
        return false; // it has just ended; the library says so itself if not
    }
    if (const std::string refusal = answer->text("refusal"); !refusal.empty()) {
        throw UserError(refusal);
    }
    std::optional<Handover> handover = Handover::unpacked(std::move(*answer));
    if (!handover) {
        throw UserError("The running Quillary couldn't hand the library over. Close it, then try again.");
    }
    m_taken = std::make_unique<Taken>(Taken{.holder = std::move(*holder), .handover = std::move(*handover)});
    return true;
}

void AssistantService::start()
{
    if (m_taken) {
        m_socketPath = m_taken->handover.socketPath; // as the other one wrote it
    }
    m_server = std::make_unique<AssistantServer>(m_socketPath, [this] { return makeSession(); });
    if (m_taken) {
        takeOver();
    } else {
        openLibrary(std::move(m_claim));
        m_server->start();
        listen();
    }
    backUpIfDue();
}

/// Whatever fails before the word that ends the other one leaves that one serving.
void AssistantService::takeOver()
{
    const std::unique_ptr<Taken> taken = std::move(m_taken);
    openLibrary({.lender = {}, .lock = LibraryLock::adopted(taken->handover.lock.release())});
    listen();
    std::ignore = ControlChannel::send(taken->holder.number(), {.body = JSON::object({{"did", "take over"}})});
    m_server->adopt(std::move(taken->handover.assistants));
}

void AssistantService::openLibrary(LibraryClaim claim)
{
    m_library = std::make_unique<OpenLibrary>(m_options.library, m_environment, std::move(claim));
}

void AssistantService::backUpIfDue()
{
    if (m_library != nullptr) {
        m_library->backUpIfDue(m_environment);
    }
}

void AssistantService::listen()
{
    m_control =
        std::make_unique<ControlServer>(m_options.library, [this](const ControlMessage& request, Descriptor asker) {
            guarded([&] { didAsk(request, std::move(asker)); });
        });
    m_backups.start(betweenBackups);
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
    m_end(status);
}

void AssistantService::didAsk(const ControlMessage& request, Descriptor asker)
{
    const std::string what = request.text("do");
    if (m_hasEnded || (what != "lend" && what != "hand over")) {
        return;
    }
    const bool isHandover = what == "hand over";
    if (const std::string no = isHandover ? refusal(request) : ""; !no.empty()) {
        std::ignore = ControlChannel::send(asker.number(), {.body = JSON::object({{"refusal", no}})});
        return;
    }
    m_requests.push_back({.isHandover = isHandover, .asker = std::move(asker)});
    if (m_requests.size() == 1) {
        serveNext();
    }
}

/// Why nothing is handed over; empty when it is.
std::string AssistantService::refusal(const ControlMessage& request) const
{
    if (!m_options.isBackground) {
        return alreadyRunning;
    }
    const std::string wanted = request.text("socket");
    if (!wanted.empty() && wanted != comparable(m_socketPath)) {
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
    m_given = std::make_unique<Given>(Given{.asker = std::move(request.asker),
                                            .isHandover = request.isHandover,
                                            .lock = OpenLibrary::close(std::move(m_library)),
                                            .assistants = std::move(assistants)});
    const bool isSent = m_given->isHandover ? handOver() : lend();
    if (!isSent) {
        goOn();
        return;
    }
    m_word = std::make_unique<QSocketNotifier>(m_given->asker.number(), QSocketNotifier::Read);
    QObject::connect(m_word.get(), &QSocketNotifier::activated, m_word.get(), [this] { guarded([this] { hear(); }); });
}

/// False: nobody has it.
bool AssistantService::lend()
{
    ControlMessage answer{.body = JSON::object({{"did", "lend"}})};
    answer.descriptors.push_back(Descriptor::duplicateOf(m_given->lock->descriptor()));
    return answer.descriptors.front().isOpen() && ControlChannel::send(m_given->asker.number(), answer);
}

/// False: nobody has it.
bool AssistantService::handOver()
{
    Descriptor lock = Descriptor::duplicateOf(m_given->lock->descriptor());
    if (!lock.isOpen()) {
        return false;
    }
    m_control.reset(); // the other one listens there from now on
    ControlMessage message = Handover::packed(
        {.lock = std::move(lock), .socketPath = m_socketPath, .assistants = std::move(m_given->assistants)});
    const bool isSent = ControlChannel::send(m_given->asker.number(), message);
    Handover kept = Handover::unpacked(std::move(message)).value_or(Handover());
    precondition(kept.lock.isOpen(), "what was packed can be unpacked");
    m_given->assistants = std::move(kept.assistants);
    return isSent;
}

/// A borrower is done when it closes, whatever it says before. One that takes over says so; if it closes without a word,
/// it has failed.
void AssistantService::hear()
{
    std::array<char, 64> ignored{};
    const ssize_t count = recv(m_given->asker.number(), ignored.data(), ignored.size(), MSG_DONTWAIT);
    const bool isLater = count < 0 && (errno == EINTR || errno == EAGAIN);
    if (isLater || (count > 0 && !m_given->isHandover)) {
        return;
    }
    m_word->setEnabled(false);
    if (count > 0) {
        end(0);
    } else {
        goOn();
    }
}

/// What was given is this service's own again.
void AssistantService::goOn()
{
    m_requests.pop_front();
    m_given->isHandover = false; // until it is served again, its socket is this service's to remove
    if (m_control == nullptr) {
        listen();
    }
    openLibrary({.lender = {}, .lock = std::move(m_given->lock)});
    m_server->adopt(std::move(m_given->assistants));
    m_given.reset();
    backUpIfDue();
    if (!m_requests.empty()) {
        serveNext();
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
    m_word.reset();
    m_control.reset();
    if (m_given && !m_given->isHandover) {
        unlink(m_socketPath.c_str());
    }
    m_given.reset();
    if (m_server != nullptr) {
        m_server->stop();
    }
}

} // namespace Quillary
