#include "QuillaryCore/Billing/Totals.h"
#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/Clock.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Reports/AgingReport.h"
#include "QuillaryCore/Reports/ClientReport.h"
#include "QuillaryCore/Reports/InvoiceList.h"
#include "QuillaryCore/Reports/ReportCSV.h"
#include "QuillaryCore/Reports/ReportPeriod.h"
#include "QuillaryCore/Reports/TaxReport.h"
#include "QuillaryCore/Store/Connection.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryCore/Tabular/CSVWriter.h"
#include "bench/Support/LibraryGenerator.h"

#include <benchmark/benchmark.h>
#include <fmt/compile.h>
#include <fmt/format.h>
#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

// The reports beside bare SQLite and plain loops that come to the same figures from the same tables, in the same run.
// A floor knows what it may leave out: it checks no sum, has one currency, and no client without a name.

namespace Quillary {

namespace {

namespace fs = std::filesystem;

/// A made-up library with discounts and fees on some documents, kept from one run to the next.
fs::path madeLibrary(std::int64_t documents)
{
    const fs::path folder = fs::temp_directory_path() / fmt::format("quillary-bench-reports-{}", documents);
    LibraryGenerator::makeLibrary(folder, {static_cast<int>(documents), static_cast<int>(documents / 10)});
    const FixedClock clock(LibraryGenerator::today);
    CountingUUIDSource uuids;
    Store store(Store::Location::directory(folder), DataModel::records(), DataModel::history(), clock, uuids);
    if (store.connection().integer("SELECT count(*) FROM Discount") == 0) {
        store.connection().begin();
        store.connection().execute("INSERT INTO Discount (document, kindRaw, basisPoints) "
                                   "SELECT id, 0, 500 FROM Document WHERE id % 8 = 0");
        store.connection().execute("INSERT INTO Fee (document, amountMinorUnits, vatBasisPoints) "
                                   "SELECT id, 490, 1900 FROM Document WHERE id % 12 = 0");
        store.connection().commit();
        store.connection().checkpoint();
    }
    return folder;
}

/// Opened as the command opens it: read-only, memory-mapped.
struct Library
{
    explicit Library(std::int64_t documents)
        : store(Store::openReadOnly(
              Store::Location::directory(madeLibrary(documents)), DataModel::records(), DataModel::history()))
        , context(store, clock, uuids)
    {
    }

    /// The last whole year, or all five.
    [[nodiscard]] DateRange lastYears(std::int64_t years) const
    {
        constexpr ReportPeriod lastYear{std::chrono::year(2025) / 1 / 1, std::chrono::year(2025) / 12 / 31};
        return (years == 1 ? lastYear : ReportPeriod::all()).range(calendar);
    }

    FixedClock clock{LibraryGenerator::today};
    CountingUUIDSource uuids;
    Calendar calendar{"Europe/Berlin"};
    Store store;
    Context context;
};

class BareStatement
{
public:
    BareStatement(Library& library, const char* sql)
    {
        if (sqlite3_prepare_v2(library.store.connection().handle(), sql, -1, &m_handle, nullptr) != SQLITE_OK) {
            fmt::print(stderr, "{}\n", sqlite3_errmsg(library.store.connection().handle()));
            std::abort();
        }
    }
    BareStatement(const BareStatement&) = delete;
    BareStatement& operator=(const BareStatement&) = delete;
    ~BareStatement() { sqlite3_finalize(m_handle); }

    void start(std::initializer_list<std::int64_t> values)
    {
        sqlite3_reset(m_handle);
        int index = 1;
        for (const std::int64_t value : values) {
            sqlite3_bind_int64(m_handle, index++, value);
        }
    }
    bool step() { return sqlite3_step(m_handle) == SQLITE_ROW; }
    std::int64_t integer(int column) { return sqlite3_column_int64(m_handle, column); }
    std::string_view text(int column)
    {
        const void* bytes = sqlite3_column_text(m_handle, column);
        return {static_cast<const char*>(bytes), static_cast<std::size_t>(sqlite3_column_bytes(m_handle, column))};
    }

private:
    sqlite3_stmt* m_handle = nullptr;
};

std::int64_t count(Instant instant)
{
    return instant.time_since_epoch().count();
}

std::unordered_map<std::int64_t, std::string> bareNames(Library& library)
{
    std::unordered_map<std::int64_t, std::string> names;
    BareStatement clients(library, "SELECT id, name FROM Client");
    while (clients.step()) {
        names.emplace(clients.integer(0), clients.text(1));
    }
    return names;
}

void appendCents(std::string& text, std::int64_t cents)
{
    fmt::format_to(std::back_inserter(text), FMT_COMPILE(",{}.{:02}"), cents / 100, cents % 100);
}

// What is owed, with names, in order, as CSV.

void agingFloor(benchmark::State& state)
{
    Library library(state.range(0));
    BareStatement open(
        library,
        "SELECT client, dueDate, cachedTotalMinorUnits + cachedLateFeesMinorUnits - "
        "cachedPaidMinorUnits FROM Document WHERE kindRaw = 0 AND statusRaw = 1 AND currencyCode = 'EUR' "
        "ORDER BY client");
    BareStatement name(library, "SELECT name FROM Client WHERE id = ?");
    struct Row
    {
        std::int64_t total = 0;
        int invoices = 0;
        std::array<std::int64_t, 5> amounts{};
        std::string client;
    };
    const std::int64_t day = 86'400'000;
    const std::int64_t today = count(library.calendar.startOfDay(LibraryGenerator::today));
    for ([[maybe_unused]] const auto iteration : state) {
        std::vector<Row> rows;
        std::int64_t client = -1;
        open.start({});
        while (open.step()) {
            if (const std::int64_t key = open.integer(0); key != client) {
                client = key;
                name.start({key});
                name.step();
                rows.emplace_back().client = name.text(0);
            }
            const std::int64_t late = today - open.integer(1);
            const std::size_t bucket = late <= 0          ? 0
                                       : late <= 30 * day ? 1
                                       : late <= 60 * day ? 2
                                       : late <= 90 * day ? 3
                                                          : 4;
            rows.back().amounts.at(bucket) += open.integer(2);
            rows.back().total += open.integer(2);
            rows.back().invoices += 1;
        }
        std::ranges::sort(rows, [](const Row& left, const Row& right) {
            return std::tie(right.total, left.client) < std::tie(left.total, right.client);
        });
        std::string csv;
        csv.reserve(rows.size() * 100);
        for (const Row& row : rows) {
            csv.append(row.client);
            fmt::format_to(std::back_inserter(csv), FMT_COMPILE(",{}"), row.invoices);
            for (const std::int64_t amount : row.amounts) {
                appendCents(csv, amount);
            }
            appendCents(csv, row.total);
            csv.append("\r\n");
        }
        benchmark::DoNotOptimize(csv.data());
    }
}

void aging(benchmark::State& state)
{
    Library library(state.range(0));
    for ([[maybe_unused]] const auto iteration : state) {
        const AgingReport report = AgingReport::make(library.context, LibraryGenerator::today, library.calendar, "EUR");
        const ReportTable table = ReportCSV::aging(report);
        const std::string csv = CSVWriter::data(table.header, table.rows, CSVFormat::standard());
        benchmark::DoNotOptimize(csv.data());
    }
}

// Revenue and tax by rate, with the documents that make it up. Arguments: documents, years.

/// The tax of documents that come in the order of their keys, as their dates do in this library.
class BareTax
{
public:
    explicit BareTax(Library& library)
        : m_library(library)
        , m_documents(library,
                      "SELECT id, client, number, issueDate, taxExempt FROM Document WHERE issueDate >= ? AND "
                      "issueDate < ? AND kindRaw IN (0, 2) AND currencyCode = 'EUR' ORDER BY issueDate, id")
        , m_lines(library,
                  "SELECT document, quantityThousandths, unitPriceMinorUnits, vatBasisPoints FROM LineItem "
                  "WHERE document BETWEEN ? AND ?")
        , m_discounts(library,
                      "SELECT document, basisPoints FROM Discount WHERE document BETWEEN ? AND ? ORDER BY document")
        , m_fees(library,
                 "SELECT document, amountMinorUnits, vatBasisPoints FROM Fee WHERE document BETWEEN ? AND ? "
                 "ORDER BY document")
    {
    }

    std::int64_t run(const DateRange& range)
    {
        read(range);
        const std::int64_t first = m_entries.front().key;
        const std::int64_t last = m_entries.back().key;
        m_discounts.start({first, last});
        m_fees.start({first, last});
        m_hasDiscount = m_discounts.step();
        m_hasFee = m_fees.step();
        m_lines.start({first, last});
        auto entry = m_entries.begin();
        while (m_lines.step()) {
            const std::int64_t document = m_lines.integer(0);
            if (document != entry->key) {
                auto next = entry;
                while (next->key < document) {
                    ++next;
                }
                if (!m_current.empty()) {
                    finish(*entry);
                }
                entry = next;
                if (entry->key != document) {
                    continue;
                }
            }
            m_current.push_back(
                {m_lines.integer(1), m_lines.integer(2), static_cast<std::int32_t>(m_lines.integer(3))});
        }
        finish(*entry);
        std::int64_t sum = 0;
        for (const auto& [rate, amounts] : m_rates) {
            sum += amounts.first + amounts.second;
        }
        return sum;
    }

private:
    struct Entry
    {
        std::int64_t key;
        std::int64_t date;
        std::string number;
        std::string client;
        std::int64_t net = 0;
        std::int64_t tax = 0;
    };

    void read(const DateRange& range)
    {
        const auto names = bareNames(m_library);
        m_entries.clear();
        m_rates.clear();
        m_documents.start({count(range.start), count(range.end)});
        while (m_documents.step()) {
            m_entries.push_back({m_documents.integer(0),
                                 m_documents.integer(3),
                                 std::string(m_documents.text(2)),
                                 names.at(m_documents.integer(1))});
        }
    }

    void finish(Entry& entry)
    {
        m_documentDiscounts.clear();
        m_documentFees.clear();
        for (; m_hasDiscount && m_discounts.integer(0) <= entry.key; m_hasDiscount = m_discounts.step()) {
            if (m_discounts.integer(0) == entry.key) {
                m_documentDiscounts.push_back(
                    {Totals::DiscountKind::percentage, static_cast<std::int32_t>(m_discounts.integer(1)), 0});
            }
        }
        for (; m_hasFee && m_fees.integer(0) <= entry.key; m_hasFee = m_fees.step()) {
            if (m_fees.integer(0) == entry.key) {
                m_documentFees.push_back({m_fees.integer(1), static_cast<std::int32_t>(m_fees.integer(2))});
            }
        }
        Totals::calculate(m_current, m_documentDiscounts, m_documentFees, Totals::Taxation::taxed, m_totals);
        for (const Totals::TaxLine& line : m_totals.taxLines) {
            auto& [net, tax] = m_rates[line.basisPoints];
            net += line.base;
            tax += line.tax;
        }
        entry.net = m_totals.net;
        entry.tax = m_totals.totalTax;
        m_current.clear();
    }

    Library& m_library;
    BareStatement m_documents;
    BareStatement m_lines;
    BareStatement m_discounts;
    BareStatement m_fees;
    bool m_hasDiscount = false;
    bool m_hasFee = false;
    std::vector<Entry> m_entries;
    std::vector<Totals::Line> m_current;
    std::vector<Totals::Discount> m_documentDiscounts;
    std::vector<Totals::Fee> m_documentFees;
    Totals::Result m_totals;
    std::map<std::int32_t, std::pair<std::int64_t, std::int64_t>> m_rates;
};

void taxFloor(benchmark::State& state)
{
    Library library(state.range(0));
    const DateRange range = library.lastYears(state.range(1));
    std::int64_t gross = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        gross = BareTax(library).run(range);
        benchmark::DoNotOptimize(gross);
    }
    if (gross != TaxReport::make(library.context, range, ReportBasis::invoiced, "EUR").total().gross()) {
        state.SkipWithError("the floor comes to another sum");
    }
}

void tax(benchmark::State& state)
{
    Library library(state.range(0));
    const DateRange range = library.lastYears(state.range(1));
    for ([[maybe_unused]] const auto iteration : state) {
        const TaxReport report = TaxReport::make(library.context, range, ReportBasis::invoiced, "EUR");
        benchmark::DoNotOptimize(report.entries.data());
    }
}

void taxByPayment(benchmark::State& state)
{
    Library library(state.range(0));
    const DateRange range = library.lastYears(state.range(1));
    for ([[maybe_unused]] const auto iteration : state) {
        const TaxReport report = TaxReport::make(library.context, range, ReportBasis::paid, "EUR");
        benchmark::DoNotOptimize(report.entries.data());
    }
}

// Clients: invoiced, paid, open. Arguments: documents, years.

void clientsFloor(benchmark::State& state)
{
    Library library(state.range(0));
    const DateRange range = library.lastYears(state.range(1));
    struct Row
    {
        std::int64_t documents = 0;
        std::int64_t net = 0;
        std::int64_t gross = 0;
        std::int64_t paid = 0;
        std::int64_t open = 0;
        std::string client;
    };
    BareStatement documents(library,
                            "SELECT client, cachedNetMinorUnits, cachedTotalMinorUnits FROM Document WHERE "
                            "issueDate >= ? AND issueDate < ? AND kindRaw IN (0, 2) AND statusRaw <> 0");
    BareStatement payments(library,
                           "SELECT client, amountMinorUnits FROM Payment CROSS JOIN Document ON Document.id = document "
                           "WHERE date >= ? AND date < ? AND kindRaw = 0 AND statusRaw <> 0");
    BareStatement open(library,
                       "SELECT client, cachedTotalMinorUnits + cachedLateFeesMinorUnits - cachedPaidMinorUnits "
                       "FROM Document WHERE kindRaw = 0 AND statusRaw = 1 AND currencyCode = 'EUR'");
    for ([[maybe_unused]] const auto iteration : state) {
        std::unordered_map<std::int64_t, Row> rows;
        documents.start({count(range.start), count(range.end)});
        while (documents.step()) {
            Row& row = rows[documents.integer(0)];
            row.documents += 1;
            row.net += documents.integer(1);
            row.gross += documents.integer(2);
        }
        payments.start({count(range.start), count(range.end)});
        while (payments.step()) {
            rows[payments.integer(0)].paid += payments.integer(1);
        }
        open.start({});
        while (open.step()) {
            rows[open.integer(0)].open += open.integer(1);
        }
        auto names = bareNames(library);
        std::vector<Row> sorted;
        sorted.reserve(rows.size());
        for (auto& [key, row] : rows) {
            row.client = std::move(names.at(key));
            sorted.push_back(std::move(row));
        }
        std::ranges::sort(sorted, [](const Row& left, const Row& right) {
            return std::tie(right.gross, left.client) < std::tie(left.gross, right.client);
        });
        benchmark::DoNotOptimize(sorted.data());
    }
}

void clients(benchmark::State& state)
{
    Library library(state.range(0));
    const DateRange range = library.lastYears(state.range(1));
    for ([[maybe_unused]] const auto iteration : state) {
        const ClientReport report = ClientReport::make(library.context, range, "EUR");
        benchmark::DoNotOptimize(report.rows.data());
    }
}

/// The invoices of a period with their CSV.
void invoiceList(benchmark::State& state)
{
    Library library(state.range(0));
    const DateRange range = library.lastYears(state.range(1));
    for ([[maybe_unused]] const auto iteration : state) {
        const InvoiceList list =
            InvoiceList::make(library.context, range, "EUR", LibraryGenerator::today, library.calendar);
        const ReportTable table = ReportCSV::invoices(list, "VAT", library.calendar);
        const std::string csv = CSVWriter::data(table.header, table.rows, CSVFormat::standard());
        benchmark::DoNotOptimize(csv.data());
    }
}

void growing(benchmark::internal::Benchmark* benchmark)
{
    for (const std::int64_t documents : {1'000, 10'000, 100'000}) {
        benchmark->Arg(documents);
    }
    benchmark->Unit(benchmark::kMillisecond);
}

void growingByYears(benchmark::internal::Benchmark* benchmark)
{
    for (const std::int64_t documents : {1'000, 10'000, 100'000}) {
        benchmark->Args({documents, 1})->Args({documents, 5});
    }
    benchmark->Unit(benchmark::kMillisecond);
}

} // namespace

BENCHMARK(agingFloor)->Apply(growing);
BENCHMARK(aging)->Apply(growing);
BENCHMARK(taxFloor)->Apply(growingByYears);
BENCHMARK(tax)->Apply(growingByYears);
BENCHMARK(taxByPayment)->Apply(growingByYears);
BENCHMARK(clientsFloor)->Apply(growingByYears);
BENCHMARK(clients)->Apply(growingByYears);
BENCHMARK(invoiceList)->Apply(growingByYears);

} // namespace Quillary
