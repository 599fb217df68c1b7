#include "Quillary/Commands/ImportCommand.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/OpenLibrary.h"
#include "Quillary/ProgressBar.h"
#include "Quillary/TextTable.h"
#include "QuillaryCore/Foundation/Files.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryCore/Tabular/CSV.h"
#include "QuillaryCore/Tabular/ClientImport.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

/// Some millions of clients; keeps a wrong file from filling the memory.
constexpr std::size_t largestFile = 500'000'000;

std::string_view title(char delimiter)
{
    switch (delimiter) {
    case ';':
        return "semicolons";
    case '\t':
        return "tabs";
    case '|':
        return "vertical bars";
    default:
        return "commas";
    }
}

std::string counted(std::size_t count, std::string_view one, std::string_view many)
{
    return fmt::format("{} {}", count, count == 1 ? one : many);
}

void assign(ImportColumns& columns, const std::string& assignment)
{
    const std::size_t sign = assignment.rfind('='); // a heading may hold one, a field doesn't
    if (sign == std::string::npos) {
        throw UserError(
            fmt::format("--map takes a column and a field, such as --map Firma=company, not “{}”.", assignment));
    }
    columns.assign(std::string_view(assignment).substr(0, sign), std::string_view(assignment).substr(sign + 1));
}

/// "Firma → company, Ort → city; ignored: Rabatt."
std::string describe(const ImportColumns& columns)
{
    std::string read;
    std::string ignored;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns.field(i) == ClientField::ignore) {
            ignored += fmt::format("{}{}", ignored.empty() ? "" : ", ", columns.title(i));
        } else {
            read += fmt::format("{}{} → {}", read.empty() ? "" : ", ", columns.title(i), rawValue(columns.field(i)));
        }
    }
    return read + (ignored.empty() ? "" : "; ignored: " + ignored);
}

/// A list in which nothing is a name would come out as empty rows; the user can say what is.
void requireNames(const ImportColumns& columns)
{
    constexpr std::array naming = {
        ClientField::company, ClientField::name, ClientField::firstName, ClientField::lastName, ClientField::email};
    if (std::ranges::all_of(naming, [&](ClientField field) { return columns.columns(field).empty(); })) {
        throw UserError(fmt::format("No column of the file is known to name the clients. Say which one does, such as "
                                    "--map \"{}=name\". What is known: {}.",
                                    columns.title(0),
                                    describe(columns)));
    }
}

/// Which rows are listed.
enum class Listing { all, notable };

bool isNotable(const ClientImport::Row& row)
{
    return row.status != ImportStatus::isNew || !row.read.warnings.empty();
}

std::string remarks(const ClientImport::Row& row)
{
    std::string text = row.match ? sentence(*row.match) : "";
    for (const ImportWarning& warning : row.read.warnings) {
        text += (text.empty() ? "" : " ") + warning.message;
    }
    return text;
}

std::string table(const ClientImport& import, Listing listing)
{
    constexpr std::size_t widestName = 40;
    TextTable table({{.heading = "Row", .alignment = TextTable::Alignment::right},
                     {.heading = "Status"},
                     {.heading = "Number", .widest = widestName / 2},
                     {.heading = "Client", .widest = widestName},
                     {.heading = "City", .widest = widestName / 2},
                     {.heading = "Remarks"}});
    bool hasRows = false;
    for (const ClientImport::Row& row : import.rows()) {
        if (listing == Listing::notable && !isNotable(row)) {
            continue;
        }
        const Client& client = row.read.client;
        table.addRow({std::to_string(row.number),
                      std::string(title(row.status)),
                      client.number,
                      displayName(client),
                      client.city,
                      remarks(row)});
        hasRows = true;
    }
    return hasRows ? table.text() + "\n" : "";
}

std::string summary(const ClientImport& import, std::string_view verb)
{
    const std::size_t duplicates = import.count(ImportStatus::duplicate);
    const std::size_t empty = import.count(ImportStatus::empty);
    std::string text = fmt::format("{} {}", verb, counted(import.count(ImportStatus::isNew), "client", "clients"));
    if (duplicates > 0) {
        text += ", left out " + counted(duplicates, "duplicate", "duplicates");
    }
    if (empty > 0) {
        text += fmt::format("{} {}",
                            duplicates > 0 ? " and" : ", left out",
                            counted(empty, "row without a name", "rows without a name"));
    }
    return text + ".\n";
}

/// Compares with the library as it is saved, beside whoever holds it; with none where there is no library yet.
ClientImport preview(const CSVRows& rows, ImportColumns columns, const fs::path& folder, AppEnvironment& environment)
{
    ProgressBar bar("Reading");
    const auto progress = [&bar](std::size_t done, std::size_t total) {
        bar.show(done, total);
    };
    const Store::Location location = Store::Location::directory(folder);
    if (!fs::exists(location.file())) {
        return {rows, std::move(columns), nullptr, progress};
    }
    Store store = Store::openReadOnly(location, DataModel::records(), DataModel::history());
    Context context(store, environment.clock(), environment.uuids());
    return {rows, std::move(columns), &context, progress};
}

ClientImport imported(const CSVRows& rows, ImportColumns columns, const fs::path& folder, AppEnvironment& environment)
{
    OpenLibrary library(folder, environment);
    ProgressBar bar("Importing");
    // Reading and comparing take about as long as writing: half of the line each.
    ClientImport import(rows, std::move(columns), &library.context(), [&bar](std::size_t done, std::size_t total) {
        bar.show(done, 2 * total);
    });
    import.run(library.context(),
               library.business(),
               environment.calendar(),
               [&bar](std::size_t done, std::size_t total) { bar.show(total + done, 2 * total); });
    library.backUpIfDue(environment);
    return import;
}

} // namespace

ImportCommand::ImportCommand(CLI::App& app)
{
    CLI::App* import = app.add_subcommand("import", "Brings over what another program saved.");
    import->require_subcommand(1);
    m_app = import->add_subcommand("clients", "Imports clients from a CSV file.");
    m_app->add_option("file", m_file, "The CSV file, as a spreadsheet program saves it.")->required();
    m_app->add_flag("--dry-run", m_isDryRun, "Shows what would become of each row, and changes nothing.");
    CLI::Option* map = m_app->add_option_function<std::vector<std::string>>(
        "--map",
        [this](const std::vector<std::string>& values) { m_assignments = values; },
        "Says what a column holds: its heading or number, and a field such as company, email or ignore.");
    map->type_name("COLUMN=FIELD");
    map->allow_extra_args(false); // text in square brackets is a heading and no list of the parser's
    map->expected(1)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

bool ImportCommand::wasGiven() const
{
    return m_app->parsed();
}

int ImportCommand::run(const CommandSetting& setting) const
{
    const CSV csv(readFile(m_file, largestFile));
    ImportColumns columns = ImportColumns::recognised(csv.rows());
    for (const std::string& assignment : m_assignments) {
        assign(columns, assignment);
    }
    requireNames(columns);
    // The library is let go of before anything is printed: whoever reads that may take long over it.
    const ClientImport import = m_isDryRun
                                    ? preview(csv.rows(), std::move(columns), setting.library, setting.environment)
                                    : imported(csv.rows(), std::move(columns), setting.library, setting.environment);
    fmt::print(
        "{} ({} · {}): {}\n\n", m_file, title(csv.delimiter()), rawValue(csv.encoding()), describe(import.columns()));
    fmt::print("{}", table(import, m_isDryRun ? Listing::all : Listing::notable));
    fmt::print("{}", summary(import, m_isDryRun ? "Would import" : "Imported"));
    return 0;
}

} // namespace Quillary
