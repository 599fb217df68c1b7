#include "QuillaryCore/Reports/ReportPeriod.h"

#include "QuillaryCore/Foundation/Text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

namespace Quillary {
namespace {

using std::chrono::year;

std::string written(std::string_view text, CalendarDate today)
{
    const auto period = ReportPeriod::parse(text, today);
    return period ? isoText(period->first) + " " + isoText(period->last) : "";
}

TEST(ReportPeriodTest, readsWhatAPersonTypes)
{
    const CalendarDate today = year(2026) / 3 / 31; // the longest month before shorter ones
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"today", "2026-03-31 2026-03-31"},
        {"yesterday", "2026-03-30 2026-03-30"},
        {"this-month", "2026-03-01 2026-03-31"},
        {"last-month", "2026-02-01 2026-02-28"},
        {"next-month", "2026-04-01 2026-04-30"},
        {"this-quarter", "2026-01-01 2026-03-31"},
        {"last-quarter", "2025-10-01 2025-12-31"},
        {"Last Quarter", "2025-10-01 2025-12-31"},
        {"next_quarter", "2026-04-01 2026-06-30"},
        {"this-half-year", "2026-01-01 2026-06-30"},
        {"last-half-year", "2025-07-01 2025-12-31"},
        {"this-year", "2026-01-01 2026-12-31"},
        {"last-year", "2025-01-01 2025-12-31"},
        {"last-1-month", "2026-02-01 2026-02-28"},
        {"last-12-months", "2025-03-01 2026-02-28"},
        {"last-2-quarters", "2025-07-01 2025-12-31"},
        {"last-30-days", "2026-03-01 2026-03-30"},
        {"month-to-date", "2026-03-01 2026-03-31"},
        {"qtd", "2026-01-01 2026-03-31"},
        {"ytd", "2026-01-01 2026-03-31"},
        {"2024", "2024-01-01 2024-12-31"},
        {"2026-Q3", "2026-07-01 2026-09-30"},
        {"q4 2025", "2025-10-01 2025-12-31"},
        {"Q1", "2026-01-01 2026-03-31"},
        {"2025-h2", "2025-07-01 2025-12-31"},
        {"2024-02", "2024-02-01 2024-02-29"},
        {"2024-02-29", "2024-02-29 2024-02-29"},
        {"2025-11..2026-Q1", "2025-11-01 2026-03-31"},
        {"2025-12-24..today", "2025-12-24 2026-03-31"},
        {"all", "0001-01-01 9998-12-31"},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(written(text, today), expected) << text;
    }
    // Blanks are hyphens between words, so none stand beside the dots; the calendar begins with the year 1.
    for (const std::string_view text :
         split("| 2025-12-24 .. today |quarter|this-week|last-0-months|last--3-months|last-1001-days|last-3000-years|"
               "last-months|next-3-months|2026-Q5|2026-H3|2026-13|2026-00|2026-7|26|0000|9999|2025-02-29|"
               "2026-03..2026-02|2026..|..|2026..2027..2028|-2026|2026-|q|Q3-26",
               '|')) {
        EXPECT_EQ(written(text, today), "") << text;
    }
    EXPECT_EQ(written("next-month", year(2024) / 1 / 31), "2024-02-01 2024-02-29");
    EXPECT_EQ(written("last-month", year(2026) / 1 / 1), "2025-12-01 2025-12-31");
    EXPECT_EQ(written("last-year", year(1) / 1 / 1), "");
}

TEST(ReportPeriodTest, endsWithTheWholeLastDay)
{
    const Calendar calendar("Europe/Berlin");
    const ReportPeriod march{year(2026) / 3 / 1, year(2026) / 3 / 31}; // the clocks go forward on the 29th
    const DateRange range = march.range(calendar);
    EXPECT_EQ(range.start, std::chrono::sys_days(year(2026) / 2 / 28) + std::chrono::hours(23));
    EXPECT_EQ(range.end, std::chrono::sys_days(year(2026) / 3 / 31) + std::chrono::hours(22));
    EXPECT_FALSE(range.contains(range.end));
    EXPECT_TRUE(range.contains(range.end - std::chrono::milliseconds(1)));
}

} // namespace
} // namespace Quillary
