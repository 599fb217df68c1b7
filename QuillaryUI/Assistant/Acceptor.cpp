#include "QuillaryUI/Assistant/Acceptor.h"

#include <cerrno>
#include <chrono>
#include <sys/socket.h>
#include <utility>

namespace Quillary {

namespace {

/// How long to rest when the system has no descriptor or memory for a connection that waits.
constexpr std::chrono::milliseconds rest{100};

bool isShortage(int error)
{
    return error == EMFILE || error == ENFILE || error == ENOBUFS || error == ENOMEM;
}

} // namespace

Acceptor::Acceptor(int listener, DidAccept didAccept)
    : m_listener(listener)
    , m_didAccept(std::move(didAccept))
    , m_thread([this] { run(); })
{
}

Acceptor::~Acceptor()
{
    m_isStopping = true;
    m_wakeUp.ring();
    m_thread.join();
}

void Acceptor::run()
{
    while (!m_isStopping) {
        Descriptor socket(accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC));
        if (socket.isOpen()) {
            m_didAccept(std::move(socket));
        } else if (isShortage(errno)) {
            constexpr int noSocket = -1;
            static_cast<void>(m_wakeUp.wait(noSocket, SocketWait::nothing, rest));
        } else {
            static_cast<void>(m_wakeUp.wait(m_listener, SocketWait::reading));
        }
    }
}

} // namespace Quillary
