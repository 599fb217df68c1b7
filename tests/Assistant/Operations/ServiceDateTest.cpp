#include "QuillaryCore/Assistant/Operations/ServiceDate.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace Quillary {
namespace {

std::string text(const std::optional<ServiceDate>& date)
{
    if (!date) {
        return "none";
    }
    return isoText(date->start) + (date->end ? ".." + isoText(*date->end) : "");
}

TEST(ServiceDateTest, readsEveryForm)
{
    using namespace std::chrono;
    const CalendarDate today = 2024y / March / 1; // a Friday after a leap day
    const CalendarDate invoiceDate = 2024y / April / 2;
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"2024-02-29", "2024-02-29"},
        {" 2024-02-29 ", "2024-02-29"},
        {"2024-02-01..2024-02-29", "2024-02-01..2024-02-29"},
        {"2024-02-01..2024-02-01", "2024-02-01"}, // a period of one day is that day
        {"today", "2024-03-01"},
        {" Today ", "2024-03-01"}, // only the small letters were known
        {"yesterday", "2024-02-29"},
        {"invoice_date", "2024-04-02"},
        {"this_week", "2024-02-26..2024-03-03"}, // Monday to Sunday
        {"last_week", "2024-02-19..2024-02-25"},
        {"this_month", "2024-03-01..2024-03-31"},
        {"last_month", "2024-02-01..2024-02-29"},
        {"2023-02-29", "none"},
        {"2024-02-29..2024-02-01", "none"}, // ends before it begins
        {"2024-02-01..", "none"},
        {"0024-02-01", "none"}, // a typing slip, not a year of ours
        {"tomorrow", "none"},
        {"", "none"},
    };
    for (const auto& [form, expected] : cases) {
        EXPECT_EQ(text(ServiceDate::parse(form, today, invoiceDate)), expected) << form;
    }
}

TEST(ServiceDateTest, startsTheYearWithTheMonthBefore)
{
    using namespace std::chrono;
    const CalendarDate newYear = 2026y / January / 1;
    EXPECT_EQ(text(ServiceDate::parse("last_month", newYear, newYear)), "2025-12-01..2025-12-31");
    EXPECT_EQ(text(ServiceDate::parse("this_week", newYear, newYear)), "2025-12-29..2026-01-04");
}

} // namespace
} // namespace Quillary
