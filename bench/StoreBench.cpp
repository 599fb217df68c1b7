#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentTaxTreatment.h"
#include "QuillaryCore/Model/Fee.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/Payment.h"
#include "QuillaryCore/Model/Reminder.h"
#include "QuillaryCore/Store/Connection.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/DataMigration.h"
#include "QuillaryCore/Store/LibraryTables.h"
#include "QuillaryCore/Store/Store.h"
#include "bench/Support/BareWriter.h"
#include "bench/Support/LibraryGenerator.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <sqlite3.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

// What the store costs beside bare SQLite doing the same work with the same tables, in the same run.

namespace Quillary {

namespace {

namespace fs = std::filesystem;

constexpr int linesPerDocument = 6;

/// A folder that goes with the object.
struct Folder
{
    Folder() { fs::remove_all(path); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() { fs::remove_all(path); }

    fs::path path = fs::temp_directory_path() / fmt::format("quillary-bench-{}", std::rand());
};

/// An open library with its context.
struct Library
{
    explicit Library(const fs::path& folder)
        : store(Store::Location::directory(folder), DataModel::records(), DataModel::history(), clock, uuids)
        , context(store, clock, uuids)
    {
    }

    FixedClock clock{LibraryGenerator::today};
    CountingUUIDSource uuids{1'000'000'000};
    Store store;
    Context context;
};

/// A made-up library, kept from one run to the next.
fs::path madeLibrary(std::int64_t documents)
{
    const fs::path folder = fs::temp_directory_path() / fmt::format("quillary-bench-library-{}", documents);
    LibraryGenerator::makeLibrary(folder, {static_cast<int>(documents), static_cast<int>(documents / 10)});
    return folder;
}

Document sampleDocument()
{
    Document document;
    document.uuid = UUID(UUID::Bytes{});
    document.createdAt = LibraryGenerator::today;
    document.issueDate = LibraryGenerator::today;
    document.dueDate = LibraryGenerator::today;
    document.number = "INV-2026-000123";
    document.currencyCode = "EUR";
    document.languageCode = "de";
    document.title = "Website design for Müller";
    document.introText = "Thank you for your order. We hereby charge as agreed:";
    document.outroText = "Please pay within 14 days without deduction.";
    document.cachedNetMinorUnits = 123'456;
    document.cachedTotalMinorUnits = 146'913;
    return document;
}

LineItem sampleLine()
{
    LineItem line;
    line.uuid = UUID(UUID::Bytes{});
    line.title = "Workshop and travel";
    line.quantityThousandths = 2'500;
    line.unitPriceMinorUnits = 9'900;
    line.vatBasisPoints = 1'900;
    line.unit = "hour";
    line.unitSingular = "Stunde";
    line.unitPlural = "Stunden";
    return line;
}

void fill(Document& document)
{
    const Document sample = sampleDocument();
    document.dueDate = sample.dueDate;
    document.number = sample.number;
    document.currencyCode = sample.currencyCode;
    document.languageCode = sample.languageCode;
    document.title = sample.title;
    document.introText = sample.introText;
    document.outroText = sample.outroText;
    document.cachedNetMinorUnits = sample.cachedNetMinorUnits;
    document.cachedTotalMinorUnits = sample.cachedTotalMinorUnits;
}

/// A document with its lines, as an operation of the model makes it.
const Document& insertDocument(Context& context)
{
    auto& document = context.insert<Document>();
    fill(document);
    document.client = Ref<Client>(1);
    const LineItem sample = sampleLine();
    for (int number = 0; number < linesPerDocument; ++number) {
        auto& line = context.insert<LineItem>();
        line.document = document.ref;
        line.sortIndex = number;
        line.title = sample.title;
        line.quantityThousandths = sample.quantityThousandths;
        line.unitPriceMinorUnits = sample.unitPriceMinorUnits;
        line.vatBasisPoints = sample.vatBasisPoints;
        line.unit = sample.unit;
        line.unitSingular = sample.unitSingular;
        line.unitPlural = sample.unitPlural;
    }
    return document;
}

// Documents in one transaction: rows by bare statements, the same through the context, and each in a scope of its own
// that also reads the lines back, as the operations of the model do.

void insertFloor(benchmark::State& state)
{
    const Folder folder;
    Library library(folder.path);
    sqlite3* database = library.store.connection().handle();
    BareWriter writer(database);
    const Document document = sampleDocument();
    const LineItem line = sampleLine();
    for ([[maybe_unused]] const auto iteration : state) {
        check(sqlite3_exec(database, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr));
        for (std::int64_t count = 0; count < state.range(0); ++count) {
            writer.write(document, line, linesPerDocument);
        }
        check(sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void insertRows(benchmark::State& state)
{
    const Folder folder;
    Library library(folder.path);
    for ([[maybe_unused]] const auto iteration : state) {
        for (std::int64_t count = 0; count < state.range(0); ++count) {
            insertDocument(library.context);
        }
        library.context.save();
        library.context.forgetUnchanged();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void insertThroughScopes(benchmark::State& state)
{
    const Folder folder;
    Library library(folder.path);
    Context& context = library.context;
    for ([[maybe_unused]] const auto iteration : state) {
        auto whole = context.beginScope("Import");
        for (std::int64_t count = 0; count < state.range(0); ++count) {
            auto scope = context.beginScope("New invoice");
            const Document& document = insertDocument(context);
            std::int64_t sum = 0;
            for (const LineItem* line : context.related<&LineItem::document>(document)) {
                sum += line->unitPriceMinorUnits;
            }
            context.edit(document).cachedNetMinorUnits = sum;
            scope.commit();
        }
        whole.commit();
        context.forgetUnchanged();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// One saved document: durable on return.

void saveFloor(benchmark::State& state)
{
    const Folder folder;
    Library library(folder.path);
    sqlite3* database = library.store.connection().handle();
    BareWriter writer(database);
    const Document document = sampleDocument();
    const LineItem line = sampleLine();
    BareStatement begin(database, "BEGIN IMMEDIATE");
    BareStatement commit(database, "COMMIT");
    for ([[maybe_unused]] const auto iteration : state) {
        begin.run();
        writer.write(document, line, linesPerDocument);
        commit.run();
    }
}

void saveInserted(benchmark::State& state)
{
    const Folder folder;
    Library library(folder.path);
    for ([[maybe_unused]] const auto iteration : state) {
        insertDocument(library.context);
        library.context.save();
    }
}

void saveInScope(benchmark::State& state)
{
    const Folder folder;
    Library library(folder.path);
    for ([[maybe_unused]] const auto iteration : state) {
        auto scope = library.context.beginScope("New invoice");
        insertDocument(library.context);
        scope.commit();
    }
}

// One changed field, saved.

void changeFloor(benchmark::State& state)
{
    const Folder folder;
    Library library(folder.path);
    const std::int64_t key = insertDocument(library.context).ref.key();
    library.context.save();
    sqlite3* database = library.store.connection().handle();
    BareStatement begin(database, "BEGIN IMMEDIATE");
    BareStatement update(database, "UPDATE Document SET cachedNetMinorUnits = ? WHERE id = ?");
    BareStatement commit(database, "COMMIT");
    std::int64_t value = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        begin.run();
        sqlite3_bind_int64(update.handle(), 1, ++value);
        sqlite3_bind_int64(update.handle(), 2, key);
        update.run();
        commit.run();
    }
}

void changeInScope(benchmark::State& state)
{
    const Folder folder;
    Library library(folder.path);
    const Document& document = insertDocument(library.context);
    library.context.save();
    std::int64_t value = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        auto scope = library.context.beginScope("Edit");
        library.context.edit(document).cachedNetMinorUnits = ++value;
        scope.commit();
    }
}

// Opening a library and showing the newest hundred documents with status and amounts; the same with bare SQLite.

constexpr const char* newestSQL =
    "SELECT d.id, d.kindRaw, d.statusRaw, d.number, d.issueDate, d.dueDate, d.currencyCode, "
    "d.cachedTotalMinorUnits, d.cachedPaidMinorUnits, d.cachedLateFeesMinorUnits, c.name "
    "FROM Document d LEFT JOIN Client c ON c.id = d.client "
    "ORDER BY d.issueDate DESC, d.id DESC LIMIT 100";

void openFloor(benchmark::State& state)
{
    const fs::path file = madeLibrary(state.range(0)) / Store::fileName;
    for ([[maybe_unused]] const auto iteration : state) {
        sqlite3* database = nullptr;
        check(sqlite3_open(file.c_str(), &database));
        {
            const BareStatement statement(database, newestSQL);
            while (sqlite3_step(statement.handle()) == SQLITE_ROW) {
                for (int column = 0; column < 11; ++column) {
                    benchmark::DoNotOptimize(sqlite3_column_text(statement.handle(), column));
                }
            }
        }
        check(sqlite3_close(database));
    }
}

void openAndList(benchmark::State& state)
{
    const fs::path folder = madeLibrary(state.range(0));
    for ([[maybe_unused]] const auto iteration : state) {
        Library library(folder);
        std::size_t count = 0;
        library.context.query(newestSQL, [&](const Statement& row) {
            benchmark::DoNotOptimize(std::string(row.text(3)));
            benchmark::DoNotOptimize(row.integer(7) + row.integer(9) - row.integer(8));
            benchmark::DoNotOptimize(std::string(row.text(10)));
            ++count;
        });
        if (count != 100) {
            state.SkipWithError("the list is short");
        }
    }
}

// One document with everything that belongs to it, each time another one that isn't in memory.

void loadFloor(benchmark::State& state)
{
    Library library(madeLibrary(state.range(0)));
    sqlite3* database = library.store.connection().handle();
    std::vector<std::unique_ptr<BareStatement>> statements;
    for (const char* sql : {"SELECT * FROM Document WHERE id = ?",
                            "SELECT * FROM LineItem WHERE document = ?",
                            "SELECT * FROM Discount WHERE document = ?",
                            "SELECT * FROM Fee WHERE document = ?",
                            "SELECT * FROM Payment WHERE document = ?",
                            "SELECT * FROM Reminder WHERE document = ?"}) {
        statements.push_back(std::make_unique<BareStatement>(database, sql));
    }
    std::int64_t key = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        key = (key + 7919) % state.range(0);
        for (const auto& statement : statements) {
            sqlite3_bind_int64(statement->handle(), 1, key + 1);
            while (sqlite3_step(statement->handle()) == SQLITE_ROW) {
                for (int column = 0; column < sqlite3_column_count(statement->handle()); ++column) {
                    benchmark::DoNotOptimize(sqlite3_column_blob(statement->handle(), column));
                }
            }
            sqlite3_reset(statement->handle());
        }
    }
}

void loadDocument(benchmark::State& state)
{
    Library library(madeLibrary(state.range(0)));
    Context& context = library.context;
    std::int64_t key = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        key = (key + 7919) % state.range(0);
        const Document& document = *context.find(Ref<Document>(key + 1));
        benchmark::DoNotOptimize(context.related<&LineItem::document>(document).size());
        benchmark::DoNotOptimize(context.related<&Discount::document>(document).size());
        benchmark::DoNotOptimize(context.related<&Fee::document>(document).size());
        benchmark::DoNotOptimize(context.related<&Payment::document>(document).size());
        benchmark::DoNotOptimize(context.related<&Reminder::document>(document).size());
        if (key % 64 == 0) {
            context.forgetUnchanged();
        }
    }
}

// Every line of every document, as a report reads them: bare in one scan, prefetched by the context, and one by one.

void linesFloor(benchmark::State& state)
{
    Library library(madeLibrary(state.range(0)));
    const BareStatement statement(library.store.connection().handle(),
                                  "SELECT document, quantityThousandths, unitPriceMinorUnits FROM LineItem");
    for ([[maybe_unused]] const auto iteration : state) {
        std::int64_t sum = 0;
        while (sqlite3_step(statement.handle()) == SQLITE_ROW) {
            sum += sqlite3_column_int64(statement.handle(), 1) * sqlite3_column_int64(statement.handle(), 2);
        }
        benchmark::DoNotOptimize(sum);
        sqlite3_reset(statement.handle());
    }
}

template <bool isPrefetched>
void linesOf(benchmark::State& state)
{
    Library library(madeLibrary(state.range(0)));
    Context& context = library.context;
    for ([[maybe_unused]] const auto iteration : state) {
        const std::vector<const Document*> documents = context.fetch<Document>("");
        if constexpr (isPrefetched) {
            context.prefetch<&LineItem::document, Document>(documents);
        }
        std::int64_t sum = 0;
        for (const Document* document : documents) {
            for (const LineItem* line : context.related<&LineItem::document>(*document)) {
                sum += line->quantityThousandths * line->unitPriceMinorUnits;
            }
        }
        benchmark::DoNotOptimize(sum);
        state.PauseTiming();
        context.forgetUnchanged();
        state.ResumeTiming();
    }
}

void linesPrefetched(benchmark::State& state)
{
    linesOf<true>(state);
}

void linesOneByOne(benchmark::State& state)
{
    linesOf<false>(state);
}

/// A copy of a made-up library as the first version of Quillary would have left it.
fs::path oldLibrary(const Folder& folder, std::int64_t documents)
{
    const fs::path made = madeLibrary(documents);
    fs::create_directories(folder.path);
    const fs::path file = folder.path / Store::fileName;
    fs::copy_file(made / Store::fileName, file, fs::copy_options::overwrite_existing);
    Connection connection(file, Connection::Access::readWrite);
    for (const Entity& entity : DataModel::model().entities) {
        if (DataModel::model(1)->entity(entity.name) == nullptr) {
            connection.execute(fmt::format("DROP TABLE {}", entity.name));
        }
    }
    connection.execute(
        fmt::format("UPDATE {} SET value = 1 WHERE name = 'schemaVersion'", LibraryTables::informationTable));
    return file;
}

void upgrade(benchmark::State& state)
{
    const Folder folder;
    for (auto _ : state) {
        state.PauseTiming();
        const fs::path file = oldLibrary(folder, state.range(0));
        state.ResumeTiming();
        const auto backup = DataMigration::upgradeIfNeeded(file, LibraryGenerator::today, DataModel::history());
        state.PauseTiming();
        if (!backup) {
            state.SkipWithError("nothing was upgraded");
        }
        fs::remove_all(folder.path);
        state.ResumeTiming();
    }
}

/// Two copies through SQLite, the backup and the new file, each looked through once.
void upgradeFloor(benchmark::State& state)
{
    const Folder folder;
    const fs::path file = oldLibrary(folder, state.range(0));
    for (auto _ : state) {
        for (const char* name : {"first", "second"}) {
            const fs::path copy = folder.path / name;
            Connection(file, Connection::Access::readWrite).execute(fmt::format("VACUUM INTO '{}'", copy.string()));
            Connection(copy, Connection::Access::readWrite).execute("PRAGMA integrity_check");
            fs::remove(copy);
        }
    }
}

BENCHMARK(insertFloor)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(insertRows)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(insertThroughScopes)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(saveFloor)->Unit(benchmark::kMicrosecond);
BENCHMARK(saveInserted)->Unit(benchmark::kMicrosecond);
BENCHMARK(saveInScope)->Unit(benchmark::kMicrosecond);
BENCHMARK(changeFloor)->Unit(benchmark::kMicrosecond);
BENCHMARK(changeInScope)->Unit(benchmark::kMicrosecond);
BENCHMARK(openFloor)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(openAndList)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(loadFloor)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(loadDocument)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(upgradeFloor)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(upgrade)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(linesFloor)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(linesPrefetched)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(linesOneByOne)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace Quillary
