#include "QuillaryCore/Documents/ClientList.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "bench/Support/Beside.h"
#include "bench/Support/LibraryGenerator.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// A keystroke in the search field above the clients: who fits, in the order of the column. The floor goes through the same
// folded texts with the C library and notes the places.

namespace Quillary {

namespace {

constexpr std::array<std::string_view, 5> typed = {"", "e", "er", "sch", "schroder plan"};

struct Clients
{
    explicit Clients(int count)
        : folder(std::filesystem::temp_directory_path() / fmt::format("quillary-bench-library-1000-{}", count))
    {
        LibraryGenerator::makeLibrary(folder, {1000, count});
        Store store(Store::Location::directory(folder), DataModel::records(), DataModel::history(), clock, uuids);
        Context context(store, clock, uuids);
        list.load(context);
    }

    [[nodiscard]] std::vector<std::uint32_t> places(std::string_view text) const
    {
        std::vector<std::uint32_t> found;
        for (std::uint32_t place = 0; place < list.size(); ++place) {
            const std::string& row = list.row(place).foldedText;
            if (text.empty() || memmem(row.data(), row.size(), text.data(), text.size()) != nullptr) {
                found.push_back(place);
            }
        }
        return found;
    }

    std::filesystem::path folder;
    FixedClock clock{LibraryGenerator::today};
    RandomUUIDSource uuids;
    ClientList list;
};

void keystroke(benchmark::State& state, ClientList::Column column)
{
    const Clients clients(10'000);
    const std::string_view text = typed.at(static_cast<std::size_t>(state.range(0)));
    const auto arranged = [&] {
        return clients.list.arranged(text, column, ClientList::Order::ascending);
    };
    measureBeside<ThreadTime>(
        state,
        1,
        [&] { benchmark::DoNotOptimize(arranged().data()); },
        [&] { benchmark::DoNotOptimize(clients.places(text).data()); });
    state.SetLabel(fmt::format("{} of {} for “{}”", arranged().size(), clients.list.size(), text));
}

void byName(benchmark::State& state)
{
    keystroke(state, ClientList::Column::name);
}
BENCHMARK(byName)->DenseRange(0, 4)->Unit(benchmark::kMillisecond);

void byCity(benchmark::State& state)
{
    keystroke(state, ClientList::Column::city);
}
BENCHMARK(byCity)->DenseRange(0, 4)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace Quillary
