#include "Quillary/AssistantService.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/BuildInfo.h"
#include "Quillary/Control/LibraryClaim.h"
#include "Quillary/PrintingHost.h"
#include "QuillaryChannel/AssistantChannel.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/UserError.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <exception>
#include <optional>
#include <poll.h>
#include <sys/socket.h>
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

void report(const std::string& sentence)
{
    fmt::print(stderr, "{}\n", sentence);
}

/// Waits until the other end closes, or says that it has taken over. False: it closed without a word.
bool waitForWord(int socket)
{
    std::array<char, 64> ignored{};
    ssize_t count = -1;
    do {
        count = recv(socket, ignored.data(), ignored.size(), 0);
    } while (count < 0 && errno == EINTR);
    return count > 0;
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
              .report = report})
{
    QObject::connect(&m_idle, &QTimer::timeout, &m_idle, [this] { endWhenIdle(); });
    QObject::connect(&m_backups, &QTimer::timeout, &m_backups, [this] {
        if (m_library != nullptr) {
            m_library->backUpIfDue(m_environment);
        }
    });
}

AssistantService::~AssistantService() = default;

void AssistantService::start()
{
    if (!takeOver()) {
        LibraryClaim claim = fs::is_directory(m_options.library) ? claimLibrary(m_options.library) : LibraryClaim();
        if (claim.lender.isOpen()) {
            throw UserError(alreadyRunning); // since just now; a lender waits, and may not wait for good
        }
        openLibrary(std::move(claim));
        m_server = std::make_unique<AssistantServer>(m_socketPath, [this] { return makeSession(); });
        m_server->start();
    }
    listen();
}

/// Asks the Quillary that holds the library, if one does. False: none does.
bool AssistantService::takeOver()
{
    const std::optional<Descriptor> holder = ControlSocket::connect(m_options.library);
    if (!holder) {
        return false;
    }
    if (m_options.isBackground) {
        throw UserError(alreadyRunning);
    }
    if (!ControlChannel::send(holder->number(), {.body = JSON::object({{"do", "hand over"}})})) {
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
    openLibrary({.lender = {}, .lock = std::move(handover->lock)});
    m_socketPath = handover->socketPath;
    m_server = std::make_unique<AssistantServer>(m_socketPath, [this] { return makeSession(); });
    m_server->adopt(std::move(handover->assistants));
    std::ignore = ControlChannel::send(holder->number(), {.body = JSON::object({{"did", "take over"}})});
    return true;
}

void AssistantService::openLibrary(LibraryClaim claim)
{
    m_library = std::make_unique<OpenLibrary>(m_options.library, m_environment, std::move(claim));
    m_library->backUpIfDue(m_environment);
}

void AssistantService::listen()
{
    m_control =
        std::make_unique<ControlServer>(m_options.library, [this](const ControlMessage& request, Descriptor asker) {
            didAsk(request, std::move(asker));
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
        report(error.message()); // the call was made; that nobody wrote it down is no reason to say otherwise
    }
}

void AssistantService::didAsk(const ControlMessage& request, Descriptor asker)
{
    const std::string what = request.text("do");
    if (what == "hand over" && !m_options.isBackground) {
        std::ignore = ControlChannel::send(asker.number(), {.body = JSON::object({{"refusal", alreadyRunning}})});
        return;
    }
    if (what != "lend" && what != "hand over") {
        return;
    }
    m_requests.push_back({.isHandover = what == "hand over", .asker = std::move(asker)});
    if (m_requests.size() == 1) {
        serveNext();
    }
}

/// Calls under way are ended first; those that only wait for the user would hold everybody up and are refused.
void AssistantService::serveNext()
{
    m_gate.giveUp();
    m_server->release([this](AssistantServer::Handover assistants) {
        Request request = std::move(m_requests.front());
        if (request.isHandover) {
            handOver(std::move(request.asker), std::move(assistants));
        } else {
            lend(std::move(request.asker), std::move(assistants));
        }
    });
}

void AssistantService::lend(Descriptor asker, AssistantServer::Handover assistants)
{
    std::unique_ptr<LibraryLock> lock = OpenLibrary::close(std::move(m_library));
    ControlMessage answer{.body = JSON::object({{"did", "lend"}})};
    answer.descriptors.emplace_back(dup(lock->descriptor()));
    if (ControlChannel::send(asker.number(), answer)) {
        std::ignore = waitForWord(asker.number());
    }
    goOn(std::move(lock), std::move(assistants));
}

void AssistantService::handOver(Descriptor asker, AssistantServer::Handover assistants)
{
    std::unique_ptr<LibraryLock> lock = OpenLibrary::close(std::move(m_library));
    m_control.reset(); // the other one listens there from now on
    ControlMessage message =
        Handover::packed({.lock = std::move(lock), .socketPath = m_socketPath, .assistants = std::move(assistants)});
    if (ControlChannel::send(asker.number(), message) && waitForWord(asker.number())) {
        m_end(0);
        return;
    }
    std::optional<Handover> back = Handover::unpacked(std::move(message));
    precondition(back.has_value(), "what was packed can be unpacked");
    listen();
    goOn(std::move(back->lock), std::move(back->assistants));
}

void AssistantService::goOn(std::unique_ptr<LibraryLock> lock, AssistantServer::Handover assistants)
{
    m_requests.pop_front();
    try {
        openLibrary({.lender = {}, .lock = std::move(lock)});
        m_server->adopt(std::move(assistants));
    } catch (const std::exception& error) {
        report(error.what());
        m_end(1);
        return;
    }
    if (!m_requests.empty()) {
        serveNext();
    }
}

void AssistantService::endWhenIdle()
{
    const bool isIdle = m_server->connectionCount() == 0 && m_requests.empty();
    m_idleLooks = isIdle ? m_idleLooks + 1 : 0;
    if (m_idleLooks >= idleLooks) {
        m_end(0);
    }
}

void AssistantService::stop()
{
    m_control.reset();
    if (m_server != nullptr) {
        m_server->stop();
    }
}

} // namespace Quillary
