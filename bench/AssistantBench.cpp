// What an assistant app waits for when no data is worked on: the session alone beside a copy of the same bytes, and the
// way through the socket and the main thread beside a thread that reads and writes the same bytes and thinks nothing.
// Run it pinned to one core (`taskset -c 1`), since most of the second is the way from thread to thread.

#include "QuillaryChannel/AssistantChannel.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/BusinessDefaults.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryUI/Assistant/AssistantServer.h"

#include <QCoreApplication>
#include <QThread>

#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <future>
#include <memory>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace Quillary {

namespace {

constexpr std::string_view ping = R"({"jsonrpc":"2.0","id":7,"method":"ping"})";
constexpr std::string_view listTools = R"({"jsonrpc":"2.0","id":7,"method":"tools/list","params":{}})";
constexpr std::string_view refusedCall =
    R"({"jsonrpc":"2.0","id":7,"method":"tools/call","params":{"name":"create_document","arguments":{"kind":"invoice",)"
    R"("client":"Nordwind Energie AG","add_lines":[{"title":"Design","quantity":12.5,"unit_price":90}]}}})";
constexpr std::string_view profileCall =
    R"({"jsonrpc":"2.0","id":7,"method":"tools/call","params":{"name":"get_business_profile","arguments":{}}})";

/// An empty library in memory, and sessions on it that look at it and change nothing.
class Sample
{
public:
    std::unique_ptr<MCPSession> makeSession()
    {
        return std::make_unique<MCPSession>(
            AssistantEnvironment{.context = context,
                                 .business = business,
                                 .host = nullptr,
                                 .assistantName = "",
                                 .clock = clock,
                                 .calendar = Calendar("Europe/Berlin"),
                                 .locale = Locale("en_DE")},
            "1",
            [](const AssistantClient&, const AssistantTool& tool, const MCPSession::Decision& decide) {
                decide(tool.readOnly ? std::nullopt
                                     : std::optional<std::string>("In Quillary, assistants may only look."));
            },
            [](const AssistantClient&, const AssistantTool&, const ToolResult&) {});
    }

    FixedClock clock{Instant(std::chrono::milliseconds(1'773'655'200'000))};
    CountingUUIDSource uuids;
    Store store{Store::Location::inMemory(), DataModel::records(), DataModel::history(), clock, uuids};
    Context context{store, clock, uuids};
    Ref<Business> business = makeFirstBusiness(context, Locale("en_DE")).ref;
};

std::string answerTo(std::string_view line)
{
    Sample sample;
    std::string answer;
    sample.makeSession()->handle(line, [&](const std::optional<std::string>& text) { answer = text.value_or(""); });
    return answer;
}

void session(benchmark::State& state, std::string_view line)
{
    Sample sample;
    const auto conversation = sample.makeSession();
    for (auto _ : state) {
        conversation->handle(line, [](const std::optional<std::string>& text) { benchmark::DoNotOptimize(text); });
    }
}

void sessionFloor(benchmark::State& state, std::string_view line)
{
    const std::string answer = answerTo(line);
    for (auto _ : state) {
        std::string request(line);
        benchmark::DoNotOptimize(request);
        std::string copy(answer);
        benchmark::DoNotOptimize(copy);
    }
}

void sessionPing(benchmark::State& state)
{
    session(state, ping);
}
BENCHMARK(sessionPing);

void sessionPingFloor(benchmark::State& state)
{
    sessionFloor(state, ping);
}
BENCHMARK(sessionPingFloor);

void sessionToolsList(benchmark::State& state)
{
    session(state, listTools);
}
BENCHMARK(sessionToolsList);

void sessionToolsListFloor(benchmark::State& state)
{
    sessionFloor(state, listTools);
}
BENCHMARK(sessionToolsListFloor);

/// A tool call's whole way but for the tool.
void refusedToolCall(benchmark::State& state)
{
    session(state, refusedCall);
}
BENCHMARK(refusedToolCall);

void businessProfile(benchmark::State& state)
{
    session(state, profileCall);
}
BENCHMARK(businessProfile);

std::filesystem::path socketPath()
{
    return std::filesystem::temp_directory_path() / ("quillary-bench-" + std::to_string(getpid()));
}

/// One request after the other, as assistants ask. The answer's last byte is its newline.
class Client
{
public:
    Client()
        : m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        const auto address = AssistantChannel::address(socketPath().string()).value();
        if (connect(m_socket.number(), address.pointer(), address.length) != 0) {
            std::abort();
        }
    }

    std::size_t ask(std::string_view line)
    {
        if (send(m_socket.number(), line.data(), line.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(line.size())) {
            std::abort();
        }
        std::size_t size = 0;
        while (true) {
            const ssize_t count = recv(m_socket.number(), m_bytes.data(), m_bytes.size(), 0);
            if (count <= 0) {
                std::abort();
            }
            size += static_cast<std::size_t>(count);
            if (m_bytes[static_cast<std::size_t>(count) - 1] == '\n') {
                return size;
            }
        }
    }

private:
    Descriptor m_socket;
    std::array<char, 65536> m_bytes{};
};

/// The server with an event loop of its own, so that the measuring thread can be the client.
class ServerThread : public QThread
{
public:
    ServerThread()
    {
        start();
        m_isListening.get_future().wait();
    }
    ServerThread(const ServerThread&) = delete;
    ServerThread& operator=(const ServerThread&) = delete;
    ~ServerThread() override
    {
        quit();
        wait();
    }

protected:
    void run() override
    {
        Sample sample;
        AssistantServer server(socketPath(), [&] { return sample.makeSession(); });
        server.start();
        m_isListening.set_value();
        exec();
    }

private:
    std::promise<void> m_isListening;
};

/// Answers every line with the same bytes.
class RawRelay
{
public:
    explicit RawRelay(std::string answer)
        : m_answer(std::move(answer))
        , m_listener(ListeningSocket::open(socketPath()))
        , m_thread([this] { run(); })
    {
    }
    RawRelay(const RawRelay&) = delete;
    RawRelay& operator=(const RawRelay&) = delete;
    ~RawRelay()
    {
        m_thread.join();
        std::filesystem::remove(socketPath());
    }

private:
    void run()
    {
        Descriptor client;
        while (!client.isOpen()) {
            client = Descriptor(accept4(m_listener.socket.number(), nullptr, nullptr, SOCK_CLOEXEC));
        }
        std::array<char, 65536> bytes; // filled by the call
        ssize_t count = 0;
        while ((count = recv(client.number(), bytes.data(), bytes.size(), 0)) > 0) {
            if (bytes[static_cast<std::size_t>(count) - 1] == '\n' &&
                send(client.number(), m_answer.data(), m_answer.size(), MSG_NOSIGNAL) < 0) {
                return;
            }
        }
    }

    std::string m_answer;
    ListeningSocket m_listener;
    std::thread m_thread;
};

void roundTrips(benchmark::State& state, std::string_view line, std::size_t answerSize)
{
    const std::string request = std::string(line) + '\n';
    Client client;
    for (auto _ : state) {
        if (client.ask(request) != answerSize) {
            std::abort();
        }
    }
}

void server(benchmark::State& state, std::string_view line)
{
    int argumentCount = 0;
    const QCoreApplication application(argumentCount, nullptr);
    const ServerThread thread;
    roundTrips(state, line, answerTo(line).size() + 1);
}

void serverFloor(benchmark::State& state, std::string_view line)
{
    const std::string answer = answerTo(line) + '\n';
    const RawRelay relay(answer);
    roundTrips(state, line, answer.size());
}

void serverPing(benchmark::State& state)
{
    server(state, ping);
}
BENCHMARK(serverPing)->UseRealTime();

void serverPingFloor(benchmark::State& state)
{
    serverFloor(state, ping);
}
BENCHMARK(serverPingFloor)->UseRealTime();

void serverToolsList(benchmark::State& state)
{
    server(state, listTools);
}
BENCHMARK(serverToolsList)->UseRealTime();

void serverToolsListFloor(benchmark::State& state)
{
    serverFloor(state, listTools);
}
BENCHMARK(serverToolsListFloor)->UseRealTime();

} // namespace

} // namespace Quillary
