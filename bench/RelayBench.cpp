// One request and its answer through the helper, between pipes and a Unix socket, to a server that thinks nothing.

#include "bench/Support/AssistantRoad.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <string>

namespace Quillary {

namespace {

using Relay = AssistantRoad::Relay;

constexpr std::string_view request = R"({"jsonrpc":"2.0","id":7,"method":"ping"})"
                                     "\n";

void throughHelper(benchmark::State& state)
{
    pinToOneCore();
    const AssistantServerProcess server(
        AssistantServerProcess::bare(std::string(static_cast<std::size_t>(state.range(0)), 'x')));
    const AssistantServerProcess floorServer(
        AssistantServerProcess::bare(std::string(static_cast<std::size_t>(state.range(0)), 'x')));
    AssistantRoad road(server, Relay::helper);
    AssistantRoad floor(floorServer, Relay::bare);
    measureBeside(state, road, floor, request);
}
// An answer to "ping", the list of tools, and a preview's picture.
BENCHMARK(throughHelper)->Arg(40)->Arg(20'000)->Arg(500'000)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

} // namespace Quillary
