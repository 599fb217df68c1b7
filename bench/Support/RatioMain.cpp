#include "bench/Support/AtEnd.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// The main program of every benchmark: after the times it prints the ratio of each one to its floor. A floor is named
// after what it is the floor of: `saveFloor` is the floor of `save`, `saveWithScope` and whatever else begins with
// `save`, run with the same arguments.

namespace Quillary {

namespace {

constexpr std::string_view floorEnding = "Floor";

class RatioReporter final : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& reports) override
    {
        ConsoleReporter::ReportRuns(reports);
        for (const Run& run : reports) {
            if (!run.error_occurred && run.run_type == Run::RT_Iteration) {
                add(run);
            }
        }
    }

    void Finalize() override
    {
        for (const Measurement& measurement : m_measurements) {
            const auto floor = floorOf(measurement);
            if (floor != m_floors.end()) {
                fmt::print("{:<40} {:6.2f} times its floor\n",
                           measurement.name + measurement.arguments,
                           measurement.seconds / floor->second);
            }
        }
    }

private:
    struct Measurement
    {
        std::string name;
        std::string arguments;
        double seconds;
    };

    void add(const Run& run)
    {
        const std::string arguments = run.run_name.args.empty() ? "" : "/" + run.run_name.args;
        const std::string& name = run.run_name.function_name;
        const double seconds = run.real_accumulated_time / static_cast<double>(run.iterations);
        if (name.ends_with(floorEnding)) {
            m_floors[name.substr(0, name.size() - floorEnding.size()) + arguments] = seconds;
        } else {
            m_measurements.push_back({name, arguments, seconds});
        }
    }

    /// The floor with the longest name that this one begins with.
    std::map<std::string, double>::const_iterator floorOf(const Measurement& measurement) const
    {
        for (std::size_t length = measurement.name.size(); length > 0; --length) {
            const auto floor = m_floors.find(measurement.name.substr(0, length) + measurement.arguments);
            if (floor != m_floors.end()) {
                return floor;
            }
        }
        return m_floors.end();
    }

    std::map<std::string, double> m_floors;
    std::vector<Measurement> m_measurements;
};

std::vector<std::function<void()>>& endings()
{
    static std::vector<std::function<void()>> endings;
    return endings;
}

} // namespace

void atEnd(std::function<void()> work)
{
    endings().push_back(std::move(work));
}

} // namespace Quillary

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    Quillary::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (const auto& end : Quillary::endings()) {
        end();
    }
    return 0;
}
