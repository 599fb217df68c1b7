#include "QuillaryCore/Foundation/Instant.h"

#include "QuillaryCore/Foundation/Text.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

using std::chrono::day;
using std::chrono::month;
using std::chrono::year;

TEST(InstantTest, writesAndReadsEveryDay)
{
    const std::pair<CalendarDate, std::string_view> cases[] = {
        {year(2025) / 3 / 7, "2025-03-07"},
        {year(2024) / 2 / 29, "2024-02-29"},
        {year(2000) / 2 / 29, "2000-02-29"}, // divisible by 400
        {year(0) / 1 / 1, "0000-01-01"},
        {year(9999) / 12 / 31, "9999-12-31"},
    };
    for (const auto& [date, text] : cases) {
        EXPECT_EQ(isoText(date), text);
        EXPECT_EQ(parseISODate(text), date) << text;
    }
}

TEST(InstantTest, refusesEverythingElse)
{
    // Two digits each; no leap years; a day, not a time; what the C library's number reader would accept.
    for (const std::string_view text :
         split("|2025-3-7|2025-02-29|1900-02-29|2025-00-10|2025-13-10|2025-01-00|2025-01-32| 2025-01-01|2025-01-01 |"
               "2025-01-01T00:00:00Z|2025/01/01|+025-01-01|20 5-01-01|2025-01-+1|٢٠٢٥-٠١-٠١",
               '|')) {
        EXPECT_EQ(parseISODate(text), std::nullopt) << text;
    }
}

} // namespace

} // namespace Quillary
