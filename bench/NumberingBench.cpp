#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/NumberSequence.h"
#include "QuillaryCore/Numbering/Numbering.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "bench/Support/LibraryGenerator.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <sqlite3.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

// What a number costs beside the bare look-ups that it can't do without, at every size of library.

namespace Quillary {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view series = "invoice|y2026";

/// A made-up library of so many documents, kept from one run to the next; what a benchmark changes is never saved.
class Library
{
public:
    explicit Library(std::int64_t documents)
        : m_store(
              Store::Location::directory(made(documents)), DataModel::records(), DataModel::history(), m_clock, m_uuids)
        , context(m_store, m_clock, m_uuids)
    {
        business.invoiceNumberFormat = "INV-{yyyy}-{######,y}";
        business.clientNumberFormat = "C-{#####}";
        Numbering::setNextCounter(
            context, documents + 1, NumberedKind::invoice, LibraryGenerator::today, nullptr, business, calendar);
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() { context.rollback(); }

    sqlite3* database() { return m_store.connection().handle(); }

private:
    static fs::path made(std::int64_t documents)
    {
        fs::path folder = fs::temp_directory_path() / fmt::format("quillary-bench-library-{}", documents);
        LibraryGenerator::makeLibrary(folder, {static_cast<int>(documents), static_cast<int>(documents / 10)});
        return folder;
    }

    FixedClock m_clock{LibraryGenerator::today};
    CountingUUIDSource m_uuids{2'000'000'000};
    Store m_store;

public:
    Context context;
    Business business;
    const Calendar calendar = Numbering::calendar("Europe/Berlin");
};

void check(int code)
{
    if (code != SQLITE_OK && code != SQLITE_DONE && code != SQLITE_ROW) {
        fmt::print(stderr, "SQLite {}\n", code);
        std::abort();
    }
}

/// The floor's statement: bound and stepped by hand.
class BareStatement
{
public:
    BareStatement(sqlite3* database, const char* sql)
    {
        check(sqlite3_prepare_v2(database, sql, -1, &m_handle, nullptr));
    }
    BareStatement(const BareStatement&) = delete;
    BareStatement& operator=(const BareStatement&) = delete;
    ~BareStatement() { sqlite3_finalize(m_handle); }

    void bind(int index, std::string_view text)
    {
        check(sqlite3_bind_text(m_handle, index, text.data(), static_cast<int>(text.size()), SQLITE_STATIC));
    }
    void bind(int index, std::int64_t value) { check(sqlite3_bind_int64(m_handle, index, value)); }

    /// The first column of the only row, if the statement gives one.
    std::int64_t run()
    {
        const int code = sqlite3_step(m_handle);
        check(code);
        const std::int64_t value = code == SQLITE_ROW ? sqlite3_column_int64(m_handle, 0) : 0;
        check(sqlite3_reset(m_handle));
        return value;
    }

private:
    sqlite3_stmt* m_handle = nullptr;
};

void assignFloor(benchmark::State& state)
{
    Library library(state.range(0));
    library.context.count<NumberSequence>(""); // writes the series into the open transaction
    BareStatement last(library.database(), "SELECT max(lastValue) FROM NumberSequence WHERE key = ?");
    BareStatement used(library.database(), "SELECT count(*) FROM Document WHERE number = ? AND kindRaw IN (0, 2)");
    BareStatement update(library.database(), "UPDATE NumberSequence SET lastValue = ? WHERE key = ?");
    last.bind(1, series);
    update.bind(2, series);
    for ([[maybe_unused]] const auto iteration : state) {
        const std::int64_t counter = last.run() + 1;
        const std::string number = fmt::format("INV-{:04}-{:06}", 2026, counter);
        used.bind(1, number);
        benchmark::DoNotOptimize(used.run());
        update.bind(1, counter);
        update.run();
    }
}

void assignNumber(benchmark::State& state)
{
    Library library(state.range(0));
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(Numbering::assign(library.context,
                                                   NumberedKind::invoice,
                                                   LibraryGenerator::today,
                                                   nullptr,
                                                   library.business,
                                                   library.calendar));
    }
}

// The longest search: 9,999 of 10,000 candidates belong to clients, as after an import.

void searchFloor(benchmark::State& state)
{
    Library library(state.range(0));
    BareStatement used(library.database(), "SELECT count(*) FROM Client WHERE number = ?");
    for ([[maybe_unused]] const auto iteration : state) {
        for (std::int64_t counter = 2;; ++counter) {
            const std::string number = fmt::format("C-{:05}", counter);
            used.bind(1, number);
            if (used.run() == 0) {
                break;
            }
        }
    }
}

void searchBehindImport(benchmark::State& state)
{
    Library library(state.range(0));
    Numbering::setNextCounter(
        library.context, 2, NumberedKind::client, LibraryGenerator::today, nullptr, library.business, library.calendar);
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(Numbering::peek(library.context,
                                                 NumberedKind::client,
                                                 LibraryGenerator::today,
                                                 nullptr,
                                                 library.business,
                                                 library.calendar));
    }
}

BENCHMARK(assignFloor)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(assignNumber)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(searchFloor)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(searchBehindImport)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace Quillary
