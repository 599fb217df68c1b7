#include "Quillary/Control/ControlSocket.h"

#include "QuillaryChannel/AssistantChannel.h"

#include <QSocketNotifier>

#include <fmt/format.h>

#include <cstdint>
#include <string_view>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

/// A request is sent at once by a program of ours. Whoever connects and says nothing must not hold up the others.
constexpr std::chrono::milliseconds requestPatience{500};

/// FNV-1a: the same for a path on every day and in every build.
std::uint64_t hash(std::string_view text)
{
    std::uint64_t value = 0xcbf29ce484222325U;
    for (const char character : text) {
        value = (value ^ static_cast<unsigned char>(character)) * 0x100000001b3U;
    }
    return value;
}

} // namespace

fs::path ControlSocket::path(const fs::path& library)
{
    std::error_code failure;
    fs::path whole = fs::weakly_canonical(library, failure);
    if (failure) {
        whole = library;
    }
    return AssistantChannel::userTemporaryDirectory() + fmt::format("quillary-library-{:016x}", hash(whole.string()));
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
    if (const std::optional<ControlMessage> request = ControlChannel::receive(asker.number(), requestPatience)) {
        m_handler(*request, std::move(asker));
    }
}

} // namespace Quillary
