#include "Quillary/Commands/ReportCommand.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/Commands/ReportText.h"
#include "QuillaryCore/Numbering/UniqueFilePath.h"
#include "QuillaryCore/Tabular/CSVWriter.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <filesystem>
#include <span>
#include <utility>

namespace Quillary {

namespace {

namespace fs = std::filesystem;
using Kind = ReportOrder::Kind;

void print(const FinishedReport& report, const Locale& locale)
{
    const auto lastRow = report.hasTotal ? ReportText::LastRow::isTotal : ReportText::LastRow::isOneOfMany;
    fmt::print("{}\n\n{}", report.title(), ReportText::table(report.table, lastRow, report.currencyCode, locale));
    if (const std::string bars = report.aging ? ReportText::agingBars(*report.aging, locale) : ""; !bars.empty()) {
        fmt::print("\n{}", bars);
    }
}

/// "csv", or the letters after the last dot of the name that was typed.
std::pair<std::string, std::string> nameAndExtension(const fs::path& path)
{
    std::string extension = path.extension().string();
    extension.erase(0, 1);
    const bool isPlain = !extension.empty() && std::ranges::all_of(extension, [](unsigned char character) {
        return std::isalnum(character) != 0;
    });
    return isPlain ? std::pair(path.stem().string(), extension) : std::pair(path.filename().string(), "csv");
}

/// Into a folder under the report's own name, else under the name that was typed; never over a file that is there.
fs::path save(const std::string& csv, const std::string& output, const std::string& fileName)
{
    const fs::path typed(output);
    const bool isFolder = fs::is_directory(typed);
    const auto [name, extension] = isFolder ? std::pair(fileName, std::string("csv")) : nameAndExtension(typed);
    const fs::path folder = isFolder ? typed : (typed.has_parent_path() ? typed.parent_path() : fs::path("."));
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(csv.data());
    return saveUniqueFile(folder, name, extension, std::span(bytes, csv.size()));
}

void tellOtherCurrencies(const FinishedReport& report, std::FILE* stream)
{
    if (!report.otherCurrencies.empty()) {
        fmt::print(stream,
                   "{}Not in this report: amounts in {} (--currency).\n",
                   stream == stdout ? "\n" : "",
                   fmt::join(report.otherCurrencies, ", "));
    }
}

} // namespace

ReportCommand::ReportCommand(CLI::App& app)
    : m_app(app.add_subcommand("report", "Shows a report, or writes it as CSV."))
{
    m_app->require_subcommand(1);
    addReport(Kind::tax, "tax", "Revenue and tax of a period, rate by rate.");
    addReport(Kind::taxDocuments, "tax-documents", "The documents that make up the tax report.");
    addReport(Kind::aging, "aging", "What each client owes today, by how late it is.");
    addReport(Kind::clients, "clients", "What each client was invoiced and paid in a period, and owes now.");
    addReport(Kind::invoices, "invoices", "The invoices and credit notes of a period.");
}

void ReportCommand::addReport(Kind kind, const std::string& name, const std::string& description)
{
    CLI::App* report = m_app->add_subcommand(name, description);
    m_reports.at(static_cast<std::size_t>(kind)) = report;
    if (kind != Kind::aging) {
        CLI::Option* from = report->add_option("--from", m_request.from, "The first day, as YYYY-MM-DD.");
        CLI::Option* to = report->add_option("--to", m_request.to, "The last day, which counts too.");
        report
            ->add_option(
                "--period",
                m_request.period,
                "this-, last- or next- and month, quarter, half-year or year; 2026, 2026-Q3, 2026-H1, 2026-07, "
                "2026-01..2026-05; last-12-months, year-to-date, all. This year by default.")
            ->excludes(from)
            ->excludes(to);
    }
    if (kind == Kind::tax || kind == Kind::taxDocuments) {
        report->add_option("--basis", m_request.basis, "By which dates: invoiced (the default) or paid.")
            ->check(CLI::IsMember({"invoiced", "paid"}));
    }
    report->add_option("--currency", m_request.currency, "The currency of the report; the business's own by default.")
        ->type_name("CODE");
    CLI::Option* output = report
                              ->add_option("-o,--output",
                                           m_output,
                                           "Writes CSV into this file, or into this folder; - is standard output.")
                              ->type_name("FILE");
    report
        ->add_option("--format",
                     m_format,
                     "The CSV: standard (commas and points, the default) or excel, as this machine's spreadsheet "
                     "program takes it.")
        ->check(CLI::IsMember({"standard", "excel"}))
        ->needs(output);
}

bool ReportCommand::wasGiven() const
{
    return m_app->parsed();
}

ReportRequest ReportCommand::request() const
{
    ReportRequest request = m_request;
    const auto parsed = std::ranges::find_if(m_reports, [](const CLI::App* report) { return report->parsed(); });
    request.kind = static_cast<Kind>(parsed - m_reports.begin());
    return request;
}

int ReportCommand::run(const CommandSetting& setting) const
{
    const Locale& locale = setting.environment.locale();
    const ReportRequest request = this->request();
    const FinishedReport report = request.report(setting.library, setting.environment);
    if (m_output.empty()) {
        print(report, locale);
        tellOtherCurrencies(report, stdout);
        return 0;
    }
    const CSVFormat format = m_format == "excel" ? CSVFormat::excel(locale) : CSVFormat::standard();
    const std::string csv = CSVWriter::data(report.table.header, report.table.rows, format);
    if (m_output == "-") {
        fmt::print("{}", csv);
    } else {
        fmt::print("Saved {}\n", save(csv, m_output, report.fileName).string());
    }
    tellOtherCurrencies(report, stderr);
    return 0;
}

} // namespace Quillary
