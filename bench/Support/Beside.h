#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <vector>

namespace Quillary {

/// Unit: microseconds.
struct BesideTimes
{
    double median;
    double percentile99;

    /// Sorts the times.
    [[nodiscard]] static BesideTimes of(std::vector<double>& times)
    {
        std::ranges::sort(times);
        return {times[times.size() / 2], times[times.size() * 99 / 100]};
    }
};

/// The time that this thread has worked. For work that waits for nobody, on a machine that does other things as well.
struct ThreadTime
{
    using rep = std::chrono::nanoseconds::rep;
    using period = std::chrono::nanoseconds::period;
    using duration = std::chrono::nanoseconds;
    using time_point = std::chrono::time_point<ThreadTime>;
    static constexpr bool is_steady = true;

    [[nodiscard]] static time_point now()
    {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return time_point(std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec));
    }
};

/// Measures work and its floor by turns of `turn` times each, so that whatever else the machine does falls on both. Adds
/// the median and the 99th percentile of both, in microseconds, and their ratios to the benchmark's counters.
template <class Clock = std::chrono::steady_clock, class Work, class Floor>
void measureBeside(benchmark::State& state, int turn, const Work& work, const Floor& floor)
{
    std::vector<double> times;
    std::vector<double> floorTimes;
    const auto take = [turn](const auto& measured, std::vector<double>& into) {
        for (int count = 0; count < turn; ++count) {
            const auto start = Clock::now();
            measured();
            into.push_back(std::chrono::duration<double, std::micro>(Clock::now() - start).count());
        }
    };
    work(); // what is done once is done before
    floor();
    for ([[maybe_unused]] const auto iteration : state) {
        take(work, times);
        take(floor, floorTimes);
    }
    if (times.empty()) {
        return;
    }
    const BesideTimes ours = BesideTimes::of(times);
    const BesideTimes least = BesideTimes::of(floorTimes);
    state.counters["median_us"] = ours.median;
    state.counters["floor_median_us"] = least.median;
    state.counters["median_ratio"] = ours.median / least.median;
    state.counters["p99_us"] = ours.percentile99;
    state.counters["floor_p99_us"] = least.percentile99;
    state.counters["p99_ratio"] = ours.percentile99 / least.percentile99;
}

} // namespace Quillary
