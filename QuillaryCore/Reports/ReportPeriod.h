#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Reports/DateRange.h"

#include <optional>
#include <string_view>

namespace Quillary {

/// A stretch of whole days, both of which belong to it.
struct ReportPeriod
{
    CalendarDate first;
    CalendarDate last;

    /// The years 1 to 9998.
    [[nodiscard]] static constexpr ReportPeriod all()
    {
        return {std::chrono::year(1) / 1 / 1, std::chrono::year(9998) / 12 / 31};
    }

    /// From the first instant of the first day to that of the day after the last.
    [[nodiscard]] DateRange range(const Calendar& calendar) const;

    /// Reads a period as a person types it; case doesn't count, and blanks and underlines are hyphens:
    /// - "today", "yesterday"; "this-", "last-" or "next-" and "month", "quarter", "half-year" or "year"
    /// - "last-3-months": whole ones, before the one of `today`; also days, quarters, half-years and years
    /// - "month-to-date" (mtd), "quarter-to-date" (qtd), "year-to-date" (ytd): up to `today`
    /// - "2026", "2026-Q3", "Q3-2026", "Q3" (of this year), "2026-H2", "2026-07", "2026-07-15"
    /// - "2026-01..2026-03": from the first day of the one to the last day of the other
    /// - "all"
    ///
    /// No value: any other text, a day that doesn't exist, a range that ends before it begins.
    [[nodiscard]] static std::optional<ReportPeriod> parse(std::string_view text, CalendarDate today);

    friend bool operator==(const ReportPeriod&, const ReportPeriod&) = default;
};

} // namespace Quillary
