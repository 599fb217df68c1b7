#include "QuillaryChannel/Helper/ServerConnection.h"

#include "QuillaryChannel/Helper/ApplicationStart.h"

#include <cerrno>
#include <chrono>
#include <optional>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <sys/time.h>
#include <system_error>
#include <unistd.h>

namespace Quillary {

namespace {

using Clock = std::chrono::steady_clock;
using AssistantChannel::Error;

constexpr std::chrono::milliseconds pause{20};

/// A socket that connects, or gives up when a server that is there takes nobody.
int newSocket(std::chrono::seconds patience)
{
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (socket < 0) {
        throw Error("Couldn't make a socket: " + std::generic_category().message(errno) + ".");
    }
    const timeval limit{.tv_sec = patience.count(), .tv_usec = 0};
    setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
    return socket;
}

/// No value: nothing listens there.
std::optional<int> tryToConnect(const AssistantChannel::Address& address, std::chrono::seconds patience)
{
    const int socket = newSocket(patience);
    int cause = 0;
    do {
        cause = connect(socket, address.pointer(), address.length) == 0 ? 0 : errno;
    } while (cause == EINTR);
    if (cause == 0) {
        return socket;
    }
    close(socket);
    const std::string path = address.record.sun_path;
    switch (cause) {
    case ENOENT:
    case ECONNREFUSED:
        return std::nullopt;
    case EAGAIN:
        throw Error("Quillary doesn't answer at “" + path + "”. Close it and open it again.");
    default:
        throw Error("Couldn't connect to Quillary at “" + path + "”: " + std::generic_category().message(cause) + ".");
    }
}

bool hasReader(int output, std::chrono::milliseconds wait)
{
    pollfd watched{.fd = output, .events = 0, .revents = 0};
    return poll(&watched, 1, static_cast<int>(wait.count())) <= 0;
}

/// The application as it comes up. No value: the output lost its reader.
std::optional<int>
startedServer(const AssistantChannel::Address& address, const HelperSurroundings& surroundings, int output)
{
    ApplicationStart::inBackground(ApplicationStart::programBeside(surroundings.linkToSelf));
    const Clock::time_point end = Clock::now() + surroundings.patience;
    while (hasReader(output, pause)) {
        if (const auto socket = tryToConnect(address, surroundings.patience)) {
            return socket;
        }
        if (Clock::now() > end) {
            throw Error("Quillary didn't start within " + std::to_string(surroundings.patience.count()) +
                        " seconds. Run “quillary serve” in a terminal to see why.");
        }
    }
    return std::nullopt;
}

} // namespace

int connectToApplication(const HelperSurroundings& surroundings, int output)
{
    const std::string path = AssistantChannel::socketPath(surroundings.environment, surroundings.places);
    const auto address = AssistantChannel::address(path);
    if (!address) {
        throw Error("The socket path “" + path + "” is too long: it may have at most " +
                    std::to_string(AssistantChannel::longestPath) + " bytes.");
    }
    auto socket = tryToConnect(*address, surroundings.patience);
    if (!socket && AssistantChannel::namesSocket(surroundings.environment)) {
        throw Error("Nothing listens at “" + path + "”, the socket named in " +
                    std::string(AssistantChannel::socketVariable) +
                    ". Start Quillary with the same setting, or remove it.");
    }
    if (!socket) {
        socket = startedServer(*address, surroundings, output);
    }
    if (!socket) {
        return -1;
    }
    if (!AssistantChannel::isPeerOf(surroundings.places.user, *socket)) {
        close(*socket);
        throw Error("What listens at “" + path + "” belongs to another user, so nothing was sent to it.");
    }
    return *socket;
}

} // namespace Quillary
