// What an assistant app waits for when no data is worked on: the session alone beside a copy of the same bytes, and the
// way through the socket and the main thread, with the helper and without, beside programs that move the same bytes and
// think nothing.

#include "QuillaryCore/Assistant/Session/MCPSession.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/BusinessDefaults.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryUI/Assistant/AssistantServer.h"
#include "bench/Support/AssistantRoad.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

namespace {

using Relay = AssistantRoad::Relay;

constexpr std::string_view hello =
    R"({"jsonrpc":"2.0","id":1,"method":"initialize","params":{"protocolVersion":"2025-06-18","capabilities":{},)"
    R"("clientInfo":{"name":"bench","version":"1"}}})";
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

/// The real server on the library in memory.
void serve(const std::string& path, const std::function<void()>& isListening)
{
    int argumentCount = 0;
    const QCoreApplication application(argumentCount, nullptr);
    Sample sample;
    AssistantServer server(path, [&] { return sample.makeSession(); });
    server.start();
    isListening();
    QCoreApplication::exec();
}

std::string asLine(std::string_view request)
{
    return std::string(request) + '\n';
}

/// The real server, with or without the helper before it, beside the bare ones.
void wayThere(benchmark::State& state, Relay relay, Relay floorRelay, std::string_view request)
{
    pinToOneCore();
    const AssistantServerProcess server(serve);
    const AssistantServerProcess floorServer(AssistantServerProcess::bare(answerTo(request)));
    AssistantRoad road(server, relay);
    AssistantRoad floor(floorServer, floorRelay);
    measureBeside(state, road, floor, asLine(request));
}

void serverPing(benchmark::State& state)
{
    wayThere(state, Relay::none, Relay::none, ping);
}
BENCHMARK(serverPing)->Unit(benchmark::kMillisecond)->UseRealTime();

void serverToolsList(benchmark::State& state)
{
    wayThere(state, Relay::none, Relay::none, listTools);
}
BENCHMARK(serverToolsList)->Unit(benchmark::kMillisecond)->UseRealTime();

void helperAndServerPing(benchmark::State& state)
{
    wayThere(state, Relay::helper, Relay::bare, ping);
}
BENCHMARK(helperAndServerPing)->Unit(benchmark::kMillisecond)->UseRealTime();

void helperAndServerToolsList(benchmark::State& state)
{
    wayThere(state, Relay::helper, Relay::bare, listTools);
}
BENCHMARK(helperAndServerToolsList)->Unit(benchmark::kMillisecond)->UseRealTime();

/// What an assistant app waits for when it starts the helper beside a running program.
void helperStart(benchmark::State& state)
{
    const AssistantServerProcess server(serve);
    for (auto _ : state) {
        AssistantRoad road(server, Relay::helper);
        benchmark::DoNotOptimize(road.ask(asLine(hello)));
    }
}
BENCHMARK(helperStart)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The server's memory grows with its first requests and stays as it is from then on.
void serverMemory(benchmark::State& state)
{
    constexpr int early = 10'000;
    constexpr int late = 100'000;
    const AssistantServerProcess server(serve);
    AssistantRoad road(server, Relay::helper);
    const std::array requests = {asLine(ping), asLine(listTools), asLine(profileCall), asLine(refusedCall)};
    for (auto _ : state) {
        std::size_t earlyBytes = 0;
        for (std::size_t count = 0; count < late; ++count) {
            earlyBytes = count == early ? server.residentMemory() : earlyBytes;
            road.ask(requests.at(count % requests.size()));
        }
        const std::size_t lateBytes = server.residentMemory();
        state.counters["kB_at_10000"] = static_cast<double>(earlyBytes) / 1024;
        state.counters["kB_at_100000"] = static_cast<double>(lateBytes) / 1024;
    }
}
BENCHMARK(serverMemory)->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();

} // namespace

} // namespace Quillary
