#include "bench/Support/AssistantRoad.h"

#include "QuillaryChannel/AssistantChannel.h"
#include "bench/Support/Beside.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace Quillary {

namespace {

using Pipe = std::array<int, 2>;

[[noreturn]] void failed(const char* what)
{
    std::perror(what);
    std::exit(1); // NOLINT(concurrency-mt-unsafe): nothing else runs yet
}

/// Runs work in a process of its own, which doesn't outlive this one.
template <class Work>
pid_t child(const Work& work)
{
    const pid_t process = fork();
    if (process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        work();
        _exit(0);
    }
    return process;
}

void end(pid_t process)
{
    if (process > 0) {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }
}

Pipe makePipe()
{
    Pipe ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        failed("pipe");
    }
    return ends;
}

void writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = write(descriptor, bytes.data(), bytes.size());
        if (count <= 0) {
            _exit(1);
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void copyAll(int source, int target)
{
    std::array<char, 65536> buffer; // NOLINT(cppcoreguidelines-pro-type-member-init): filled by read
    for (ssize_t count = 0; (count = read(source, buffer.data(), buffer.size())) > 0;) {
        writeAll(target, {buffer.data(), static_cast<std::size_t>(count)});
    }
}

int connected(const std::string& path)
{
    const int server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const auto address = AssistantChannel::address(path);
    if (!address || connect(server, address->pointer(), address->length) != 0) {
        failed("connect");
    }
    return server;
}

void runBareRelay(const std::string& path)
{
    const int server = connected(path);
    std::thread requests([server] {
        copyAll(STDIN_FILENO, server);
        shutdown(server, SHUT_WR);
    });
    copyAll(server, STDOUT_FILENO);
    _exit(0);
}

void runHelper(const std::string& path)
{
    const std::string setting = std::string(AssistantChannel::socketVariable) + "=" + path;
    const std::array<const char*, 2> environment = {setting.c_str(), nullptr};
    execle(QUILLARY_HELPER, QUILLARY_HELPER, nullptr, environment.data());
    _exit(1);
}

void answerAll(int connection, std::string_view answer)
{
    std::array<char, 4096> buffer{};
    for (ssize_t count = 0; (count = read(connection, buffer.data(), buffer.size())) > 0;) {
        for (auto lines = std::count(buffer.begin(), buffer.begin() + count, '\n'); lines > 0; --lines) {
            writeAll(connection, answer);
        }
    }
}

std::string newPath()
{
    static int count = 0;
    const std::string name = "quillary-bench-" + std::to_string(getpid()) + "-" + std::to_string(++count);
    return (std::filesystem::temp_directory_path() / name).string();
}

} // namespace

AssistantServerProcess::AssistantServerProcess(const Serve& serve)
    : m_path(newPath())
{
    const Pipe ready = makePipe();
    m_process = child([&] { serve(m_path, [&ready] { writeAll(ready[1], "."); }); });
    close(ready[1]);
    char told = 0;
    if (read(ready[0], &told, 1) != 1) {
        failed("server");
    }
    close(ready[0]);
}

AssistantServerProcess::~AssistantServerProcess()
{
    end(m_process);
    for (const char* ending : {"", ".lock"}) {
        unlink((m_path + ending).c_str());
    }
}

AssistantServerProcess::Serve AssistantServerProcess::bare(const std::string& answer)
{
    return [line = answer + '\n'](const std::string& path, const std::function<void()>& isListening) {
        const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const auto address = AssistantChannel::address(path);
        if (!address || bind(listener, address->pointer(), address->length) != 0 || listen(listener, 1) != 0) {
            failed("listen");
        }
        isListening();
        while (true) {
            const int connection = accept(listener, nullptr, nullptr);
            answerAll(connection, line);
            close(connection);
        }
    };
}

std::size_t AssistantServerProcess::residentMemory() const
{
    std::ifstream file("/proc/" + std::to_string(m_process) + "/statm");
    std::size_t all = 0;
    std::size_t resident = 0;
    file >> all >> resident;
    return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

AssistantRoad::AssistantRoad(const AssistantServerProcess& server, Relay relay)
{
    if (relay == Relay::none) {
        m_input = m_output = connected(server.path());
        return;
    }
    const Pipe input = makePipe();
    const Pipe output = makePipe();
    m_relay = child([&] {
        dup2(input[0], STDIN_FILENO);
        dup2(output[1], STDOUT_FILENO);
        close(input[1]);
        close(output[0]);
        relay == Relay::bare ? runBareRelay(server.path()) : runHelper(server.path());
    });
    close(input[0]);
    close(output[1]);
    m_input = input[1];
    m_output = output[0];
}

AssistantRoad::~AssistantRoad()
{
    close(m_input);
    if (m_output != m_input) {
        close(m_output);
    }
    end(m_relay);
}

std::size_t AssistantRoad::ask(std::string_view line)
{
    writeAll(m_input, line);
    std::size_t size = 0;
    while (true) {
        const ssize_t count = read(m_output, m_buffer.data(), m_buffer.size());
        if (count <= 0) {
            failed("answer");
        }
        size += static_cast<std::size_t>(count);
        if (m_buffer[static_cast<std::size_t>(count) - 1] == '\n') {
            return size;
        }
    }
}

void pinToOneCore()
{
    cpu_set_t cores;
    CPU_ZERO(&cores);
    CPU_SET(static_cast<unsigned>(sched_getcpu()), &cores);
    if (sched_setaffinity(0, sizeof cores, &cores) != 0) {
        failed("one core");
    }
}

void measureBeside(benchmark::State& state, AssistantRoad& road, AssistantRoad& floor, std::string_view line)
{
    if (road.ask(line) != floor.ask(line)) {
        state.SkipWithError("the floor moves other bytes");
    }
    constexpr int turn = 100;
    measureBeside(state, turn, [&] { road.ask(line); }, [&] { floor.ask(line); });
}

} // namespace Quillary
