#include "Quillary/Commands/FinishedReport.h"

#include "Quillary/AppEnvironment.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/BusinessDefaults.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/TaxLabel.h"
#include "QuillaryCore/Money/Currencies.h"
#include "QuillaryCore/Reports/AgingReport.h"
#include "QuillaryCore/Reports/ClientReport.h"
#include "QuillaryCore/Reports/InvoiceList.h"
#include "QuillaryCore/Reports/ReportData.h"
#include "QuillaryCore/Reports/ReportPeriod.h"
#include "QuillaryCore/Reports/TaxReport.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"

#include <fmt/format.h>

#include <optional>
#include <string_view>

namespace Quillary {

namespace {

namespace fs = std::filesystem;
using Kind = ReportRequest::Kind;

CalendarDate typedDate(const std::string& text, std::string_view option)
{
    if (const std::optional<CalendarDate> date = parseISODate(text)) {
        return *date;
    }
    throw UserError(fmt::format("{} must be a day written as YYYY-MM-DD, not “{}”.", option, text));
}

ReportPeriod typedPeriod(const ReportRequest& request, CalendarDate today)
{
    const bool hasDays = !request.from.empty() || !request.to.empty();
    if (hasDays) {
        constexpr ReportPeriod all = ReportPeriod::all();
        const ReportPeriod period{request.from.empty() ? all.first : typedDate(request.from, "--from"),
                                  request.to.empty() ? all.last : typedDate(request.to, "--to")};
        if (period.first > period.last) {
            throw UserError(fmt::format("--from {} is after --to {}.", request.from, request.to));
        }
        return period;
    }
    const std::string words = request.period.empty() ? "this-year" : request.period;
    if (const std::optional<ReportPeriod> period = ReportPeriod::parse(words, today)) {
        return *period;
    }
    throw UserError(fmt::format("There is no period “{}”. Write for example this-quarter, last-month, 2026, 2026-Q3, "
                                "2026-07, last-12-months, year-to-date or all.",
                                words));
}

/// "1 Jul 2026 – 30 Sep 2026"
std::string periodText(const ReportPeriod& period, const Locale& locale)
{
    constexpr ReportPeriod all = ReportPeriod::all();
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

std::string currencyCode(const ReportRequest& request, const Business* business)
{
    const std::string code =
        request.currency.empty() && business != nullptr ? business->currencyCode : upperCasedASCII(request.currency);
    if (!request.currency.empty() && !Currencies::isKnown(code)) {
        throw UserError(fmt::format("--currency must be an ISO currency code such as EUR, not {}.", request.currency));
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
    ReportMaker(Context& context, const ReportRequest& request, const AppEnvironment& environment)
        : m_context(context)
        , m_request(request)
        , m_calendar(environment.calendar())
        , m_locale(environment.locale())
        , m_now(environment.clock().now())
        , m_business(business(context))
        , m_currency(currencyCode(request, m_business))
        , m_taxLabel(m_business != nullptr ? taxLabelText(*m_business) : std::string(title(TaxLabel::tax)))
    {
    }

    [[nodiscard]] FinishedReport make()
    {
        FinishedReport report = m_request.kind == Kind::aging ? aging() : ofPeriod(m_request.kind);
        report.currencyCode = m_currency;
        std::erase(report.otherCurrencies, m_currency);
        return report;
    }

private:
    [[nodiscard]] FinishedReport aging()
    {
        const AgingReport report = AgingReport::make(m_context, m_now, m_calendar, m_currency);
        return {.title = fmt::format("Open invoices on {}, {}", m_locale.formatDate(today()), m_currency),
                .fileName = "Aging Report",
                .table = ReportCSV::aging(report),
                .bars = ReportText::agingBars(report, m_locale),
                .otherCurrencies = ReportData::openCurrencies(m_context)};
    }

    [[nodiscard]] FinishedReport ofPeriod(Kind kind)
    {
        const ReportPeriod period = typedPeriod(m_request, today());
        const DateRange range = period.range(m_calendar);
        FinishedReport report = kind == Kind::clients    ? clients(range)
                                : kind == Kind::invoices ? invoices(range)
                                                         : tax(range, kind);
        report.title += fmt::format(", {}, {}", periodText(period, m_locale), m_currency);
        report.fileName += fmt::format(" {} to {}", isoText(period.first), isoText(period.last));
        report.otherCurrencies = ReportData::currencies(m_context, range);
        return report;
    }

    [[nodiscard]] FinishedReport tax(const DateRange& range, Kind kind)
    {
        const ReportBasis basis = reportBasisFromRaw(m_request.basis).value_or(ReportBasis::invoiced);
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

    [[nodiscard]] FinishedReport clients(const DateRange& range)
    {
        return {.title = "Clients",
                .fileName = "Client Report",
                .table = ReportCSV::clients(ClientReport::make(m_context, range, m_currency))};
    }

    [[nodiscard]] FinishedReport invoices(const DateRange& range)
    {
        const InvoiceList list = InvoiceList::make(m_context, range, m_currency, m_now, m_calendar);
        return {.title = "Invoices and credit notes",
                .fileName = "Invoices",
                .table = ReportCSV::invoices(list, m_taxLabel, m_calendar)};
    }

    [[nodiscard]] CalendarDate today() const { return m_calendar.date(m_now); }

    Context& m_context;
    const ReportRequest& m_request;
    const Calendar& m_calendar;
    const Locale& m_locale;
    Instant m_now;
    const Business* m_business;
    std::string m_currency;
    std::string m_taxLabel;
};

} // namespace

FinishedReport FinishedReport::make(const fs::path& library, const ReportRequest& request, AppEnvironment& environment)
{
    Store store = Store::openReadOnly(Store::Location::directory(library), DataModel::records(), DataModel::history());
    Context context(store, environment.clock(), environment.uuids());
    FinishedReport report;
    const bool isRead =
        ReportData::readAtOnce(context, [&] { report = ReportMaker(context, request, environment).make(); });
    if (const std::optional<StoreError> failure = store.lastFailure()) {
        throw StoreError(*failure); // a report of zeros would look like an answer
    }
    precondition(isRead, "a failed read is remembered");
    return report;
}

} // namespace Quillary
