#include "QuillaryCore/Reports/FinishedReport.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/BusinessDefaults.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/TaxLabel.h"
#include "QuillaryCore/Reports/ClientReport.h"
#include "QuillaryCore/Reports/InvoiceList.h"
#include "QuillaryCore/Reports/ReportData.h"
#include "QuillaryCore/Reports/TaxReport.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryCore/Store/StoreError.h"

#include <fmt/format.h>

namespace Quillary {

namespace {

using Kind = ReportOrder::Kind;

/// Makes one report from an open library.
class ReportMaker
{
public:
    ReportMaker(Context& context, const ReportOrder& order, const FinishedReport::Setting& setting)
        : m_context(context)
        , m_order(order)
        , m_setting(setting)
    {
        const Business* own = business(context);
        m_taxLabel = own != nullptr ? taxLabelText(*own) : std::string(title(TaxLabel::tax));
    }

    [[nodiscard]] FinishedReport make()
    {
        FinishedReport report = m_order.kind == Kind::aging ? aging() : ofPeriod();
        report.currencyCode = m_order.currencyCode;
        std::erase(report.otherCurrencies, m_order.currencyCode);
        return report;
    }

private:
    [[nodiscard]] FinishedReport aging()
    {
        AgingReport report = AgingReport::make(m_context, m_setting.now, m_setting.calendar, m_order.currencyCode);
        const std::string today = m_setting.locale.formatDate(m_setting.calendar.date(m_setting.now));
        FinishedReport finished{.heading = "Open invoices on " + today,
                                .period = {},
                                .fileName = "Aging Report",
                                .table = ReportCSV::aging(report),
                                .chart = chart(report),
                                .otherCurrencies = ReportData::openCurrencies(m_context)};
        finished.aging = std::move(report);
        return finished;
    }

    [[nodiscard]] FinishedReport ofPeriod()
    {
        const ReportPeriod& period = m_order.period;
        const DateRange range = period.range(m_setting.calendar);
        FinishedReport report = m_order.kind == Kind::clients    ? clients(range)
                                : m_order.kind == Kind::invoices ? invoices(range)
                                                                 : tax(range);
        report.period = periodText(period, m_setting.locale);
        if (period != ReportPeriod::all()) {
            report.fileName += fmt::format(" {} to {}", isoText(period.first), isoText(period.last));
        }
        report.otherCurrencies = ReportData::currencies(m_context, range);
        return report;
    }

    [[nodiscard]] FinishedReport tax(const DateRange& range)
    {
        const TaxReport report = TaxReport::make(m_context, range, m_order.basis, m_order.currencyCode);
        const std::string by = lowerCasedASCII(title(m_order.basis));
        if (m_order.kind == Kind::tax) {
            return {.heading = "Tax report " + by,
                    .period = {},
                    .fileName = "Tax Report",
                    .table = ReportCSV::tax(report, m_taxLabel),
                    .chart = chart(report)};
        }
        return {.heading = "Documents of the tax report " + by,
                .period = {},
                .fileName = "Tax Documents",
                .table = ReportCSV::taxDocuments(report, m_taxLabel, m_setting.calendar),
                .hasTotal = false,
                .chart = chart(report)};
    }

    [[nodiscard]] FinishedReport clients(const DateRange& range)
    {
        const ClientReport report = ClientReport::make(m_context, range, m_order.currencyCode);
        return {.heading = "Clients",
                .period = {},
                .fileName = "Client Report",
                .table = ReportCSV::clients(report),
                .chart = chart(report)};
    }

    [[nodiscard]] FinishedReport invoices(const DateRange& range)
    {
        const InvoiceList list =
            InvoiceList::make(m_context, range, m_order.currencyCode, m_setting.now, m_setting.calendar);
        return {.heading = "Invoices and credit notes",
                .period = {},
                .fileName = "Invoices",
                .table = ReportCSV::invoices(list, m_taxLabel, m_setting.calendar),
                .chart = chart(list)};
    }

    [[nodiscard]] std::optional<ReportChart> chart(const TaxReport& report)
    {
        return m_order.hasChart ? ReportChart::of(m_context, report, m_order.period, m_setting.calendar) : std::nullopt;
    }

    [[nodiscard]] std::optional<ReportChart> chart(const InvoiceList& list) const
    {
        return m_order.hasChart ? ReportChart::of(list, m_order.period, m_setting.calendar) : std::nullopt;
    }

    template <class Report>
    [[nodiscard]] std::optional<ReportChart> chart(const Report& report) const
    {
        return m_order.hasChart ? ReportChart::of(report) : std::nullopt;
    }

    Context& m_context;
    const ReportOrder& m_order;
    const FinishedReport::Setting& m_setting;
    std::string m_taxLabel;
};

} // namespace

std::string FinishedReport::title() const
{
    return period.empty() ? fmt::format("{}, {}", heading, currencyCode)
                          : fmt::format("{}, {}, {}", heading, period, currencyCode);
}

FinishedReport FinishedReport::make(Context& context, const ReportOrder& order, const Setting& setting)
{
    Store& store = context.store();
    store.forgetFailure(); // one of before is no failure of this report
    FinishedReport report;
    const bool isRead = ReportData::readAtOnce(context, [&] { report = ReportMaker(context, order, setting).make(); });
    if (const std::optional<StoreError> failure = store.lastFailure()) {
        throw StoreError(*failure); // a report of zeros would look like an answer
    }
    precondition(isRead, "a failed read is remembered");
    return report;
}

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

} // namespace Quillary
