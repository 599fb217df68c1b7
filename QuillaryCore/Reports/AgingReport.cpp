#include "QuillaryCore/Reports/AgingReport.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Reports/ClientRows.h"
#include "QuillaryCore/Reports/ReportData.h"

#include <algorithm>
#include <tuple>

namespace Quillary {

namespace {

using Bucket = AgingReport::Bucket;
using Row = AgingReport::Row;

std::int64_t sum(const AgingReport::Amounts& amounts)
{
    std::int64_t total = 0;
    for (const std::int64_t amount : amounts) {
        total = checkedAdd(total, amount);
    }
    return total;
}

void add(AgingReport::Amounts& sums, const AgingReport::Amounts& amounts)
{
    for (std::size_t index = 0; index < sums.size(); ++index) {
        sums.at(index) = checkedAdd(sums.at(index), amounts.at(index));
    }
}

void merge(Row& row, const Row& other)
{
    add(row.amounts, other.amounts);
    row.invoices += other.invoices;
}

/// How many days ago something fell due, with the day of today worked out once.
class DueDays
{
public:
    DueDays(Instant today, const Calendar& calendar)
        : m_calendar(calendar)
        , m_today(calendar.date(today))
    {
    }

    [[nodiscard]] int overdue(std::optional<Instant> dueDate) const
    {
        if (!dueDate) {
            return 0;
        }
        const std::chrono::days late = m_today - std::chrono::sys_days(m_calendar.date(*dueDate));
        return std::max(0, static_cast<int>(late.count()));
    }

private:
    const Calendar& m_calendar;
    std::chrono::sys_days m_today;
};

void sortLargestFirst(std::vector<Row>& rows)
{
    std::vector<std::pair<std::int64_t, Row>> withTotals;
    withTotals.reserve(rows.size());
    for (Row& row : rows) {
        const std::int64_t total = row.total();
        withTotals.emplace_back(total, std::move(row));
    }
    std::ranges::stable_sort(withTotals, [](const auto& left, const auto& right) {
        return std::tie(right.first, left.second.client) < std::tie(left.first, right.second.client);
    });
    std::ranges::transform(withTotals, rows.begin(), [](auto& one) { return std::move(one.second); });
}

} // namespace

Bucket AgingReport::bucket(int daysOverdue)
{
    if (daysOverdue < 1) {
        return Bucket::notDueYet;
    }
    if (daysOverdue <= 30) {
        return Bucket::upTo30Days;
    }
    if (daysOverdue <= 60) {
        return Bucket::upTo60Days;
    }
    return daysOverdue <= 90 ? Bucket::upTo90Days : Bucket::over90Days;
}

std::string_view AgingReport::title(Bucket bucket)
{
    switch (bucket) {
    case Bucket::notDueYet:
        return "Not due yet";
    case Bucket::upTo30Days:
        return "1–30 days";
    case Bucket::upTo60Days:
        return "31–60 days";
    case Bucket::upTo90Days:
        return "61–90 days";
    case Bucket::over90Days:
        return "Over 90 days";
    }
    return {};
}

std::int64_t AgingReport::Row::total() const
{
    return sum(amounts);
}

AgingReport::Amounts AgingReport::totals() const
{
    Amounts sums{};
    for (const Row& row : rows) {
        add(sums, row.amounts);
    }
    return sums;
}

std::int64_t AgingReport::total() const
{
    return sum(totals());
}

AgingReport AgingReport::make(Context& context, Instant today, const Calendar& calendar, std::string_view currencyCode)
{
    AgingReport report{std::string(currencyCode), {}};
    const bool isRead = ReportData::readAtOnce(context, [&] {
        const DueDays days(today, calendar);
        ClientRows<Row> rows;
        ReportData::forEachOpenInvoice(context, currencyCode, [&](const ReportData::OpenInvoice& invoice) {
            Row& row = rows.of(invoice.client);
            std::int64_t& amount = row.amounts.at(static_cast<std::size_t>(bucket(days.overdue(invoice.dueDate))));
            amount = checkedAdd(amount, invoice.balance);
            row.invoices += 1;
        });
        report.rows = rows.named(context, merge);
    });
    if (isRead) {
        sortLargestFirst(report.rows);
    }
    return report;
}

} // namespace Quillary
