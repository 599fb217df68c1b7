#include "QuillaryUI/Assistant/WakeUp.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <limits>
#include <poll.h>
#include <sys/eventfd.h>
#include <system_error>

namespace Quillary {

namespace {

short wanted(SocketWait what)
{
    switch (what) {
    case SocketWait::nothing:
        break;
    case SocketWait::reading:
        return POLLIN;
    case SocketWait::writing:
        return POLLOUT;
    }
    return 0; // that the other end has gone is told all the same
}

} // namespace

WakeUp::WakeUp()
    : m_event(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    if (!m_event.isOpen()) {
        throw std::system_error(errno, std::generic_category(), "eventfd");
    }
}

void WakeUp::ring() const
{
    // It fails only when it is rung already.
    static_cast<void>(eventfd_write(m_event.number(), 1));
}

void WakeUp::silence() const
{
    // It fails only when it is not rung.
    eventfd_t rings = 0;
    static_cast<void>(eventfd_read(m_event.number(), &rings));
}

SocketState WakeUp::wait(int socket, SocketWait what, std::chrono::milliseconds patience) const
{
    std::array<pollfd, 2> watched = {pollfd{.fd = socket, .events = wanted(what), .revents = 0},
                                     pollfd{.fd = m_event.number(), .events = POLLIN, .revents = 0}};
    const int timeout = narrowed<int>(patience.count()).value_or(std::numeric_limits<int>::max());
    SocketState state;
    const int count = poll(watched.data(), watched.size(), timeout);
    if (count <= 0) {
        state.isWokenUp = count < 0; // a signal came first; whoever waits looks again
        return state;
    }
    const auto events = static_cast<unsigned>(watched[0].revents);
    state.isReady = (events & static_cast<unsigned>(wanted(what))) != 0;
    state.isHungUp = (events & static_cast<unsigned>(POLLHUP | POLLERR | POLLNVAL)) != 0;
    state.isWokenUp = watched[1].revents != 0;
    if (state.isWokenUp) {
        silence();
    }
    return state;
}

} // namespace Quillary
