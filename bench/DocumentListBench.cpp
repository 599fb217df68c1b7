#include "QuillaryCore/Documents/DocumentRows.h"
#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/Clock.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Search/LibrarySearch.h"
#include "QuillaryCore/Search/TextBlock.h"
#include "QuillaryCore/Search/TextScan.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryUI/Documents/DocumentListModel.h"
#include "QuillaryUI/Documents/DocumentsSection.h"
#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Look/Lists.h"
#include "QuillaryUI/Look/Theme.h"
#include "bench/Support/LibraryGenerator.h"
#include "tests/QuillaryUI/WindowLibrary.h"

#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTableView>

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <malloc.h>
#include <map>
#include <memory>
#include <numeric>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// The list of documents, from the library to the pixels. Budgets at 100,000 documents: sort 20 ms, counts 5 ms, a search
// keystroke 3 ms, a screenful 1 ms, another list 50 ms, 60 MiB.

namespace Quillary {

namespace {

namespace fs = std::filesystem;
using Column = DocumentRows::Column;
using Order = DocumentRows::Order;

constexpr double mebibyte = 1024.0 * 1024.0;
constexpr int screenWidth = 720;
constexpr int screenHeight = 900;
constexpr int rowHeight = 32;

void startApplication()
{
    static int count = 1;
    static char name[] = "bench";
    static char* arguments[] = {name, nullptr};
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    qInstallMessageHandler([](QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
        if (!message.contains(QLatin1String("propagateSizeHints"))) { // which a window without a screen can't heed
            fmt::print(stderr, "{}\n", message.toStdString());
        }
    });
    // Never destroyed: at the end of the process what it needs is gone.
    static QApplication& application = *std::make_unique<QApplication>(count, arguments).release();
    static const bool isDressed = [] {
        Theme::apply(application, Theme::Scheme::light, QColor(0xff1f5fbf));
        return true;
    }();
    static_cast<void>(isDressed);
}

fs::path madeLibrary(std::int64_t documents)
{
    const fs::path folder = fs::temp_directory_path() / fmt::format("quillary-bench-list-{}", documents);
    LibraryGenerator::makeLibrary(folder, {static_cast<int>(documents), static_cast<int>(documents / 10)});
    return folder;
}

/// An open library as the windows see it.
struct Library
{
    explicit Library(std::int64_t documents)
        : folder(madeLibrary(documents))
        , store(Store::Location::directory(folder), DataModel::records(), DataModel::history(), clock, uuids)
        , context(store, clock, uuids)
        , search(context)
    {
        access.open({.context = context,
                     .business = context.first<Business>("")->ref,
                     .host = nullptr,
                     .assistantName = {},
                     .clock = clock,
                     .calendar = calendar,
                     .locale = Locale("en_GB"),
                     .search = &search});
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() { access.close(); }

    fs::path folder;
    FixedClock clock{LibraryGenerator::today};
    CountingUUIDSource uuids{1'000'000'000};
    Calendar calendar{"Europe/Berlin"};
    Store store;
    Context context;
    LibrarySearch search;
    NoPress press;
    LibraryAccess access{press, Formats(Locale("en_GB"), calendar)};
};

/// One library a size for all benchmarks, and its list.
struct Loaded
{
    explicit Loaded(std::int64_t documents)
        : library(documents)
    {
        rows.load(library.context, library.access.today(), library.calendar);
    }

    Library library;
    DocumentRows rows{DocumentKind::invoice};
};

Loaded& loaded(std::int64_t documents)
{
    startApplication(); // it outlives the libraries
    static std::map<std::int64_t, std::unique_ptr<Loaded>> all;
    std::unique_ptr<Loaded>& one = all[documents];
    if (one == nullptr) {
        one = std::make_unique<Loaded>(documents);
    }
    return *one;
}

void listLoad(benchmark::State& state)
{
    Library& library = loaded(state.range(0)).library;
    for (auto _ : state) {
        DocumentRows rows(DocumentKind::invoice);
        rows.load(library.context, library.access.today(), library.calendar);
        benchmark::DoNotOptimize(rows.size());
    }
}

/// What a row needs from the file, copied as it is: no status, no names, no folded text, no order.
struct BareRow
{
    std::int64_t figures[8];
    std::size_t textEnds[4];
};

void listLoadFloor(benchmark::State& state)
{
    sqlite3* connection = nullptr;
    const std::string file = (madeLibrary(state.range(0)) / "Library.sqlite").string();
    sqlite3_open_v2(file.c_str(), &connection, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(connection,
                       "SELECT id, statusRaw, dueDate, issueDate, cachedTotalMinorUnits, cachedPaidMinorUnits, "
                       "cachedLateFeesMinorUnits, client, tags, number, title, currencyCode FROM Document "
                       "WHERE kindRaw = 0",
                       -1,
                       &statement,
                       nullptr);
    for (auto _ : state) {
        std::vector<BareRow> rows;
        std::string texts;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            BareRow& row = rows.emplace_back();
            for (int column = 0; column < 8; ++column) {
                row.figures[column] = sqlite3_column_int64(statement, column);
            }
            for (int column = 8; column < 12; ++column) {
                const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
                texts.append(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
                row.textEnds[column - 8] = texts.size();
            }
        }
        sqlite3_reset(statement);
        benchmark::DoNotOptimize(rows.data());
        benchmark::DoNotOptimize(texts.data());
    }
    sqlite3_finalize(statement);
    sqlite3_close(connection);
}

void memory(benchmark::State& state)
{
    Library& library = loaded(state.range(0)).library;
    std::size_t used = 0;
    for (auto _ : state) {
        DocumentRows rows(DocumentKind::invoice);
        malloc_trim(0);
        const std::size_t before = mallinfo2().uordblks + mallinfo2().hblkhd;
        rows.load(library.context, library.access.today(), library.calendar);
        const std::vector<std::uint32_t> places = rows.arranged({}, Column::issueDate, Order::descending);
        benchmark::DoNotOptimize(places.data());
        used = mallinfo2().uordblks + mallinfo2().hblkhd - before;
    }
    state.counters["MiB"] = static_cast<double>(used) / mebibyte;
}

void sortBy(benchmark::State& state, Column column)
{
    const DocumentRows& rows = loaded(state.range(0)).rows;
    Order order = Order::descending;
    for (auto _ : state) { // to and fro, since the order asked for last is kept
        order = order == Order::ascending ? Order::descending : Order::ascending;
        benchmark::DoNotOptimize(rows.arranged({}, column, order).data());
    }
}

void sortByNumber(benchmark::State& state)
{
    sortBy(state, Column::number);
}

void sortByClient(benchmark::State& state)
{
    sortBy(state, Column::client);
}

void sortByDate(benchmark::State& state)
{
    sortBy(state, Column::issueDate);
}

void sortByTotal(benchmark::State& state)
{
    sortBy(state, Column::total);
}

void sortByStatus(benchmark::State& state)
{
    sortBy(state, Column::status);
}

void counts(benchmark::State& state)
{
    const DocumentRows& rows = loaded(state.range(0)).rows;
    for (auto _ : state) {
        benchmark::DoNotOptimize(rows.counts());
    }
}

constexpr std::string_view typedWords[] = {"w", "we", "web", "2024-0"};

void keystroke(benchmark::State& state)
{
    const DocumentRows& rows = loaded(state.range(0)).rows;
    std::size_t next = 0;
    for (auto _ : state) {
        const DocumentRows::Filter filter{.text = std::string(typedWords[next++ % std::size(typedWords)])};
        benchmark::DoNotOptimize(rows.arranged(filter, Column::issueDate, Order::descending).data());
    }
}

/// All texts of the rows in one, each text found in it, nothing kept.
void keystrokeFloor(benchmark::State& state)
{
    const DocumentRows& rows = loaded(state.range(0)).rows;
    TextBlock block;
    for (std::uint32_t place = 0; place < rows.size(); ++place) {
        const DocumentRows::Row row = rows.row(place);
        block.add(std::array{row.number, row.title, row.clientName}, {});
    }
    std::size_t next = 0;
    for (auto _ : state) {
        std::size_t count = 0;
        TextScan::run(block, typedWords[next++ % std::size(typedWords)], [&count](std::size_t, std::size_t) {
            ++count;
            return TextScan::Then::nextRecord;
        });
        benchmark::DoNotOptimize(count);
    }
}

/// Until the list has all its rows: before that every figure would be of the first screenful.
void awaitRows(const QWidget& section)
{
    const auto* model = section.findChild<DocumentListModel*>();
    while (!model->rows().isWhole()) {
        QCoreApplication::processEvents();
    }
}

/// A letter in the window's own field, until the list, its footer and its selection have followed.
void keystrokeInWindow(benchmark::State& state)
{
    startApplication();
    DocumentsSection section(loaded(state.range(0)).library.access, DocumentKind::invoice);
    section.resize(2 * screenWidth, screenHeight);
    section.show();
    awaitRows(section);
    auto* search = section.findChild<QLineEdit*>(QStringLiteral("listSearch"));
    const QString typed[] = {QStringLiteral("w"), QStringLiteral("we"), QStringLiteral("web")};
    std::size_t next = 0;
    for (auto _ : state) {
        search->setText(typed[next++ % std::size(typed)]);
    }
}

/// The list as the window shows it, without its surroundings.
struct ShownList
{
    explicit ShownList(std::int64_t documents)
        : model(loaded(documents).library.access, DocumentKind::invoice)
    {
        table.setModel(&model);
        Lists::dress(table, QStringLiteral("list"), QStringLiteral("Invoices"), 1);
        table.resize(screenWidth, screenHeight);
        table.show();
        model.didShow();
        while (!model.rows().isWhole()) {
            QCoreApplication::processEvents();
        }
        picture = QImage(table.viewport()->size(), QImage::Format_RGB32);
    }

    /// Goes so many rows further, round and round, and draws a part of what stands there.
    void advance(int rows, const QRect& part)
    {
        row = (row + rows) % model.rowCount();
        table.verticalScrollBar()->setValue(row * rowHeight);
        table.viewport()->render(&picture, part.topLeft(), part);
    }

    DocumentListModel model;
    QTableView table;
    QImage picture;
    int row = 0;
};

/// A jump to another place and the picture of what stands there.
void screenful(benchmark::State& state)
{
    ShownList list(state.range(0));
    for (auto _ : state) {
        list.advance(7919, list.picture.rect());
    }
}

/// The row that comes in at the bottom when one scrolls.
void scroll(benchmark::State& state)
{
    ShownList list(state.range(0));
    const QRect last(0, list.picture.height() - rowHeight, list.picture.width(), rowHeight);
    for (auto _ : state) {
        list.advance(1, last);
    }
}

/// From one list to the other, until it is drawn.
void listSwitch(benchmark::State& state)
{
    startApplication();
    LibraryAccess& access = loaded(state.range(0)).library.access;
    QStackedWidget lists;
    lists.addWidget(new DocumentsSection(access, DocumentKind::invoice));
    lists.addWidget(new DocumentsSection(access, DocumentKind::quote));
    lists.resize(2 * screenWidth, screenHeight);
    lists.show();
    for (int place = 0; place < lists.count(); ++place) {
        awaitRows(*lists.widget(place));
    }
    for (auto _ : state) {
        lists.setCurrentIndex(1 - lists.currentIndex());
        QCoreApplication::processEvents();
    }
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(memory)->Apply(sizes)->Iterations(1);
BENCHMARK(listLoadFloor)->Apply(sizes);
BENCHMARK(listLoad)->Apply(sizes);
BENCHMARK(sortByNumber)->Apply(sizes);
BENCHMARK(sortByClient)->Apply(sizes);
BENCHMARK(sortByDate)->Apply(sizes);
BENCHMARK(sortByTotal)->Apply(sizes);
BENCHMARK(sortByStatus)->Apply(sizes);
BENCHMARK(counts)->Apply(sizes);
BENCHMARK(keystrokeFloor)->Apply(sizes);
BENCHMARK(keystroke)->Apply(sizes);
BENCHMARK(keystrokeInWindow)->Apply(sizes);
BENCHMARK(scroll)->Apply(sizes);
BENCHMARK(screenful)->Apply(sizes);
BENCHMARK(listSwitch)->Apply(sizes);

} // namespace

} // namespace Quillary
