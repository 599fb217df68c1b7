#include "tests/QuillaryChannel/HelperProcess.h"

#include "QuillaryChannel/AssistantChannel.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace Quillary {

namespace {

constexpr int longestWaitMilliseconds = 10'000;

/// Two connected ends: the first is read from, the second written to.
std::array<int, 2> ends(HelperProcess::Streams streams)
{
    std::array<int, 2> result{-1, -1};
    const bool isSocket = streams == HelperProcess::Streams::sockets;
    const int flags = streams == HelperProcess::Streams::nonBlockingPipes ? O_CLOEXEC | O_NONBLOCK : O_CLOEXEC;
    const int status =
        isSocket ? socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, result.data()) : pipe2(result.data(), flags);
    return status == 0 ? result : std::array<int, 2>{-1, -1};
}

void closeEnd(int& descriptor)
{
    if (descriptor >= 0) {
        close(std::exchange(descriptor, -1));
    }
}

bool isReady(int descriptor, short events)
{
    pollfd waiting{.fd = descriptor, .events = events, .revents = 0};
    return poll(&waiting, 1, longestWaitMilliseconds) > 0;
}

} // namespace

HelperProcess::HelperProcess(const Options& options)
{
    const auto input = ends(options.streams);
    const auto output = ends(options.streams);
    const auto complaint = ends(Streams::pipes);
    std::vector<const char*> environment;
    environment.reserve(options.environment.size() + 1);
    for (const std::string& entry : options.environment) {
        environment.push_back(entry.c_str());
    }
    environment.push_back(nullptr);
    const std::vector<std::string> words =
        options.command.empty() ? std::vector<std::string>{QUILLARY_HELPER} : options.command;
    std::vector<char*> arguments;
    for (const std::string& word : words) {
        arguments.push_back(
            const_cast<char*>(word.c_str())); // NOLINT(cppcoreguidelines-pro-type-const-cast): as execve asks
    }
    arguments.push_back(nullptr);
    const pid_t parent = getpid();
    m_id = fork();
    if (m_id == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL); // a test that is killed leaves nobody behind
        if (getppid() != parent) {
            _exit(126);
        }
        dup2(input[0], STDIN_FILENO);
        dup2(output[1], STDOUT_FILENO);
        dup2(complaint[1], STDERR_FILENO);
        sigset_t held;
        sigemptyset(&held);
        for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
            std::signal(signal, options.ignoresSignals ? SIG_IGN : SIG_DFL);
            sigaddset(&held, signal);
        }
        sigprocmask(options.ignoresSignals ? SIG_BLOCK : SIG_UNBLOCK, &held, nullptr);
        execve(arguments[0], arguments.data(), const_cast<char**>(environment.data()));
        _exit(126);
    }
    close(input[0]);
    close(output[1]);
    close(complaint[1]);
    m_input = input[1];
    m_output = output[0];
    m_complaint = complaint[0];
}

HelperProcess::~HelperProcess()
{
    closeInput();
    closeOutput();
    closeEnd(m_complaint);
    if (m_id > 0) {
        kill(m_id, SIGKILL);
        waitpid(m_id, nullptr, 0);
    }
}

void HelperProcess::closeInput()
{
    closeEnd(m_input);
}

void HelperProcess::closeOutput()
{
    closeEnd(m_output);
}

void HelperProcess::closeComplaint()
{
    closeEnd(m_complaint);
}

std::string HelperProcess::complaint() const
{
    return readUntilEnd(m_complaint);
}

std::optional<int> HelperProcess::statusWithin(std::chrono::milliseconds time)
{
    const auto end = std::chrono::steady_clock::now() + time;
    int status = 0;
    while (waitpid(m_id, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > end) {
            return std::nullopt;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    m_id = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

long HelperProcess::statusFigure(std::string_view name) const
{
    std::ifstream file("/proc/" + std::to_string(m_id) + "/status");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(name) && line.substr(name.size()).starts_with(':')) {
            return std::stol(line.substr(name.size() + 1));
        }
    }
    return -1;
}

TestServer::TestServer(const std::string& path)
    : m_listener(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    const auto address = AssistantChannel::address(path);
    if (!address || bind(m_listener, address->pointer(), address->length) != 0 || listen(m_listener, 8) != 0) {
        closeEnd(m_listener);
    }
}

TestServer::~TestServer()
{
    closeEnd(m_listener);
}

int TestServer::accepted() const
{
    return isReady(m_listener, POLLIN) ? accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC) : -1;
}

bool writeWhole(int descriptor, std::string_view bytes)
{
    while (!bytes.empty() && isReady(descriptor, POLLOUT)) {
        const ssize_t count = write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno != EAGAIN) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
    return bytes.empty();
}

std::string readUntilEnd(int descriptor, std::size_t limit)
{
    std::string result;
    std::array<char, 65536> buffer{};
    while (result.size() < limit && isReady(descriptor, POLLIN)) {
        const ssize_t count = read(descriptor, buffer.data(), std::min(buffer.size(), limit - result.size()));
        if (count <= 0) {
            break;
        }
        result.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return result;
}

} // namespace Quillary
