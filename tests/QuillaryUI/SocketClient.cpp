#include "tests/QuillaryUI/SocketClient.h"

#include "QuillaryChannel/AssistantChannel.h"

#include <array>
#include <cerrno>
#include <sys/socket.h>

namespace Quillary {

SocketClient::SocketClient(const std::filesystem::path& path)
    : m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0))
{
    const auto address = AssistantChannel::address(path.string()).value();
    m_isConnected = ::connect(m_socket.number(), address.pointer(), address.length) == 0;
}

std::string_view SocketClient::send(std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::send(m_socket.number(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count <= 0) {
            break;
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return bytes;
}

void SocketClient::endSending()
{
    ::shutdown(m_socket.number(), SHUT_WR);
}

void SocketClient::receive()
{
    std::array<char, 65536> bytes; // filled by the call
    while (!m_isAtEnd) {
        const ssize_t count = ::recv(m_socket.number(), bytes.data(), bytes.size(), 0);
        if (count > 0) {
            m_received.append(bytes.data(), static_cast<std::size_t>(count));
        } else if (count == 0 || errno != EAGAIN) {
            m_isAtEnd = true;
        } else {
            return;
        }
    }
}

std::optional<std::string> SocketClient::line()
{
    receive();
    const std::size_t newline = m_received.find('\n');
    if (newline == std::string::npos) {
        return std::nullopt;
    }
    std::string result = m_received.substr(0, newline);
    m_received.erase(0, newline + 1);
    return result;
}

std::string SocketClient::waitForLine()
{
    std::optional<std::string> result;
    waitUntil([&] {
        result = line();
        return result.has_value();
    });
    return result.value_or("");
}

bool SocketClient::isAtEnd()
{
    receive();
    return m_isAtEnd && m_received.empty();
}

} // namespace Quillary
