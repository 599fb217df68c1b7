#include "QuillaryChannel/Helper/ApplicationStart.h"

#include "QuillaryChannel/AssistantChannel.h"

#include <climits>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace Quillary::ApplicationStart {

namespace {

constexpr const char* programName = "quillary";

/// What the started process reports through: closed by the system when the program runs, or the cause why it doesn't.
struct ReportPipe
{
    std::array<int, 2> ends{};

    [[nodiscard]] int reading() const { return ends[0]; }
    [[nodiscard]] int writing() const { return ends[1]; }
};

[[noreturn]] void refuse(const std::string& program, int cause)
{
    throw AssistantChannel::Error("Quillary isn't running, and “" + program + "” can't be started: " +
                                  std::generic_category().message(cause) + ". Open Quillary, then try again.");
}

/// False with `errno` set: then the helper's own output would still be open to the application.
bool nullStandardStreams()
{
    const int null = open("/dev/null", O_RDWR | O_CLOEXEC);
    return null >= 0 && dup2(null, STDIN_FILENO) >= 0 && dup2(null, STDOUT_FILENO) >= 0 &&
           dup2(null, STDERR_FILENO) >= 0;
}

/// What the helper's parent, or the helper, ignores or holds back is no wish of the user for the application.
void restoreSignals()
{
    std::signal(SIGPIPE, SIG_DFL);
    std::signal(SIGHUP, SIG_DFL);
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

/// The child of a child: its parent has gone already, so nobody has to wait for its end.
[[noreturn]] void runDetached(const char* program, const ReportPipe& report)
{
    setsid();
    if (const pid_t application = fork(); application != 0) {
        _exit(application < 0 ? errno : 0);
    }
    restoreSignals();
    // What the assistant app left open for its children is not meant for a program that outlives them.
    for (const auto& [first, last] :
         {std::array{STDERR_FILENO + 1, report.writing() - 1}, std::array{report.writing() + 1, INT_MAX}}) {
        if (first <= last) {
            close_range(static_cast<unsigned int>(first), static_cast<unsigned int>(last), 0);
        }
    }
    if (nullStandardStreams() && chdir("/") == 0) {
        execl(program, programName, "serve", "--background", nullptr);
    }
    const int cause = errno;
    _exit(write(report.writing(), &cause, sizeof cause) == sizeof cause ? 0 : 1);
}

} // namespace

std::string programBeside(const std::string& linkToSelf)
{
    std::array<char, PATH_MAX> path{};
    const ssize_t length = readlink(linkToSelf.c_str(), path.data(), path.size());
    if (length <= 0 || static_cast<std::size_t>(length) == path.size()) {
        throw AssistantChannel::Error("Quillary isn't running. Open it, then try again.");
    }
    const std::string helper(path.data(), static_cast<std::size_t>(length));
    return helper.substr(0, helper.rfind('/') + 1) + programName;
}

void inBackground(const std::string& program)
{
    ReportPipe report;
    if (pipe2(report.ends.data(), O_CLOEXEC) != 0) {
        refuse(program, errno);
    }
    const pid_t child = fork();
    if (child == 0) {
        runDetached(program.c_str(), report);
    }
    int cause = child < 0 ? errno : 0;
    close(report.writing());
    int status = 0;
    while (child > 0 && waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (WIFEXITED(status) && WEXITSTATUS(status) != 0) {
        cause = WEXITSTATUS(status);
    }
    int reported = 0;
    if (read(report.reading(), &reported, sizeof reported) == sizeof reported) {
        cause = reported;
    }
    close(report.reading());
    if (cause != 0) {
        refuse(program, cause);
    }
}

} // namespace Quillary::ApplicationStart
