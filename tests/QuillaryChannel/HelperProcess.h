#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace Quillary {

/// The real helper, or another program, between three pipes, as an assistant app starts it. Killed at the end if it is still there.
class HelperProcess
{
public:
    enum class Streams {
        pipes,
        nonBlockingPipes, ///< shared with a parent that wants them so
        sockets,          ///< as some assistant apps make them
    };
    struct Options
    {
        std::vector<std::string> command = {}; ///< another program and its arguments instead of the helper
        std::vector<std::string> environment = {};
        Streams streams = Streams::pipes;
        bool ignoresSignals = false; ///< started by somebody who ignores those that end a program
    };

    explicit HelperProcess(const Options& options);
    HelperProcess(const HelperProcess&) = delete;
    HelperProcess& operator=(const HelperProcess&) = delete;
    ~HelperProcess();

    [[nodiscard]] pid_t id() const { return m_id; }
    [[nodiscard]] int input() const { return m_input; }
    [[nodiscard]] int output() const { return m_output; }
    void closeInput();
    void closeOutput();

    /// From now on nobody reads its standard error.
    void closeComplaint();

    /// All that the helper says on standard error until it ends.
    [[nodiscard]] std::string complaint() const;

    /// The exit status, or the negative number of the signal that ended it. No value: it still runs after that time.
    [[nodiscard]] std::optional<int> statusWithin(std::chrono::milliseconds time);

    /// A line of /proc/ID/status, such as "VmRSS".
    [[nodiscard]] long statusFigure(std::string_view name) const;

private:
    pid_t m_id = -1;
    int m_input = -1;
    int m_output = -1;
    int m_complaint = -1;
};

/// A socket that listens at a path, and what arrives there.
class TestServer
{
public:
    explicit TestServer(const std::string& path);
    TestServer(const TestServer&) = delete;
    TestServer& operator=(const TestServer&) = delete;
    ~TestServer();

    /// The next connection; the caller closes it. Waits for at most ten seconds, then returns -1.
    [[nodiscard]] int accepted() const;

private:
    int m_listener;
};

/// Waits for at most ten seconds. Returns whether all of it was written.
bool writeWhole(int descriptor, std::string_view bytes);

/// What arrives until the end, or nothing for ten seconds; at most `limit` bytes.
[[nodiscard]] std::string readUntilEnd(int descriptor, std::size_t limit = std::string::npos);

} // namespace Quillary
