// The program that an assistant app starts as its MCP server. It knows nothing of the protocol.

#include "QuillaryChannel/Helper/Relay.h"
#include "QuillaryChannel/Helper/ServerConnection.h"

#include <cerrno>
#include <csignal>
#include <exception>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <system_error>
#include <unistd.h>

namespace Quillary {

namespace {

constexpr std::string_view versionText = "quillary-mcp " QUILLARY_VERSION "\n";
constexpr std::string_view helpText =
    "quillary-mcp connects an AI assistant app with Quillary (Model Context Protocol over standard input and output).\n"
    "Assistant apps start it without arguments; `quillary assistants` shows how to set them up.\n";

void say(int stream, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t count = write(stream, text.data(), text.size());
        if (count < 0 && errno != EINTR) {
            return;
        }
        text.remove_prefix(static_cast<std::size_t>(count < 0 ? 0 : count));
    }
}

/// A socket must not get the number of a standard stream that was closed when we were started.
void openMissingStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) < 0) {
            open("/dev/null", O_RDWR); // takes the lowest free number, which is the stream's
        }
    }
}

/// We leave by the signals' own action, whatever our parent ignored or held back. A lost reader is an error to us.
void prepareSignals()
{
    std::signal(SIGPIPE, SIG_IGN);
    sigset_t leaving;
    sigemptyset(&leaving);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        std::signal(signal, SIG_DFL);
        sigaddset(&leaving, signal);
    }
    sigprocmask(SIG_UNBLOCK, &leaving, nullptr);
}

int serve()
{
    openMissingStreams();
    prepareSignals();
    const int socket = connectToApplication({.environment = environ}, STDOUT_FILENO);
    if (socket < 0) {
        return 0;
    }
    const int error = Relay(STDIN_FILENO, STDOUT_FILENO, socket).run();
    if (error != 0) {
        say(STDERR_FILENO, "Couldn't pass Quillary's answers on: " + std::generic_category().message(error) + ".\n");
    }
    return error == 0 ? 0 : 1;
}

} // namespace

} // namespace Quillary

int main(int argumentCount, char** arguments)
{
    const std::string_view asked = argumentCount == 2 ? arguments[1] : "";
    if (asked == "--version" || asked == "--help") {
        Quillary::say(STDOUT_FILENO, asked == "--help" ? Quillary::helpText : Quillary::versionText);
        return 0;
    }
    try {
        return Quillary::serve();
    } catch (const std::exception& error) {
        Quillary::say(STDERR_FILENO, std::string(error.what()) + "\n");
        return 1;
    }
}
