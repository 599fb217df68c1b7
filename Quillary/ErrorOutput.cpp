#include "Quillary/ErrorOutput.h"

#include <climits>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <poll.h>
#include <unistd.h>

namespace Quillary {

namespace {

/// How long a reader may be behind. Whoever waits for the rest of this program waits as long.
constexpr int patienceMilliseconds = 100;

void doNothing(int /*signal*/) {}

} // namespace

void ErrorOutput::write(std::string_view text) noexcept
{
    while (!text.empty()) {
        pollfd waiting{.fd = STDERR_FILENO, .events = POLLOUT, .revents = 0};
        if (poll(&waiting, 1, patienceMilliseconds) <= 0) {
            return;
        }
        // A pipe that is ready takes this much without waiting.
        const ssize_t count = ::write(STDERR_FILENO, text.data(), std::min<std::size_t>(text.size(), PIPE_BUF));
        if (count < 0 && errno != EINTR) {
            return;
        }
        text.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
}

void ErrorOutput::writeLine(std::string_view sentence) noexcept
{
    write(sentence);
    write("\n");
}

void ErrorOutput::surviveBrokenPipes() noexcept
{
    // Not SIG_IGN, which the programs started from here would inherit.
    struct sigaction action = {};
    action.sa_handler = doNothing;
    action.sa_flags = SA_RESTART;
    sigaction(SIGPIPE, &action, nullptr);
}

} // namespace Quillary
