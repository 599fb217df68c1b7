#include "QuillaryCore/Reports/MonthlyIncome.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Reports/ReportData.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>
#include <optional>

namespace Quillary {

namespace {

/// The first instants of the months after January, and of the next year.
using Borders = std::array<Instant, MonthlyIncome::monthCount>;

Borders monthEnds(std::chrono::year year, const Calendar& calendar)
{
    Borders ends{};
    for (std::size_t month = 0; month < ends.size(); ++month) {
        const auto next = year / std::chrono::January + std::chrono::months(static_cast<int>(month) + 1);
        ends.at(month) = calendar.startOfDay(next / std::chrono::day(1));
    }
    return ends;
}

} // namespace

std::int64_t MonthlyIncome::total() const
{
    std::int64_t sum = 0;
    for (const std::int64_t month : months) {
        sum = checkedAdd(sum, month);
    }
    return sum;
}

MonthlyIncome
MonthlyIncome::make(Context& context, std::chrono::year year, const Calendar& calendar, std::string_view currencyCode)
{
    const Borders ends = monthEnds(year, calendar);
    const Instant start = calendar.startOfDay(year / std::chrono::January / 1);
    MonthlyIncome income{.currencyCode = std::string(currencyCode), .months = {}};
    const auto count = [&](const Statement& row) {
        if (const std::optional<Instant> date = row.instant(0)) {
            const auto month = static_cast<std::size_t>(std::ranges::upper_bound(ends, *date) - ends.begin());
            income.months.at(month) = checkedAdd(income.months.at(month), row.integer(1));
        }
    };
    const bool isRead = ReportData::readAtOnce(context, [&] {
        context.query("SELECT p.date, p.amountMinorUnits FROM Payment p CROSS JOIN Document d ON d.id = p.document "
                      "WHERE p.date >= ?1 AND p.date < ?2 AND d.kindRaw = 0 AND d.currencyCode = ?3",
                      count,
                      start,
                      ends.back(),
                      currencyCode);
        context.query(
            "SELECT paidAt, cachedTotalMinorUnits FROM Document WHERE paidAt >= ?1 AND paidAt < ?2 AND kindRaw = 2 AND "
            "statusRaw = 2 AND currencyCode = ?3",
            count,
            start,
            ends.back(),
            currencyCode);
    });
    if (!isRead) {
        income.months = {};
    }
    return income;
}

} // namespace Quillary
