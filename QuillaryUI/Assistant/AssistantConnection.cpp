#include "QuillaryUI/Assistant/AssistantConnection.h"

#include "QuillaryCore/Assistant/Session/MCPMessages.h"
#include "QuillaryUI/Assistant/LookAhead.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <sys/socket.h>
#include <utility>

namespace Quillary {

namespace {

constexpr std::size_t readSize = 65536;
constexpr std::chrono::milliseconds forEver{-1};

/// An answer that takes longer may wait for the user: then it is worth the while to look for a cancellation.
constexpr std::chrono::milliseconds quickAnswer{50};

/// Whether a read or write that failed may be tried again when the socket is ready.
bool isTemporary(int error)
{
    return error == EAGAIN || error == EWOULDBLOCK || error == EINTR;
}

} // namespace

void AnswerBox::put(std::optional<std::string> answer)
{
    {
        const std::scoped_lock lock(m_mutex);
        m_answer = std::move(answer);
    }
    m_wakeUp.ring();
}

void AnswerBox::give(Order order)
{
    {
        const std::scoped_lock lock(m_mutex);
        m_order = order;
    }
    m_wakeUp.ring();
}

std::optional<std::optional<std::string>> AnswerBox::takeAnswer()
{
    const std::scoped_lock lock(m_mutex);
    return std::exchange(m_answer, std::nullopt);
}

AnswerBox::Order AnswerBox::order() const
{
    const std::scoped_lock lock(m_mutex);
    return m_order;
}

AssistantConnection::AssistantConnection(Parked from, std::chrono::milliseconds patience, Events events)
    : m_socket(std::move(from.socket))
    , m_lines(std::move(from.received))
    , m_unsent(std::move(from.unsent))
    , m_patience(patience)
    , m_events(std::move(events))
    , m_thread([this] { run(); })
{
}

AssistantConnection::~AssistantConnection()
{
    m_box->give(AnswerBox::Order::hangUp);
    if (m_thread.joinable()) {
        m_thread.join();
    }
}

bool AssistantConnection::wasParked()
{
    if (m_thread.joinable()) {
        m_thread.join();
    }
    return m_isParked;
}

AssistantConnection::Parked AssistantConnection::take()
{
    return {.socket = std::move(m_socket), .received = m_lines.take(), .unsent = std::move(m_unsent)};
}

void AssistantConnection::run()
{
    bool isGoingOn = true;
    while (isGoingOn && write() && m_box->order() == AnswerBox::Order::goOn) {
        if (auto line = m_lines.next()) {
            isGoingOn = handOver(std::move(*line));
        } else {
            isGoingOn = read();
        }
    }
    m_isParked = isGoingOn && m_box->order() == AnswerBox::Order::park;
    m_events.didEnd();
}

/// False: the conversation is over. Parked, it may leave a rest behind.
bool AssistantConnection::write()
{
    std::string_view rest = m_unsent;
    while (!rest.empty()) {
        const ssize_t count = send(m_socket.number(), rest.data(), rest.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (count >= 0) {
            rest.remove_prefix(static_cast<std::size_t>(count));
            continue;
        }
        if (!isTemporary(errno)) {
            return false;
        }
        if (m_box->order() != AnswerBox::Order::goOn) {
            break;
        }
        const SocketState state = m_box->wakeUp().wait(m_socket.number(), SocketWait::writing, m_patience);
        if (!state.isReady && !state.isWokenUp) {
            return false; // gone, or it takes nothing
        }
    }
    m_unsent.erase(0, m_unsent.size() - rest.size());
    return true;
}

/// False: the conversation is over.
bool AssistantConnection::handOver(LineBuffer::Line line)
{
    if (line.isTooLong) {
        m_unsent = MCPMessages::parseError() + '\n';
        return true;
    }
    m_events.didReceive(std::move(line.text), m_box);
    std::optional<LookAhead> ahead; // once the answer takes its time
    while (m_box->order() != AnswerBox::Order::hangUp) {
        if (auto answer = m_box->takeAnswer()) {
            if (ahead) {
                m_lines.append(ahead->bytes());
            }
            if (*answer) {
                m_unsent = std::move(**answer);
                m_unsent += '\n';
            }
            return true;
        }
        const SocketWait what = ahead && ahead->isReading() ? SocketWait::reading : SocketWait::nothing;
        const SocketState state = m_box->wakeUp().wait(m_socket.number(), what, ahead ? forEver : quickAnswer);
        if (state.isHungUp) {
            return false;
        }
        if (state.isReady) {
            ahead->read(m_socket.number());
        } else if (!ahead && !state.isWokenUp) {
            ahead.emplace(m_lines, m_events.mayCancel);
        }
    }
    return false;
}

/// False: the conversation is over.
bool AssistantConnection::read()
{
    std::array<char, readSize> bytes; // filled by the call
    const ssize_t count = recv(m_socket.number(), bytes.data(), bytes.size(), MSG_DONTWAIT);
    if (count > 0) {
        m_lines.append({bytes.data(), static_cast<std::size_t>(count)});
        return true;
    }
    if (count == 0 || !isTemporary(errno)) {
        return false;
    }
    static_cast<void>(m_box->wakeUp().wait(m_socket.number(), SocketWait::reading));
    return true;
}

} // namespace Quillary
