#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/LogKeeper.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryCore/Tabular/CSV.h"
#include "QuillaryCore/Tabular/CSVWriter.h"
#include "QuillaryCore/Tabular/ClientImport.h"
#include "bench/Support/LibraryGenerator.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <sqlite3.h>
#include <unicode/ucnv.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// What reading and writing CSV cost beside the smallest programs that do the same, and what an import of clients costs
// beside the bare rows.

namespace Quillary {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t fileSize = 32'000'000;

/// A list of clients as a German spreadsheet program writes it: some accents, some quotes, an empty cell here and there.
std::string clientList(std::size_t rows)
{
    std::string text = "Kundennummer;Firma;Vorname;Nachname;E-Mail;Telefon;Straße;PLZ;Ort;Land;USt-IdNr.;Notizen\r\n";
    for (std::size_t i = 0; i < rows; ++i) {
        const bool isFirm = i % 3 != 0;
        text += fmt::format("K-{0:06};{1};{2};{3};kontakt{0}@firma{0}.example;+49 30 {0:07};Hauptstraße {4};{5:05};{6};"
                            "Deutschland;{7};{8}\r\n",
                            i,
                            isFirm ? fmt::format("Müller & Söhne {} GmbH", i) : "",
                            i % 2 == 0 ? "Anna" : "",
                            isFirm ? "Schmidt" : fmt::format("Schmidt-{}", i),
                            i % 200,
                            10'000 + i % 80'000,
                            i % 2 == 0 ? "Köln" : "Berlin",
                            isFirm ? fmt::format("DE{:09}", i) : "",
                            i % 10 == 0 ? "\"ruft \"\"gern\"\" an; vormittags\"" : "");
    }
    return text;
}

const std::string& utf8File()
{
    static const std::string text = [] {
        const std::string sample = clientList(1000);
        return clientList(fileSize / sample.size() * 1000);
    }();
    return text;
}

std::string encoded(const char* encoding)
{
    UErrorCode status = U_ZERO_ERROR;
    std::string result(2 * utf8File().size() + 16, '\0');
    const std::int32_t size = ucnv_convert(encoding,
                                           "UTF-8",
                                           result.data(),
                                           static_cast<std::int32_t>(result.size()),
                                           utf8File().data(),
                                           static_cast<std::int32_t>(utf8File().size()),
                                           &status);
    if (U_FAILURE(status) != 0) {
        std::abort();
    }
    result.resize(static_cast<std::size_t>(size));
    return result;
}

const std::string& windowsFile()
{
    static const std::string bytes = encoded("windows-1252");
    return bytes;
}

const std::string& utf16File()
{
    static const std::string bytes = encoded("UTF-16");
    return bytes;
}

void setBytes(benchmark::State& state, std::size_t size)
{
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
}

/// The floor: semicolons are known, every cell is a view, and doubled quotes stay as they are.
std::vector<std::string_view> bareCells(std::string_view text)
{
    std::vector<std::string_view> cells;
    std::size_t begin = 0;
    bool isQuoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char byte = text[i];
        if (byte == '"') {
            isQuoted = !isQuoted;
        } else if (!isQuoted && (byte == ';' || byte == '\n')) {
            cells.push_back(text.substr(begin, i - begin));
            begin = i + 1;
        }
    }
    return cells;
}

void readUTF8Floor(benchmark::State& state)
{
    for ([[maybe_unused]] const auto iteration : state) {
        const std::string text = utf8File();
        benchmark::DoNotOptimize(isValidUTF8(text));
        benchmark::DoNotOptimize(bareCells(text));
    }
    setBytes(state, utf8File().size());
}

/// The floors of the other encodings let ICU turn the bytes into UTF-8.
void readEncoded(benchmark::State& state, const std::string& file, const char* encoding)
{
    for ([[maybe_unused]] const auto iteration : state) {
        UErrorCode status = U_ZERO_ERROR;
        std::string text(file.size() * 3 / 2, '\0');
        const std::int32_t size = ucnv_convert("UTF-8",
                                               encoding,
                                               text.data(),
                                               static_cast<std::int32_t>(text.size()),
                                               file.data(),
                                               static_cast<std::int32_t>(file.size()),
                                               &status);
        benchmark::DoNotOptimize(bareCells(std::string_view(text).substr(0, static_cast<std::size_t>(size))));
    }
    setBytes(state, file.size());
}

void readWindowsFloor(benchmark::State& state)
{
    readEncoded(state, windowsFile(), "windows-1252");
}

void readUTF16Floor(benchmark::State& state)
{
    readEncoded(state, utf16File(), "UTF-16");
}

void readFile(benchmark::State& state, const std::string& file)
{
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(CSV(std::string(file)).rows().size());
    }
    setBytes(state, file.size());
}

void readUTF8(benchmark::State& state)
{
    readFile(state, utf8File());
}

void readWindows(benchmark::State& state)
{
    readFile(state, windowsFile());
}

void readUTF16(benchmark::State& state)
{
    readFile(state, utf16File());
}

void detect(benchmark::State& state)
{
    const std::string_view text = std::string_view(utf8File()).substr(0, static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(CSV::detectDelimiter(text));
    }
}

/// The process's memory now. Unit: bytes.
std::int64_t residentMemory()
{
    std::ifstream file("/proc/self/statm");
    std::int64_t size = 0;
    std::int64_t resident = 0;
    file >> size >> resident;
    return resident * 4096;
}

/// The rows that are kept, in multiples of the file; what reading took on the way is given back by then.
void keptMemory(benchmark::State& state)
{
    std::string file = utf8File();
    const auto size = static_cast<double>(file.size());
    for ([[maybe_unused]] const auto iteration : state) {
        const std::int64_t before = residentMemory();
        const CSV csv(std::move(file));
        state.counters["timesTheFile"] = 1 + static_cast<double>(residentMemory() - before) / size;
        benchmark::DoNotOptimize(csv.rows().size());
    }
}

struct Table
{
    std::vector<std::string> header = {"Number", "Client", "Date", "Net", "Rate", "Gross", "Days"};
    std::vector<std::vector<CSVValue>> rows;
};

const Table& table()
{
    static const Table made = [] {
        Table result;
        const std::chrono::sys_days first(std::chrono::year(2021) / 1 / 1);
        for (int i = 0; i < 200'000; ++i) {
            result.rows.push_back({CSVValue::text(fmt::format("INV-2025-{:06}", i)),
                                   CSVValue::text(i % 20 == 0 ? "Müller; Söhne \"GmbH\"" : "Schmidt Maschinenbau AG"),
                                   CSVValue::date(CalendarDate(first + std::chrono::days(i % 1800))),
                                   CSVValue::money(Money(i * 37, "EUR")),
                                   CSVValue::percent(i % 2 == 0 ? 1900 : 700),
                                   CSVValue::money(Money(i * 44, "EUR")),
                                   CSVValue::number(i % 90)});
        }
        return result;
    }();
    return made;
}

/// The floor's cells are of fixed types: nothing is asked of a value.
struct BareRow
{
    std::string number;
    std::string client;
    int year;
    int month;
    int day;
    std::int64_t net;
    std::int64_t rate;
    std::int64_t gross;
    std::int64_t days;
};

void appendText(std::string& out, std::string_view text)
{
    if (text.find_first_of(";\"\r\n") == std::string_view::npos) {
        out += text;
        return;
    }
    out += '"';
    for (const char byte : text) {
        out.append(byte == '"' ? 2 : 1, byte);
    }
    out += '"';
}

void appendNumber(std::string& out, std::int64_t number)
{
    const fmt::format_int digits(number);
    out.append(digits.data(), digits.size());
}

void appendTwo(std::string& out, std::int64_t number)
{
    out += static_cast<char>('0' + number / 10);
    out += static_cast<char>('0' + number % 10);
}

void appendAmount(std::string& out, std::int64_t amount)
{
    appendNumber(out, amount / 100);
    out += ',';
    appendTwo(out, amount % 100);
}

std::string bareTable(const std::vector<BareRow>& rows)
{
    std::string out;
    for (const BareRow& row : rows) {
        appendText(out, row.number);
        out += ';';
        appendText(out, row.client);
        out += ';';
        appendNumber(out, row.year);
        out += '-';
        appendTwo(out, row.month);
        out += '-';
        appendTwo(out, row.day);
        out += ';';
        appendAmount(out, row.net);
        out += ';';
        appendNumber(out, row.rate);
        out += ';';
        appendAmount(out, row.gross);
        out += ';';
        appendNumber(out, row.days);
        out += "\r\n";
    }
    return out;
}

void writeFloor(benchmark::State& state)
{
    std::vector<BareRow> rows;
    for (int i = 0; i < 200'000; ++i) {
        rows.push_back({fmt::format("INV-2025-{:06}", i),
                        i % 20 == 0 ? "Müller; Söhne \"GmbH\"" : "Schmidt Maschinenbau AG",
                        2021 + i % 5,
                        1 + i % 12,
                        1 + i % 28,
                        i * 37,
                        i % 2 == 0 ? 19 : 7,
                        i * 44,
                        i % 90});
    }
    std::size_t size = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        size = bareTable(rows).size();
        benchmark::DoNotOptimize(size);
    }
    setBytes(state, size);
}

void write(benchmark::State& state)
{
    const CSVFormat format = CSVFormat::excel(Locale("de_DE"));
    std::size_t size = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        size = CSVWriter::data(table().header, table().rows, format).size();
        benchmark::DoNotOptimize(size);
    }
    setBytes(state, size);
}

/// A library on disk with as many clients of its own as the list has, none of them on the list.
class Library
{
public:
    explicit Library(std::int64_t clients)
        : m_folder(fs::temp_directory_path() / fmt::format("quillary-bench-import-{}", clients))
    {
        fs::remove_all(m_folder);
        m_store = std::make_unique<Store>(
            Store::Location::directory(m_folder), DataModel::records(), DataModel::history(), m_clock, m_uuids);
        context = std::make_unique<Context>(*m_store, m_clock, m_uuids);
        business.clientNumberFormat = "C-{#####}";
        for (std::int64_t i = 0; i < clients; ++i) {
            auto& client = context->insert<Client>();
            client.number = fmt::format("C-{:05}", i);
            client.name = fmt::format("Known Client {}", i);
            client.email = fmt::format("known{}@client.example", i);
        }
        context->save();
        context->forgetUnchanged();
        m_log = std::make_unique<LogKeeper>(*m_store); // now, so that it doesn't work on what was saved before
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library()
    {
        context.reset();
        m_log.reset();
        m_store.reset();
        fs::remove_all(m_folder);
    }

    sqlite3* database() { return m_store->connection().handle(); }

private:
    fs::path m_folder;
    FixedClock m_clock{LibraryGenerator::today};
    CountingUUIDSource m_uuids{1};
    std::unique_ptr<Store> m_store;
    std::unique_ptr<LogKeeper> m_log;

public:
    std::unique_ptr<Context> context;
    Business business;
    const Calendar calendar{"Europe/Berlin"};
};

sqlite3_stmt* prepared(sqlite3* database, const char* sql)
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database, sql, -1, &statement, nullptr) != SQLITE_OK) {
        fmt::print(stderr, "{}\n", sqlite3_errmsg(database));
        std::abort();
    }
    return statement;
}

void bindText(sqlite3_stmt* statement, int place, std::string_view text)
{
    sqlite3_bind_text(statement, place, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
}

/// The floor: cells into rows of the tables by bare statements, nothing compared and nothing read into values.
void importFloor(benchmark::State& state)
{
    const std::string file = clientList(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] const auto iteration : state) {
        state.PauseTiming();
        Library library(state.range(0));
        sqlite3_stmt* client =
            prepared(library.database(),
                     "INSERT INTO Client (uuid, createdAt, kindRaw, number, name, firstName, lastName, email, phone, "
                     "website, notes, addressLine, postalCode, city, state, countryCode, currencyCode, languageCode, "
                     "paymentTermsDays, vatID, taxID, hourlyRateMinorUnits) VALUES (randomblob(16), 0, 0, ?, ?, ?, ?, "
                     "?, ?, '', ?, ?, ?, ?, '', 'DE', '', '', 0, ?, '', 0)");
        sqlite3_stmt* person = prepared(library.database(),
                                        "INSERT INTO ContactPerson (uuid, name, client) VALUES (randomblob(16), ?, ?)");
        state.ResumeTiming();
        sqlite3_exec(library.database(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        const CSVRows rows = CSV::parse(file, ';');
        constexpr std::size_t columns[] = {0, 1, 2, 3, 4, 5, 11, 6, 7, 8, 10};
        for (const CSVRow row : rows) {
            int place = 1;
            for (const std::size_t column : columns) {
                bindText(client, place++, row.cell(column));
            }
            sqlite3_step(client);
            sqlite3_reset(client);
            if (!row.cell(1).empty()) {
                bindText(person, 1, row.cell(3));
                sqlite3_bind_int64(person, 2, sqlite3_last_insert_rowid(library.database()));
                sqlite3_step(person);
                sqlite3_reset(person);
            }
        }
        sqlite3_exec(library.database(), "COMMIT", nullptr, nullptr, nullptr);
        state.PauseTiming();
        sqlite3_finalize(client);
        sqlite3_finalize(person);
        state.ResumeTiming();
    }
}

void importClients(benchmark::State& state)
{
    const std::string file = clientList(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] const auto iteration : state) {
        state.PauseTiming();
        auto library = std::make_unique<Library>(state.range(0));
        state.ResumeTiming();
        const CSV csv{std::string(file)};
        ClientImport import(csv.rows(), ImportColumns::recognised(csv.rows()), library->context.get());
        import.run(*library->context, library->business, library->calendar);
        state.PauseTiming();
        if (import.count(ImportStatus::isNew) != static_cast<std::size_t>(state.range(0))) {
            state.SkipWithError("not all were imported");
        }
        library.reset();
        state.ResumeTiming();
    }
}

void importPreview(benchmark::State& state)
{
    const std::string file = clientList(static_cast<std::size_t>(state.range(0)));
    Library library(state.range(0));
    for ([[maybe_unused]] const auto iteration : state) {
        const CSV csv{std::string(file)};
        const ClientImport import(csv.rows(), ImportColumns::recognised(csv.rows()), library.context.get());
        benchmark::DoNotOptimize(import.rows().size());
    }
}

BENCHMARK(keptMemory)->Iterations(1);
BENCHMARK(readUTF8Floor)->Unit(benchmark::kMillisecond);
BENCHMARK(readUTF8)->Unit(benchmark::kMillisecond);
BENCHMARK(readWindowsFloor)->Unit(benchmark::kMillisecond);
BENCHMARK(readWindows)->Unit(benchmark::kMillisecond);
BENCHMARK(readUTF16Floor)->Unit(benchmark::kMillisecond);
BENCHMARK(readUTF16)->Unit(benchmark::kMillisecond);
BENCHMARK(detect)->Arg(10'000)->Arg(1'000'000)->Arg(30'000'000);
BENCHMARK(writeFloor)->Unit(benchmark::kMillisecond);
BENCHMARK(write)->Unit(benchmark::kMillisecond);
BENCHMARK(importFloor)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(importClients)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(importPreview)->Arg(10'000)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace Quillary
