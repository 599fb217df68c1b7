#include "QuillaryCore/Model/BusinessDefaults.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Schedules/RecurringInvoices.h"
#include "QuillaryCore/Schedules/RecurringTemplate.h"
#include "QuillaryCore/Schedules/TimeInvoicing.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "bench/Support/BareWriter.h"
#include "bench/Support/LibraryGenerator.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <sqlite3.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// What schedules cost: their dates, a run with nothing to do, the invoices of a run beside their bare rows, and the
// lines of tracked time.

namespace Quillary {

namespace {

namespace fs = std::filesystem;

constexpr int linesOfTemplate = 20;
constexpr int invoicesOfRun = 60;
constexpr int daysOfTenYears = 3652;

/// A library of its own in a folder that goes with it.
struct Library
{
    Library()
        : store(Store::Location::directory(folder), DataModel::records(), DataModel::history(), clock, uuids)
        , context(store, clock, uuids)
    {
        makeFirstBusiness(context, Locale("de_DE"));
        client = context.insert<Client>().ref;
        context.save();
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() { fs::remove_all(folder); }

    /// A monthly template from the 31st, whose next date lies so many days from today.
    Document& addTemplate(int daysToNext)
    {
        Document& recurring = context.insert<Document>();
        recurring.kindRaw = static_cast<std::int16_t>(DocumentKind::recurring);
        recurring.client = client;
        recurring.issueDate = calendar.storedDay(std::chrono::year(2016) / 1 / 31);
        recurring.nextIssueDate = calendar.addingDays(LibraryGenerator::today, daysToNext);
        recurring.recurrenceUnitRaw = 1;
        recurring.recurrenceInterval = 1;
        recurring.recurrenceAnchorDay = 31;
        return recurring;
    }

    fs::path folder = fs::temp_directory_path() / fmt::format("quillary-bench-schedule-{}", std::rand());
    FixedClock clock{LibraryGenerator::today};
    RandomUUIDSource uuids;
    Calendar calendar{"Europe/Berlin"};
    Store store;
    Context context;
    Ref<Client> client;
};

// The dates of ten years of a thousand schedules: each found from the start, and each stepped to from the one before,
// which is less but loses the 31st.

void datesFloor(benchmark::State& state)
{
    for ([[maybe_unused]] const auto iteration : state) {
        for (int number = 0; number < 1000; ++number) {
            std::chrono::year_month_day date = std::chrono::year(2016) / 1 / 31;
            for (int n = 0; n < 120; ++n) {
                benchmark::DoNotOptimize(date);
                const std::chrono::year_month next = date.year() / date.month() + std::chrono::months(1);
                date = next / std::min(date.day(), (next / std::chrono::last).day());
            }
        }
    }
}

void dates(benchmark::State& state)
{
    const Recurrence monthly{.unit = RecurrenceUnit::month, .interval = 1, .anchorDay = 31};
    const CalendarDate start = std::chrono::year(2016) / 1 / 31;
    for ([[maybe_unused]] const auto iteration : state) {
        for (int number = 0; number < 1000; ++number) {
            CalendarDate date = start;
            for (int n = 0; n < 120; ++n) {
                benchmark::DoNotOptimize(date);
                date = monthly.date(*monthly.firstIndexAfter(date, start), start);
            }
        }
    }
}

/// The same as a run finds them, from stored days to stored days.
void datesOfTemplates(benchmark::State& state)
{
    Library library;
    const Document& recurring = library.addTemplate(-daysOfTenYears);
    const CalendarDate today = library.calendar.date(LibraryGenerator::today);
    for ([[maybe_unused]] const auto iteration : state) {
        for (int number = 0; number < 1000; ++number) {
            benchmark::DoNotOptimize(RecurringTemplate::dueDates(recurring, today, 120, library.calendar));
        }
    }
    library.context.rollback();
}

// A run in which nothing is due, in a library of so many templates and ten times as many other documents.

void nothingDue(benchmark::State& state)
{
    Library library;
    Context& context = library.context;
    for (std::int64_t number = 0; number < state.range(0); ++number) {
        Document& recurring = library.addTemplate(static_cast<int>(number % 365) + 1);
        recurring.isPaused = number % 10 == 0;
        if (number % 10 == 1) { // long ended
            recurring.nextIssueDate = library.calendar.addingDays(LibraryGenerator::today, -200);
            recurring.recurrenceEndRaw = 1;
            recurring.recurrenceEndCount = 12;
            recurring.recurrenceCount = 12;
        }
        for (int other = 0; other < 10; ++other) {
            context.insert<Document>();
        }
    }
    context.save();
    for ([[maybe_unused]] const auto iteration : state) {
        context.forgetUnchanged();
        const auto run = RecurringInvoices::catchUp(context, LibraryGenerator::today, 60, library.calendar);
        if (!run.made.empty()) {
            state.SkipWithError("something was due");
        }
    }
}

// The sixty invoices of a run, each with twenty lines and on disk before the next; the same rows by bare statements in
// as many transactions.

void runFloor(benchmark::State& state)
{
    Library library;
    sqlite3* database = library.store.connection().handle();
    BareWriter writer(database);
    Document document = library.addTemplate(0);
    document.uuid = UUID(UUID::Bytes{});
    document.number = "INV-2026-000123";
    document.currencyCode = "EUR";
    LineItem line;
    line.uuid = UUID(UUID::Bytes{});
    line.title = "Support and hosting in January 2026";
    line.unitSingular = "Stunde";
    line.unitPlural = "Stunden";
    library.context.rollback();
    for ([[maybe_unused]] const auto iteration : state) {
        for (int number = 0; number < invoicesOfRun; ++number) {
            check(sqlite3_exec(database, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr));
            writer.write(document, line, linesOfTemplate);
            check(sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr));
        }
    }
}

void run(benchmark::State& state)
{
    Library library;
    Context& context = library.context;
    Document& recurring = library.addTemplate(-daysOfTenYears);
    for (int number = 0; number < linesOfTemplate; ++number) {
        LineItem& line = context.insert<LineItem>();
        line.document = recurring.ref;
        line.title = "Support and hosting in {month_year}";
        line.quantityThousandths = 2500;
        line.unitPriceMinorUnits = 9900;
        line.vatBasisPoints = 1900;
        line.unit = "hour";
        line.sortIndex = number;
    }
    context.save();
    for ([[maybe_unused]] const auto iteration : state) {
        state.PauseTiming();
        for (const Document* invoice : context.fetch<Document>("kindRaw = 0")) {
            context.erase(*invoice);
        }
        context.edit(recurring).nextIssueDate = library.calendar.addingDays(LibraryGenerator::today, -daysOfTenYears);
        context.edit(recurring).recurrenceCount = 0;
        context.save();
        state.ResumeTiming();
        const auto made = RecurringInvoices::makeDue(
            context, LibraryGenerator::today, static_cast<std::size_t>(invoicesOfRun), library.calendar);
        if (made.size() != invoicesOfRun) {
            state.SkipWithError("the run made another number");
        }
    }
}

// The lines of so many time entries of fifty projects.

void timeLines(benchmark::State& state)
{
    Library library;
    Context& context = library.context;
    std::vector<Ref<Project>> projects;
    for (int number = 0; number < 50; ++number) {
        Project& project = context.insert<Project>();
        project.name = fmt::format("Website {}", number);
        projects.push_back(project.ref);
    }
    std::vector<const TimeEntry*> entries;
    for (std::int64_t number = 0; number < state.range(0); ++number) {
        TimeEntry& entry = context.insert<TimeEntry>();
        entry.start = LibraryGenerator::today - std::chrono::minutes(number * 7919 % 1'000'003);
        entry.end = *entry.start + std::chrono::minutes(number % 200);
        entry.note = "Fixing the menu";
        entry.project = projects[static_cast<std::size_t>(number % 50)];
        entries.push_back(&entry);
    }
    const TimeInvoicing::Terms terms{
        .grouping = static_cast<TimeInvoicing::Grouping>(state.range(1)), .hourlyRate = 9000, .roundingMinutes = 15};
    const Locale locale("de_DE");
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(
            TimeInvoicing::lines(context, entries, terms, LibraryGenerator::today, library.calendar, locale));
    }
    context.rollback();
}

BENCHMARK(datesFloor)->Unit(benchmark::kMillisecond);
BENCHMARK(dates)->Unit(benchmark::kMillisecond);
BENCHMARK(datesOfTemplates)->Unit(benchmark::kMillisecond);
BENCHMARK(nothingDue)->Arg(100)->Arg(1000)->Arg(10'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(runFloor)->Unit(benchmark::kMillisecond);
BENCHMARK(run)->Unit(benchmark::kMillisecond);
BENCHMARK(timeLines)->ArgsProduct({{1000, 10'000, 100'000}, {0, 1, 2}})->Unit(benchmark::kMillisecond);

} // namespace

} // namespace Quillary
