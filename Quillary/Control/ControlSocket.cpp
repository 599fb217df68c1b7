#include "Quillary/Control/ControlSocket.h"

#include "QuillaryChannel/AssistantChannel.h"

#include <QSocketNotifier>

#include <fmt/format.h>

#include <cstdint>
#include <string_view>
#include <sys/socket.h>
#include <sys/time.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

/// A program of ours sends a request in one go.
constexpr std::chrono::milliseconds requestPatience{500};

/// How long an answer may wait for a program that takes nothing of it.
constexpr timeval answerPatience{.tv_sec = 10, .tv_usec = 0};

/// More of them are turned away, the longest silent first.
constexpr std::size_t mostSilentCallers = 64;

/// FNV-1a: the same for a path on every day and in every build.
std::uint64_t hash(std::string_view text)
{
    std::uint64_t value = 0xcbf29ce484222325U;
    for (const char character : text) {
        value = (value ^ static_cast<unsigned char>(character)) * 0x100000001b3U;
    }
    return value;
}

constexpr std::string_view fileNameStart = "quillary-library-";

/// What was left by libraries that nobody serves: each has a name of its own, so they would grow in number for ever.
void removeStaleSockets(const fs::path& folder)
{
    std::error_code failure;
    for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end; entry.increment(failure)) {
        const fs::path file = entry->path();
        if (file.filename().string().starts_with(fileNameStart) && file.extension() == ".lock") {
            ListeningSocket::removeIfStale(fs::path(file).replace_extension());
        }
    }
}

} // namespace

fs::path ControlSocket::path(const fs::path& library)
{
    std::error_code failure;
    fs::path whole = fs::weakly_canonical(library, failure);
    if (failure) {
        whole = library;
    }
    return AssistantChannel::userTemporaryDirectory() + fmt::format("{}{:016x}", fileNameStart, hash(whole.string()));
}

std::optional<Descriptor> ControlSocket::connect(const fs::path& library)
{
    const auto address = AssistantChannel::address(path(library).string());
    Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (!address || !socket.isOpen() || ::connect(socket.number(), address->pointer(), address->length) != 0 ||
        !AssistantChannel::isPeerOf(getuid(), socket.number())) {
        return std::nullopt;
    }
    return socket;
}

ControlServer::ControlServer(const fs::path& library, Handler handler)
    : m_path(ControlSocket::path(library))
    , m_handler(std::move(handler))
    , m_listener(ListeningSocket::open(m_path))
    , m_notifier(std::make_unique<QSocketNotifier>(m_listener.socket.number(), QSocketNotifier::Read))
{
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { accept(); });
    removeStaleSockets(m_path.parent_path());
}

ControlServer::~ControlServer()
{
    m_notifier.reset();
    unlink(m_path.c_str());
}

void ControlServer::accept()
{
    Descriptor asker(accept4(m_listener.socket.number(), nullptr, nullptr, SOCK_CLOEXEC));
    if (!asker.isOpen() || !AssistantChannel::isPeerOf(getuid(), asker.number())) {
        return;
    }
    setsockopt(asker.number(), SOL_SOCKET, SO_SNDTIMEO, &answerPatience, sizeof answerPatience);
    if (m_callers.size() == mostSilentCallers) {
        m_callers.pop_front();
    }
    auto notifier = std::make_unique<QSocketNotifier>(asker.number(), QSocketNotifier::Read);
    const auto caller = m_callers.insert(m_callers.end(), {std::move(asker), std::move(notifier)});
    QSocketNotifier* speaks = caller->notifier.get();
    QObject::connect(speaks, &QSocketNotifier::activated, speaks, [this, caller] { hear(caller); });
}

/// Touches nothing after the handler, which may be rid of this server.
void ControlServer::hear(std::list<Caller>::iterator caller)
{
    Descriptor asker = std::move(caller->socket);
    caller->notifier->setEnabled(false);
    caller->notifier.release()->deleteLater(); // it is the one that calls
    m_callers.erase(caller);
    if (const std::optional<ControlMessage> request = ControlChannel::receive(asker.number(), requestPatience)) {
        const Handler handler = m_handler;
        handler(*request, std::move(asker));
    }
}

} // namespace Quillary
