#include "QuillaryChannel/Helper/Relay.h"

#include <climits>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Quillary {

namespace {

enum End : std::size_t { inputEnd, socketEnd, outputEnd };

constexpr short gone = POLLERR | POLLHUP | POLLNVAL;

bool isTemporary(int error)
{
    return error == EINTR || error == EAGAIN || error == EWOULDBLOCK;
}

/// A pipe that is writable takes `PIPE_BUF` bytes at once, and one that is empty takes as much as it can hold.
std::size_t sizeWithoutWaiting(int output)
{
    int waiting = 0;
    const int capacity = fcntl(output, F_GETPIPE_SZ);
    const bool isEmptyPipe = capacity > PIPE_BUF && ioctl(output, FIONREAD, &waiting) == 0 && waiting == 0;
    return isEmptyPipe ? static_cast<std::size_t>(capacity) : PIPE_BUF;
}

bool isSocket(int descriptor)
{
    struct stat facts = {};
    return fstat(descriptor, &facts) == 0 && S_ISSOCK(facts.st_mode);
}

} // namespace

void Passage::fill(int source)
{
    const ssize_t count = read(source, m_bytes.data(), m_bytes.size());
    if (count > 0) {
        m_begin = 0;
        m_end = static_cast<std::size_t>(count);
    } else if (count == 0 || !isTemporary(errno)) {
        m_hasEnded = true;
    }
}

int Passage::drainToSocket(int socket)
{
    return advance(send(socket, m_bytes.data() + m_begin, m_end - m_begin, MSG_DONTWAIT | MSG_NOSIGNAL));
}

int Passage::drainToOutput(int output)
{
    const std::size_t size = std::min(m_end - m_begin, sizeWithoutWaiting(output));
    return advance(write(output, m_bytes.data() + m_begin, size));
}

int Passage::advance(long count)
{
    if (count < 0) {
        return isTemporary(errno) ? 0 : errno;
    }
    m_begin += static_cast<std::size_t>(count);
    return 0;
}

void Passage::abandon()
{
    m_begin = m_end;
    m_hasEnded = true;
}

Relay::Relay(int input, int output, int socket)
    : m_input(input)
    , m_output(output)
    , m_socket(socket)
    , m_isOutputSocket(isSocket(output))
{
}

int Relay::run()
{
    while (!m_answers.isDone()) {
        passOnEndOfInput();
        Ends waiting = ends();
        if (poll(waiting.data(), waiting.size(), -1) < 0) {
            if (isTemporary(errno)) {
                continue;
            }
            return errno;
        }
        if ((waiting[outputEnd].revents & gone) != 0) {
            return 0;
        }
        moveRequests(waiting);
        if (const int error = moveAnswers(waiting); error != 0) {
            return error == EPIPE ? 0 : error;
        }
    }
    return 0;
}

/// A descriptor from which nothing is wanted is left out: one that hung up would wake us again and again. The output is
/// always watched, so that its reader's end is noticed while nothing moves.
Relay::Ends Relay::ends() const
{
    const bool takesInput = m_requests.isEmpty() && !m_requests.hasEnded();
    const bool takesAnswers = m_answers.isEmpty() && !m_answers.hasEnded();
    const int socketEvents = (takesAnswers ? POLLIN : 0) | (m_requests.isEmpty() ? 0 : POLLOUT);
    const int outputEvents = m_answers.isEmpty() ? 0 : POLLOUT;
    return {pollfd{.fd = takesInput ? m_input : -1, .events = POLLIN, .revents = 0},
            pollfd{.fd = socketEvents == 0 ? -1 : m_socket, .events = static_cast<short>(socketEvents), .revents = 0},
            pollfd{.fd = m_output, .events = static_cast<short>(outputEvents), .revents = 0}};
}

void Relay::passOnEndOfInput()
{
    if (m_requests.isDone() && !m_hasPassedOnEnd) {
        shutdown(m_socket, SHUT_WR);
        m_hasPassedOnEnd = true;
    }
}

void Relay::moveRequests(const Ends& ready)
{
    if (ready[inputEnd].revents != 0) {
        m_requests.fill(m_input);
    }
    if (!m_requests.isEmpty() && m_requests.drainToSocket(m_socket) != 0) {
        // Nobody takes requests any more; answers sent before that still come, and then the socket's end.
        m_requests.abandon();
    }
}

int Relay::moveAnswers(const Ends& ready)
{
    if ((ready[outputEnd].revents & POLLOUT) != 0) {
        return m_isOutputSocket ? m_answers.drainToSocket(m_output) : m_answers.drainToOutput(m_output);
    }
    if ((ready[socketEnd].revents & (POLLIN | gone)) != 0 && m_answers.isEmpty()) {
        m_answers.fill(m_socket);
    }
    return 0;
}

} // namespace Quillary
