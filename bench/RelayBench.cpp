// One request and its answer through the helper, between pipes and a Unix socket. The floor is the smallest program that
// moves the same bytes: two threads that read and write. All processes share one core.

#include "QuillaryChannel/AssistantChannel.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sched.h>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

constexpr std::string_view request = R"({"jsonrpc":"2.0","id":7,"method":"ping"})"
                                     "\n";

[[noreturn]] void failed(const char* what)
{
    std::perror(what);
    std::exit(1); // NOLINT(concurrency-mt-unsafe): nothing else runs yet
}

void pinToOneCore()
{
    cpu_set_t cores;
    CPU_ZERO(&cores);
    CPU_SET(0, &cores);
    if (sched_setaffinity(0, sizeof cores, &cores) != 0) {
        failed("one core");
    }
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

/// Runs work in a process of its own.
template <class Work>
pid_t child(const Work& work)
{
    const pid_t id = fork();
    if (id == 0) {
        work();
        _exit(0);
    }
    return id;
}

/// A server that answers each request with a line, and a relay in front of it.
class Road
{
public:
    enum class Relay { bare, helper };

    Road(Relay relay, std::size_t answerSize)
        : m_answerSize(answerSize)
        , m_path((std::filesystem::temp_directory_path() / ("relay-bench-" + std::to_string(getpid()))).string())
    {
        pinToOneCore();
        const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const auto address = AssistantChannel::address(m_path);
        if (!address || bind(listener, address->pointer(), address->length) != 0 || listen(listener, 1) != 0) {
            failed("listen");
        }
        std::array<int, 2> input{};
        std::array<int, 2> output{};
        if (pipe2(input.data(), O_CLOEXEC) != 0 || pipe2(output.data(), O_CLOEXEC) != 0) {
            failed("pipes");
        }
        m_input = input[1];
        m_output = output[0];
        m_relay = child([&] {
            dup2(input[0], STDIN_FILENO);
            dup2(output[1], STDOUT_FILENO);
            close(m_input);
            close(m_output);
            run(relay, *address);
        });
        m_server = child([&] {
            close(m_input);
            close(m_output);
            serve(accept(listener, nullptr, nullptr));
        });
        for (const int descriptor : {listener, input[0], output[1]}) {
            close(descriptor);
        }
    }
    Road(const Road&) = delete;
    Road& operator=(const Road&) = delete;
    ~Road()
    {
        close(m_input);
        close(m_output);
        for (const pid_t id : {m_relay, m_server}) {
            kill(id, SIGKILL);
            waitpid(id, nullptr, 0);
        }
        unlink(m_path.c_str());
    }

    void roundTrip()
    {
        writeAll(m_input, request);
        for (std::size_t missing = m_answerSize; missing > 0;) {
            const ssize_t count = read(m_output, m_buffer.data(), std::min(missing, m_buffer.size()));
            if (count <= 0) {
                failed("answer");
            }
            missing -= static_cast<std::size_t>(count);
        }
    }

private:
    void run(Relay relay, const AssistantChannel::Address& address) const
    {
        if (relay == Relay::helper) {
            const std::string setting = std::string(AssistantChannel::socketVariable) + "=" + m_path;
            const std::array<const char*, 2> environment = {setting.c_str(), nullptr};
            execle(QUILLARY_HELPER, QUILLARY_HELPER, nullptr, environment.data());
            _exit(1);
        }
        const int server = socket(AF_UNIX, SOCK_STREAM, 0);
        if (connect(server, address.pointer(), address.length) != 0) {
            _exit(1);
        }
        std::thread requests([server] { copyAll(STDIN_FILENO, server); });
        copyAll(server, STDOUT_FILENO);
        _exit(0);
    }

    void serve(int connection) const
    {
        const std::string answer = std::string(m_answerSize - 1, 'x') + "\n";
        std::array<char, 4096> buffer{};
        for (ssize_t count = 0; (count = read(connection, buffer.data(), buffer.size())) > 0;) {
            for (auto lines = std::count(buffer.begin(), buffer.begin() + count, '\n'); lines > 0; --lines) {
                writeAll(connection, answer);
            }
        }
    }

    std::size_t m_answerSize;
    std::string m_path;
    std::array<char, 65536> m_buffer{};
    int m_input = -1;
    int m_output = -1;
    pid_t m_relay = -1;
    pid_t m_server = -1;
};

void pass(benchmark::State& state, Road::Relay relay)
{
    using Clock = std::chrono::steady_clock;
    Road road(relay, static_cast<std::size_t>(state.range(0)));
    road.roundTrip();
    std::vector<double> microseconds;
    for ([[maybe_unused]] const auto iteration : state) {
        const auto start = Clock::now();
        road.roundTrip();
        microseconds.push_back(std::chrono::duration<double, std::micro>(Clock::now() - start).count());
    }
    std::ranges::sort(microseconds);
    state.counters["median_us"] = microseconds[microseconds.size() / 2];
    state.counters["p99_us"] = microseconds[microseconds.size() * 99 / 100];
}

void passFloor(benchmark::State& state)
{
    pass(state, Road::Relay::bare);
}

void passThroughHelper(benchmark::State& state)
{
    pass(state, Road::Relay::helper);
}

// An answer to "ping", the list of tools, and a preview's picture.
BENCHMARK(passFloor)->Arg(40)->Arg(20'000)->Arg(500'000)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(passThroughHelper)->Arg(40)->Arg(20'000)->Arg(500'000)->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace

} // namespace Quillary
