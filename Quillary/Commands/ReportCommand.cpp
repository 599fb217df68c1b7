#include "Quillary/Commands/ReportCommand.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/Commands/ReportText.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/BusinessDefaults.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/TaxLabel.h"
#include "QuillaryCore/Money/Currencies.h"
#include "QuillaryCore/Numbering/UniqueFilePath.h"
#include "QuillaryCore/Reports/AgingReport.h"
#include "QuillaryCore/Reports/ClientReport.h"
#include "QuillaryCore/Reports/InvoiceList.h"
#include "QuillaryCore/Reports/ReportData.h"
#include "QuillaryCore/Reports/ReportPeriod.h"
#include "QuillaryCore/Reports/TaxReport.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryCore/Tabular/CSVWriter.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

namespace fs = std::filesystem;
using Kind = ReportCommand::Kind;
using Options = ReportCommand::Options;

/// A finished report with the words around it.
struct Finished
{
    std::string title;    ///< "Tax report, EUR, by invoice date"
    std::string fileName; ///< without extension
    ReportTable table;
    ReportText::LastRow lastRow = ReportText::LastRow::isTotal;
    std::string bars = {};
    std::string currencyCode = {};
    std::vector<std::string> otherCurrencies = {}; ///< in which there is something to report too
};

CalendarDate typedDate(const std::string& text, std::string_view option)
{
    if (const std::optional<CalendarDate> date = parseISODate(text)) {
        return *date;
    }
    throw UserError(fmt::format("{} must be a day written as YYYY-MM-DD, not “{}”.", option, text));
}

ReportPeriod typedPeriod(const Options& options, CalendarDate today)
{
    const bool hasDays = !options.from.empty() || !options.to.empty();
    if (hasDays) {
        const ReportPeriod all = *ReportPeriod::parse("all", today);
        const ReportPeriod period{options.from.empty() ? all.first : typedDate(options.from, "--from"),
                                  options.to.empty() ? all.last : typedDate(options.to, "--to")};
        if (period.first > period.last) {
            throw UserError(fmt::format("--from {} is after --to {}.", options.from, options.to));
        }
        return period;
    }
    const std::string words = options.period.empty() ? "this-year" : options.period;
    if (const std::optional<ReportPeriod> period = ReportPeriod::parse(words, today)) {
        return *period;
    }
    throw UserError(fmt::format("There is no period “{}”. Write for example this-quarter, last-month, 2026, 2026-Q3, "
                                "2026-07, last-12-months, year-to-date or all.",
                                words));
}

/// "Q3" for people: "1 Jul 2026 – 30 Sep 2026".
std::string periodText(const ReportPeriod& period, const Locale& locale)
{
    const ReportPeriod all = *ReportPeriod::parse("all", period.first);
    if (period == all) {
        return "all dates";
    }
    if (period.first == all.first) {
        return "until " + locale.formatDate(period.last);
    }
    if (period.last == all.last) {
        return "since " + locale.formatDate(period.first);
    }
    return period.first == period.last
               ? locale.formatDate(period.first)
               : fmt::format("{} – {}", locale.formatDate(period.first), locale.formatDate(period.last));
}

std::string currencyCode(const Options& options, const Business* business)
{
    const std::string code =
        options.currency.empty() && business != nullptr ? business->currencyCode : upperCasedASCII(options.currency);
    if (!options.currency.empty() && !Currencies::isKnown(code)) {
        throw UserError(fmt::format("--currency must be an ISO currency code such as EUR, not {}.", options.currency));
    }
    if (code.empty()) {
        throw UserError("The library has no business whose currency could be meant. Name one with --currency.");
    }
    return code;
}

/// Makes one report from an open library.
class ReportMaker
{
public:
    ReportMaker(Context& context, const Options& options, const AppEnvironment& environment)
        : m_context(context)
        , m_options(options)
        , m_calendar(environment.calendar())
        , m_locale(environment.locale())
        , m_now(environment.clock().now())
        , m_business(business(context))
        , m_currency(currencyCode(options, m_business))
        , m_taxLabel(m_business != nullptr ? taxLabelText(*m_business) : std::string(title(TaxLabel::tax)))
    {
    }

    [[nodiscard]] Finished make(Kind kind)
    {
        Finished report = kind == Kind::aging ? aging() : ofPeriod(kind);
        report.currencyCode = m_currency;
        std::erase(report.otherCurrencies, m_currency);
        return report;
    }

private:
    [[nodiscard]] Finished aging()
    {
        const AgingReport report = AgingReport::make(m_context, m_now, m_calendar, m_currency);
        return {.title = fmt::format("Open invoices on {}, {}", m_locale.formatDate(today()), m_currency),
                .fileName = "Aging Report",
                .table = ReportCSV::aging(report),
                .bars = ReportText::agingBars(report, m_locale),
                .otherCurrencies = ReportData::openCurrencies(m_context)};
    }

    [[nodiscard]] Finished ofPeriod(Kind kind)
    {
        const ReportPeriod period = typedPeriod(m_options, today());
        const DateRange range = period.range(m_calendar);
        Finished report = kind == Kind::clients    ? clients(range)
                          : kind == Kind::invoices ? invoices(range)
                                                   : tax(range, kind);
        report.title += fmt::format(", {}, {}", periodText(period, m_locale), m_currency);
        report.fileName += fmt::format(" {} to {}", isoText(period.first), isoText(period.last));
        report.otherCurrencies = ReportData::currencies(m_context, range);
        return report;
    }

    [[nodiscard]] Finished tax(const DateRange& range, Kind kind)
    {
        const ReportBasis basis = *reportBasisFromRaw(m_options.basis);
        const TaxReport report = TaxReport::make(m_context, range, basis, m_currency);
        const std::string by = lowerCasedASCII(title(basis));
        if (kind == Kind::tax) {
            return {.title = "Tax report " + by, .fileName = "Tax Report", .table = ReportCSV::tax(report, m_taxLabel)};
        }
        return {.title = "Documents of the tax report " + by,
                .fileName = "Tax Documents",
                .table = ReportCSV::taxDocuments(report, m_taxLabel, m_calendar),
                .lastRow = ReportText::LastRow::isOneOfMany};
    }

    [[nodiscard]] Finished clients(const DateRange& range)
    {
        return {.title = "Clients",
                .fileName = "Client Report",
                .table = ReportCSV::clients(ClientReport::make(m_context, range, m_currency))};
    }

    [[nodiscard]] Finished invoices(const DateRange& range)
    {
        const InvoiceList list = InvoiceList::make(m_context, range, m_currency, m_now, m_calendar);
        return {.title = "Invoices and credit notes",
                .fileName = "Invoices",
                .table = ReportCSV::invoices(list, m_taxLabel, m_calendar)};
    }

    [[nodiscard]] CalendarDate today() const { return m_calendar.date(m_now); }

    Context& m_context;
    const Options& m_options;
    const Calendar& m_calendar;
    const Locale& m_locale;
    Instant m_now;
    const Business* m_business;
    std::string m_currency;
    std::string m_taxLabel;
};

/// The library is let go of on return, before anything is printed: whoever reads that may take long over it.
Finished makeReport(const fs::path& library, Kind kind, const Options& options, AppEnvironment& environment)
{
    Store store = Store::openReadOnly(Store::Location::directory(library), DataModel::records(), DataModel::history());
    Context context(store, environment.clock(), environment.uuids());
    Finished report;
    const bool isRead =
        ReportData::readAtOnce(context, [&] { report = ReportMaker(context, options, environment).make(kind); });
    if (store.lastFailure()) {
        throw StoreError(*store.lastFailure()); // a report of zeros would look like an answer
    }
    precondition(isRead, "a failed read is remembered");
    return report;
}

void print(const Finished& report, const Locale& locale)
{
    fmt::print("{}\n\n{}", report.title, ReportText::table(report.table, report.lastRow, report.currencyCode, locale));
    if (!report.bars.empty()) {
        fmt::print("\n{}", report.bars);
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

void tellOtherCurrencies(const Finished& report, std::FILE* stream)
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
        CLI::Option* from = report->add_option("--from", m_options.from, "The first day, as YYYY-MM-DD.");
        CLI::Option* to = report->add_option("--to", m_options.to, "The last day, which counts too.");
        report
            ->add_option(
                "--period",
                m_options.period,
                "this-, last- or next- and month, quarter, half-year or year; 2026, 2026-Q3, 2026-H1, 2026-07, "
                "2026-01..2026-05; last-12-months, year-to-date, all. This year by default.")
            ->excludes(from)
            ->excludes(to);
    }
    if (kind == Kind::tax || kind == Kind::taxDocuments) {
        report->add_option("--basis", m_options.basis, "By which dates: invoiced (the default) or paid.")
            ->check(CLI::IsMember({"invoiced", "paid"}));
    }
    report->add_option("--currency", m_options.currency, "The currency of the report; the business's own by default.")
        ->type_name("CODE");
    CLI::Option* output = report
                              ->add_option("-o,--output",
                                           m_options.output,
                                           "Writes CSV into this file, or into this folder; - is standard output.")
                              ->type_name("FILE");
    report
        ->add_option("--format",
                     m_options.format,
                     "The CSV: standard (commas and points, the default) or excel, as this machine's spreadsheet "
                     "program takes it.")
        ->check(CLI::IsMember({"standard", "excel"}))
        ->needs(output);
}

bool ReportCommand::wasGiven() const
{
    return m_app->parsed();
}

Kind ReportCommand::kind() const
{
    const auto parsed = std::ranges::find_if(m_reports, [](const CLI::App* report) { return report->parsed(); });
    return static_cast<Kind>(parsed - m_reports.begin());
}

int ReportCommand::run(const CommandSetting& setting) const
{
    const Locale& locale = setting.environment.locale();
    const Finished report = makeReport(setting.library, kind(), m_options, setting.environment);
    if (m_options.output.empty()) {
        print(report, locale);
        tellOtherCurrencies(report, stdout);
        return 0;
    }
    const CSVFormat format = m_options.format == "excel" ? CSVFormat::excel(locale) : CSVFormat::standard();
    const std::string csv = CSVWriter::data(report.table.header, report.table.rows, format);
    if (m_options.output == "-") {
        fmt::print("{}", csv);
    } else {
        fmt::print("Saved {}\n", save(csv, m_options.output, report.fileName).string());
    }
    tellOtherCurrencies(report, stderr);
    return 0;
}

} // namespace Quillary
