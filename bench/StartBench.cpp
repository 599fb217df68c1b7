// The start of the program as a whole process: from its first instruction until the list of invoices is drawn. Budget 55
// ms, twice a bare window of the same libraries at most, the same at every size of the library.

#include "bench/Support/LibraryGenerator.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

constexpr double kibibytesPerMebibyte = 1024;

struct Ended
{
    std::chrono::duration<double> time;
    double memory; ///< mebibytes at most
};

/// Without a library: the bare window.
Ended run(const fs::path& library)
{
    std::string program = QUILLARY_STARTED_WINDOW;
    std::string folder = library.string();
    char* arguments[] = {program.data(), folder.empty() ? nullptr : folder.data(), nullptr};
    const auto began = std::chrono::steady_clock::now();
    pid_t child = 0;
    int status = 0;
    struct rusage used{};
    if (posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments, environ) != 0 ||
        wait4(child, &status, 0, &used) != child || status != 0) {
        fmt::print(stderr, "the start failed with {}\n", status);
        std::abort();
    }
    return {.time = std::chrono::steady_clock::now() - began,
            .memory = static_cast<double>(used.ru_maxrss) / kibibytesPerMebibyte};
}

void measure(benchmark::State& state, const fs::path& library)
{
    run(library); // the day's backup, and the files into memory
    double memory = 0;
    for (auto _ : state) {
        const Ended ended = run(library);
        state.SetIterationTime(ended.time.count());
        memory = ended.memory;
    }
    state.counters["MiB"] = memory;
}

void start(benchmark::State& state)
{
    const fs::path folder = fs::temp_directory_path() / fmt::format("quillary-bench-list-{}", state.range(0));
    LibraryGenerator::makeLibrary(folder, {static_cast<int>(state.range(0)), static_cast<int>(state.range(0) / 10)});
    measure(state, folder);
}

void startFloor(benchmark::State& state)
{
    measure(state, {});
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(1'000)->Arg(100'000)->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK(startFloor)->Apply(sizes);
BENCHMARK(start)->Apply(sizes);

} // namespace

} // namespace Quillary
