#include "QuillaryCore/Assistant/Operations/AssistantActions.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Search/LibrarySearch.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "bench/Support/Beside.h"
#include "bench/Support/LibraryGenerator.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

// What the tools cost in large libraries, called in process. The floor of finding is one pass of the C library over the
// same folded text.

namespace Quillary {

namespace {

namespace fs = std::filesystem;

/// A made-up library, kept from one run to the next.
fs::path madeLibrary(int documents, int clients)
{
    const fs::path folder = fs::temp_directory_path() / fmt::format("quillary-bench-library-{}-{}", documents, clients);
    LibraryGenerator::makeLibrary(folder, {documents, clients});
    return folder;
}

/// A copy that may be written to.
fs::path copied(const fs::path& folder)
{
    const fs::path copy = folder.string() + "-copy";
    fs::remove_all(copy);
    fs::copy(folder, copy, fs::copy_options::recursive);
    return copy;
}

struct Library
{
    explicit Library(const fs::path& folder)
        : store(Store::Location::directory(folder), DataModel::records(), DataModel::history(), clock, uuids)
        , context(store, clock, uuids)
        , actions({.context = context,
                   .business = context.first<Business>("")->ref,
                   .host = nullptr,
                   .assistantName = "Bench",
                   .clock = clock,
                   .calendar = Calendar("Europe/Berlin"),
                   .locale = Locale("de_DE")})
    {
    }

    /// Gives the business the patterns that a library made by hand has.
    void setNumberFormats()
    {
        Business& business = context.edit(*context.first<Business>(""));
        business.invoiceNumberFormat = Business::defaultInvoiceFormat;
        business.clientNumberFormat = Business::defaultClientFormat;
        context.save();
    }

    ToolResult call(std::string_view tool, const std::string& arguments)
    {
        ToolResult result;
        actions.call(tool, JSON::parse(arguments).value(), [&](ToolResult answer) { result = std::move(answer); });
        return result;
    }

    FixedClock clock{LibraryGenerator::today};
    RandomUUIDSource uuids;
    Store store;
    Context context;
    AssistantActions actions;
};

void require(benchmark::State& state, const ToolResult& result)
{
    if (result.isError) {
        state.SkipWithError(result.text.c_str());
    }
}

std::string query(std::string_view text)
{
    return fmt::format(R"({{"query":"{}"}})", text);
}

void find(benchmark::State& state, std::string_view tool, std::string_view text, int documents, int clients)
{
    Library library(madeLibrary(documents, clients));
    require(state, library.call(tool, query("a")));
    for (auto _ : state) {
        benchmark::DoNotOptimize(library.call(tool, query(text)).text.size());
    }
}

/// The rows' texts folded, each row ended by a zero byte.
std::string foldedRows(Context& context, std::string_view sql)
{
    std::string block;
    context.query(std::string(sql), [&block](const Statement& row) {
        for (int column = 0; column < 4; ++column) {
            block += folded(row.text(column)) + "\n";
        }
        block += '\0';
    });
    return block;
}

std::string foldedClients(Context& context)
{
    return foldedRows(context, "SELECT number, name, email, city FROM Client");
}

/// How many rows hold the query.
std::size_t countedRecords(std::string_view block, std::string_view query)
{
    std::size_t count = 0;
    for (const char* place = block.data();;) {
        const auto left = [&] {
            return static_cast<std::size_t>(block.data() + block.size() - place);
        };
        place = static_cast<const char*>(query.size() == 1 ? memchr(place, query.front(), left())
                                                           : memmem(place, left(), query.data(), query.size()));
        if (place == nullptr) {
            return count;
        }
        ++count;
        place = static_cast<const char*>(memchr(place, '\0', left()));
    }
}

void findClientsByName(benchmark::State& state)
{
    find(state, "find_clients", "schroder plan", 1000, static_cast<int>(state.range(0)));
}
BENCHMARK(findClientsByName)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void findClientsByNumber(benchmark::State& state)
{
    find(state, "find_clients", "C-00777", 1000, static_cast<int>(state.range(0)));
}
BENCHMARK(findClientsByNumber)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void findClientsByOneLetter(benchmark::State& state)
{
    find(state, "find_clients", "e", 1000, static_cast<int>(state.range(0)));
}
BENCHMARK(findClientsByOneLetter)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void findClientsWithSlip(benchmark::State& state)
{
    find(state, "find_clients", "shcroeder", 1000, static_cast<int>(state.range(0)));
}
BENCHMARK(findClientsWithSlip)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void findClientsNewest(benchmark::State& state)
{
    find(state, "find_clients", "", 1000, static_cast<int>(state.range(0)));
}
BENCHMARK(findClientsNewest)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

/// One pass over as much text as the clients have.
void findClientsFloor(benchmark::State& state)
{
    Library library(madeLibrary(1000, static_cast<int>(state.range(0))));
    const std::string block = foldedClients(library.context);
    for (auto _ : state) {
        benchmark::DoNotOptimize(memmem(block.data(), block.size(), "schroder plan 0", 15));
    }
}
BENCHMARK(findClientsFloor)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

// A keystroke in a search field: all that fit are found and the best twenty put in order, no record is loaded. The floor
// goes through the same text with the C library and counts the records that hold the query.

constexpr std::array<std::string_view, 5> typed = {"e", "er", "sch", "schroder", "schroder plan"};

template <class Find>
void keystroke(benchmark::State& state, const std::string& block, const Find& find)
{
    const std::string_view query = typed.at(static_cast<std::size_t>(state.range(0)));
    const auto found = [&] {
        benchmark::DoNotOptimize(find(query).best(20).size());
    };
    const auto counted = [&] {
        benchmark::DoNotOptimize(countedRecords(block, query));
    };
    measureBeside<ThreadTime>(state, 1, found, counted);
    state.SetLabel(fmt::format("{} hits of “{}”", find(query).size(), query));
}

void searchClients(benchmark::State& state)
{
    Library library(madeLibrary(1000, 100'000));
    LibrarySearch search(library.context);
    keystroke(state, foldedClients(library.context), [&](std::string_view query) { return search.clients(query); });
}
BENCHMARK(searchClients)->DenseRange(0, 4)->Unit(benchmark::kMillisecond);

/// By number and title, and by all that is known of their clients.
void searchDocuments(benchmark::State& state)
{
    Library library(madeLibrary(100'000, 10'000));
    LibrarySearch search(library.context);
    const std::string block =
        foldedClients(library.context) + foldedRows(library.context, "SELECT number, title, '', '' FROM Document");
    keystroke(state, block, [&](std::string_view query) { return search.documents(query); });
}
BENCHMARK(searchDocuments)->DenseRange(0, 4)->Unit(benchmark::kMillisecond);

/// What a command pays that asks once: the library is opened and the search filled.
void coldFindClients(benchmark::State& state)
{
    const fs::path folder = madeLibrary(1000, static_cast<int>(state.range(0)));
    for (auto _ : state) {
        Library library(folder);
        benchmark::DoNotOptimize(library.call("find_clients", query("schroder plan")).text.size());
    }
}
BENCHMARK(coldFindClients)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void coldFindOpenDocuments(benchmark::State& state)
{
    const fs::path folder = madeLibrary(static_cast<int>(state.range(0)), static_cast<int>(state.range(0) / 10));
    for (auto _ : state) {
        Library library(folder);
        benchmark::DoNotOptimize(library.call("find_documents", R"({"status":"open"})").text.size());
    }
}
BENCHMARK(coldFindOpenDocuments)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void findDocumentsByClient(benchmark::State& state)
{
    const int documents = static_cast<int>(state.range(0));
    find(state, "find_documents", "schroder", documents, documents / 10);
}
BENCHMARK(findDocumentsByClient)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void findOverdueDocuments(benchmark::State& state)
{
    const int documents = static_cast<int>(state.range(0));
    Library library(madeLibrary(documents, documents / 10));
    require(state, library.call("find_documents", "{}"));
    for (auto _ : state) {
        benchmark::DoNotOptimize(library.call("find_documents", R"({"status":"overdue"})").text.size());
    }
}
BENCHMARK(findOverdueDocuments)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void moneyOverview(benchmark::State& state)
{
    const int documents = static_cast<int>(state.range(0));
    Library library(madeLibrary(documents, documents / 10));
    for (auto _ : state) {
        benchmark::DoNotOptimize(library.call("get_money_overview", "{}").text.size());
    }
}
BENCHMARK(moneyOverview)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

/// A draft with five lines, saved to disk, for a client named by number.
void createDocument(benchmark::State& state)
{
    const int documents = static_cast<int>(state.range(0));
    const fs::path folder = copied(madeLibrary(documents, documents / 10));
    {
        Library library(folder);
        library.setNumberFormats();
        std::string lines;
        for (int number = 1; number <= 5; ++number) {
            lines += fmt::format(R"({}{{"title":"Line {}","quantity":1.5,"unit":"hour","unit_price":90}})",
                                 number == 1 ? "" : ",",
                                 number);
        }
        const std::string arguments = fmt::format(R"({{"kind":"invoice","client":"C-00042","add_lines":[{}]}})", lines);
        require(state, library.call("create_document", arguments));
        for (auto _ : state) {
            benchmark::DoNotOptimize(library.call("create_document", arguments).text.size());
        }
    }
    fs::remove_all(folder);
}
BENCHMARK(createDocument)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

/// A client who is not there yet, saved to disk; the slowest way to search comes first.
void createClient(benchmark::State& state)
{
    const fs::path folder = copied(madeLibrary(1000, static_cast<int>(state.range(0))));
    {
        Library library(folder);
        library.setNumberFormats();
        int number = 0;
        require(state, library.call("create_client", R"({"name":"First Newcomer"})"));
        for (auto _ : state) {
            ++number;
            const std::string arguments =
                fmt::format(R"({{"name":"Newcomer {0}","email":"newcomer{0}@example.org"}})", number);
            benchmark::DoNotOptimize(library.call("create_client", arguments).text.size());
        }
    }
    fs::remove_all(folder);
}
BENCHMARK(createClient)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace Quillary
