#include "QuillaryCore/Reports/ReportChart.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Reports/ClientReport.h"
#include "QuillaryCore/Reports/InvoiceList.h"
#include "QuillaryCore/Reports/ReportData.h"
#include "QuillaryCore/Reports/ReportSpans.h"
#include "QuillaryCore/Reports/TaxReport.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <utility>

namespace Quillary {

namespace {

using Kind = ReportChart::Place::Kind;
using Meaning = ReportChart::Meaning;

constexpr std::string_view otherClients = "Others";

Kind kindOf(ReportSpans::Length length)
{
    switch (length) {
    case ReportSpans::Length::month:
        return Kind::month;
    case ReportSpans::Length::quarter:
        return Kind::quarter;
    case ReportSpans::Length::year:
        return Kind::year;
    }
    return Kind::month;
}

/// The first and the last instant of what is counted.
class Extent
{
public:
    void include(std::optional<Instant> instant)
    {
        if (instant) {
            m_range = m_range ? std::pair(std::min(m_range->first, *instant), std::max(m_range->second, *instant))
                              : std::pair(*instant, *instant);
        }
    }

    /// A period that is open at an end begins, or ends, with what there is.
    [[nodiscard]] ReportPeriod closed(ReportPeriod period, const Calendar& calendar) const
    {
        constexpr ReportPeriod all = ReportPeriod::all();
        if (m_range && period.first == all.first) {
            period.first = std::max(period.first, calendar.date(m_range->first));
        }
        if (m_range && period.last == all.last) {
            period.last = std::min(period.last, calendar.date(m_range->second));
        }
        return period;
    }

private:
    std::optional<std::pair<Instant, Instant>> m_range;
};

/// No value: there is nothing to see.
std::optional<ReportChart> unlessEmpty(ReportChart chart)
{
    const bool hasFigures = std::ranges::any_of(chart.series, [](const ReportChart::Series& series) {
        return std::ranges::any_of(series.amounts, [](std::int64_t amount) { return amount != 0; });
    });
    return hasFigures && chart.places.size() > 1 ? std::optional(std::move(chart)) : std::nullopt;
}

ReportChart emptyChart(std::initializer_list<Meaning> meanings, std::size_t places)
{
    ReportChart chart;
    chart.places.resize(places);
    for (const Meaning meaning : meanings) {
        chart.series.push_back({meaning, std::vector<std::int64_t>(places)});
    }
    return chart;
}

ReportChart over(const ReportSpans& spans, std::initializer_list<Meaning> meanings)
{
    ReportChart chart = emptyChart(meanings, spans.count());
    for (std::size_t span = 0; span < spans.count(); ++span) {
        chart.places[span] = {.kind = kindOf(spans.length()), .day = spans.firstDays()[span], .text = {}};
    }
    return chart;
}

/// Adds an amount for each series of a place.
void add(ReportChart& chart, std::size_t place, std::initializer_list<std::int64_t> amounts)
{
    std::size_t series = 0;
    for (const std::int64_t amount : amounts) {
        std::int64_t& sum = chart.series[series].amounts[place];
        sum = checkedAdd(sum, amount);
        series += 1;
    }
}

std::optional<ReportChart> byRate(const TaxReport& report)
{
    ReportChart chart = emptyChart({Meaning::net, Meaning::tax}, report.rows.size());
    chart.isStacked = true;
    for (std::size_t row = 0; row < report.rows.size(); ++row) {
        const TaxReport::Row& rate = report.rows[row];
        chart.places[row] = {.kind = rate.basisPoints ? Kind::rate : Kind::words,
                             .basisPoints = rate.basisPoints.value_or(0),
                             .text = rate.basisPoints ? std::string() : "No tax"};
        add(chart, row, {rate.net, rate.tax});
    }
    return unlessEmpty(std::move(chart));
}

/// Payments may lie before the last one, by whose date a document is listed.
void includePayments(Context& context, Extent& extent)
{
    context.query("SELECT min(date), max(date) FROM Payment", [&](const Statement& row) {
        extent.include(row.instant(0));
        extent.include(row.instant(1));
    });
}

void addEachSpan(Context& context, const TaxReport& report, const ReportSpans& spans, ReportChart& chart)
{
    for (std::size_t span = 0; span < spans.count(); ++span) {
        const TaxReport::Row sum =
            TaxReport::make(context, spans.range(span), report.basis, report.currencyCode).total();
        add(chart, span, {sum.net, sum.tax});
    }
}

} // namespace

std::optional<ReportChart>
ReportChart::of(Context& context, const TaxReport& report, const ReportPeriod& period, const Calendar& calendar)
{
    if (report.entries.empty()) {
        return std::nullopt;
    }
    const bool isByPayment = report.basis == ReportBasis::paid;
    Extent extent;
    for (const TaxReport::Entry& entry : report.entries) {
        extent.include(entry.date);
    }
    if (isByPayment) {
        includePayments(context, extent);
    }
    const auto spans = ReportSpans::of(extent.closed(period, calendar), calendar);
    if (!spans) {
        return byRate(report);
    }
    ReportChart chart = over(*spans, {Meaning::net, Meaning::tax});
    chart.isStacked = true;
    if (isByPayment) {
        addEachSpan(context, report, *spans, chart);
        return unlessEmpty(std::move(chart));
    }
    for (const TaxReport::Entry& entry : report.entries) {
        if (const auto span = entry.date ? spans->find(*entry.date) : std::nullopt) {
            add(chart, *span, {entry.net, entry.tax});
        }
    }
    return unlessEmpty(std::move(chart));
}

std::optional<ReportChart> ReportChart::of(const AgingReport& report)
{
    const AgingReport::Amounts totals = report.totals();
    ReportChart chart = emptyChart({Meaning::notDue, Meaning::overdue}, totals.size());
    chart.isStacked = true;
    for (const AgingReport::Bucket bucket : AgingReport::allBuckets) {
        const auto place = static_cast<std::size_t>(bucket);
        chart.places[place].text = AgingReport::title(bucket);
        const bool isLate = bucket != AgingReport::Bucket::notDueYet;
        add(chart, place, {isLate ? 0 : totals.at(place), isLate ? totals.at(place) : 0});
    }
    return unlessEmpty(std::move(chart));
}

std::optional<ReportChart> ReportChart::of(const ClientReport& report)
{
    // A single client too many has its own bar: "Others" would be no shorter.
    const bool hasOthers = report.rows.size() > mostClients + 1;
    const std::size_t shown = hasOthers ? mostClients : report.rows.size();
    ReportChart chart = emptyChart({Meaning::gross, Meaning::paid}, shown + (hasOthers ? 1 : 0));
    for (std::size_t row = 0; row < report.rows.size(); ++row) {
        const ClientReport::Row& client = report.rows[row];
        const std::size_t place = std::min(row, shown);
        chart.places[place] = place == shown
                                  ? Place{.kind = Kind::words, .text = std::string(otherClients)}
                                  : Place{.kind = client.id ? Kind::name : Kind::words, .text = client.client};
        add(chart, place, {client.gross, client.paid});
    }
    return unlessEmpty(std::move(chart));
}

std::optional<ReportChart>
ReportChart::of(const InvoiceList& list, const ReportPeriod& period, const Calendar& calendar)
{
    Extent extent;
    for (const InvoiceList::Row& row : list.rows) {
        extent.include(row.date);
    }
    const auto spans = ReportSpans::of(extent.closed(period, calendar), calendar);
    if (!spans || list.rows.empty()) {
        return std::nullopt;
    }
    ReportChart chart = over(*spans, {Meaning::gross, Meaning::open});
    for (const InvoiceList::Row& row : list.rows) {
        if (const auto span = row.date ? spans->find(*row.date) : std::nullopt) {
            add(chart, *span, {row.gross, row.open});
        }
    }
    return unlessEmpty(std::move(chart));
}

std::string_view title(ReportChart::Meaning meaning)
{
    switch (meaning) {
    case Meaning::net:
        return "Net";
    case Meaning::tax:
        return "Tax";
    case Meaning::gross:
        return "Gross";
    case Meaning::paid:
        return "Paid";
    case Meaning::open:
        return "Open now";
    case Meaning::notDue:
        return "Not due yet";
    case Meaning::overdue:
        return "Overdue";
    }
    return {};
}

} // namespace Quillary
