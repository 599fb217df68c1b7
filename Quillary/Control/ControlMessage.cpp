#include "Quillary/Control/ControlMessage.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <poll.h>
#include <span>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace Quillary {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// The system passes at most 253 at once.
constexpr std::size_t descriptorsAtOnce = 200;
constexpr std::uint64_t mostDescriptors = 4096;

/// Both ends run on one machine, so numbers keep its own byte order.
struct Header
{
    std::uint64_t bodySize = 0;
    std::uint64_t byteCount = 0;
    std::uint64_t descriptorCount = 0;
};

bool sendBytes(int socket, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count < 0 && errno != EINTR) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
    return true;
}

/// Room for the control data of one message, aligned as the system wants it.
struct alignas(cmsghdr) Envelope
{
    std::array<char, CMSG_SPACE(descriptorsAtOnce * sizeof(int))> data{};
};

/// One byte that carries the descriptors.
bool sendDescriptors(int socket, std::span<const Descriptor> descriptors)
{
    Envelope envelope;
    char byte = 0;
    iovec part{.iov_base = &byte, .iov_len = 1};
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = envelope.data.data();
    message.msg_controllen = CMSG_SPACE(descriptors.size() * sizeof(int));
    cmsghdr* header = CMSG_FIRSTHDR(&message);
    header->cmsg_level = SOL_SOCKET;
    header->cmsg_type = SCM_RIGHTS;
    header->cmsg_len = CMSG_LEN(descriptors.size() * sizeof(int));
    unsigned char* place = CMSG_DATA(header);
    for (const Descriptor& descriptor : descriptors) {
        const int number = descriptor.number();
        std::memcpy(place, &number, sizeof number);
        place += sizeof number;
    }
    ssize_t count = -1;
    do {
        count = sendmsg(socket, &message, MSG_NOSIGNAL);
    } while (count < 0 && errno == EINTR);
    return count == 1;
}

/// Reads against a deadline.
class Reader
{
public:
    Reader(int socket, milliseconds patience)
        : m_socket(socket)
        , m_deadline(steady_clock::now() + patience)
    {
    }

    [[nodiscard]] bool read(std::span<char> place)
    {
        while (!place.empty()) {
            const ssize_t count = isReadable() ? recv(m_socket, place.data(), place.size(), MSG_DONTWAIT) : 0;
            if (count == 0 || (count < 0 && errno != EINTR && errno != EAGAIN)) {
                return false;
            }
            place = place.subspan(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        }
        return true;
    }

    [[nodiscard]] bool readText(std::string& text, std::uint64_t size)
    {
        text.resize(size);
        return read(text);
    }

    [[nodiscard]] bool readDescriptors(std::vector<Descriptor>& into)
    {
        Envelope envelope;
        char byte = 0;
        iovec part{.iov_base = &byte, .iov_len = 1};
        msghdr message{};
        message.msg_iov = &part;
        message.msg_iovlen = 1;
        message.msg_control = envelope.data.data();
        message.msg_controllen = envelope.data.size();
        if (!isReadable() || recvmsg(m_socket, &message, MSG_CMSG_CLOEXEC) != 1) {
            return false;
        }
        const cmsghdr* header = CMSG_FIRSTHDR(&message);
        if (header == nullptr || header->cmsg_level != SOL_SOCKET || header->cmsg_type != SCM_RIGHTS) {
            return false;
        }
        const std::size_t count = (header->cmsg_len - CMSG_LEN(0)) / sizeof(int);
        const unsigned char* place = CMSG_DATA(header);
        for (std::size_t index = 0; index < count; ++index) {
            int number = -1;
            std::memcpy(&number, place + (index * sizeof number), sizeof number);
            into.emplace_back(number);
        }
        return (message.msg_flags & MSG_CTRUNC) == 0;
    }

private:
    [[nodiscard]] bool isReadable() const
    {
        pollfd waiting{.fd = m_socket, .events = POLLIN, .revents = 0};
        for (;;) {
            const auto left = std::chrono::ceil<milliseconds>(m_deadline - steady_clock::now());
            const int ready = poll(&waiting, 1, static_cast<int>(std::max<std::int64_t>(left.count(), 0)));
            if (ready >= 0 || errno != EINTR) {
                return ready > 0;
            }
        }
    }

    int m_socket;
    steady_clock::time_point m_deadline;
};

} // namespace

std::string ControlMessage::text(std::string_view name) const
{
    const JSON* value = body.find(name);
    const std::string* text = value == nullptr ? nullptr : value->string();
    return text == nullptr ? std::string() : *text;
}

bool ControlChannel::send(int socket, const ControlMessage& message)
{
    const std::string body = message.body.dump();
    const Header header{body.size(), message.bytes.size(), message.descriptors.size()};
    std::string start(sizeof header, '\0');
    std::memcpy(start.data(), &header, sizeof header);
    if (!sendBytes(socket, start)) {
        return false;
    }
    std::span<const Descriptor> left = message.descriptors;
    while (!left.empty()) {
        const std::size_t count = std::min(left.size(), descriptorsAtOnce);
        if (!sendDescriptors(socket, left.first(count))) {
            return false;
        }
        left = left.subspan(count);
    }
    return sendBytes(socket, body) && sendBytes(socket, message.bytes);
}

std::optional<ControlMessage> ControlChannel::receive(int socket, milliseconds patience)
{
    Reader reader(socket, patience);
    std::array<char, sizeof(Header)> start{};
    Header header;
    if (!reader.read(start)) {
        return std::nullopt;
    }
    std::memcpy(&header, start.data(), sizeof header);
    if (header.bodySize > largestMessage || header.byteCount > largestMessage ||
        header.descriptorCount > mostDescriptors) {
        return std::nullopt;
    }
    ControlMessage message;
    while (message.descriptors.size() < header.descriptorCount) {
        if (!reader.readDescriptors(message.descriptors)) {
            return std::nullopt;
        }
    }
    std::string body;
    if (!reader.readText(body, header.bodySize) || !reader.readText(message.bytes, header.byteCount)) {
        return std::nullopt;
    }
    std::optional<JSON> parsed = JSON::parse(body);
    if (!parsed || parsed->object() == nullptr) {
        return std::nullopt;
    }
    message.body = std::move(*parsed);
    return message;
}

} // namespace Quillary
