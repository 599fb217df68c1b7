#pragma once

#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace Quillary {

/// A server for assistants in a process of its own, which ends with this object.
class AssistantServerProcess
{
public:
    /// Listens at a path, says so, and serves for ever.
    using Serve = std::function<void(const std::string& path, const std::function<void()>& isListening)>;

    explicit AssistantServerProcess(const Serve& serve);
    AssistantServerProcess(const AssistantServerProcess&) = delete;
    AssistantServerProcess& operator=(const AssistantServerProcess&) = delete;
    ~AssistantServerProcess();

    /// The smallest server: answers every line with the same one, on one thread and one connection at a time.
    [[nodiscard]] static Serve bare(const std::string& answer);

    [[nodiscard]] const std::string& path() const { return m_path; }

    /// Unit: bytes.
    [[nodiscard]] std::size_t residentMemory() const;

private:
    std::string m_path;
    pid_t m_process;
};

/// The way of requests from a client to a server and of the answers back.
class AssistantRoad
{
public:
    enum class Relay {
        none,   ///< the client is at the socket itself
        bare,   ///< between pipes and the socket stands the smallest program: two threads that read and write
        helper, ///< `quillary-mcp` stands there
    };

    AssistantRoad(const AssistantServerProcess& server, Relay relay);
    AssistantRoad(const AssistantRoad&) = delete;
    AssistantRoad& operator=(const AssistantRoad&) = delete;
    ~AssistantRoad();

    /// Sends a line and waits for the answer's newline. The size of the answer. Unit: bytes.
    std::size_t ask(std::string_view line);

private:
    std::array<char, 65536> m_buffer{};
    int m_input = -1;
    int m_output = -1;
    pid_t m_relay = -1;
};

/// From here on this process and those that it starts share one core, so that the way from one to the other costs the
/// same each time.
void pinToOneCore();

/// Measures a road beside its floor, see `Beside.h`. `line` has its newline.
void measureBeside(benchmark::State& state, AssistantRoad& road, AssistantRoad& floor, std::string_view line);

} // namespace Quillary
