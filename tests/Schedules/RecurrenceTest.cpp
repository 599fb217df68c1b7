#include "QuillaryCore/Schedules/Recurrence.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <tuple>
#include <vector>

namespace Quillary {
namespace {

using Unit = RecurrenceUnit;

CalendarDate day(std::string_view text)
{
    return parseISODate(text).value();
}

std::string dates(const Recurrence& schedule, std::string_view start, std::int64_t count)
{
    std::string text;
    for (std::int64_t n = 0; n < count; ++n) {
        text += (text.empty() ? "" : " ") + isoText(schedule.date(n, day(start)));
    }
    return text;
}

TEST(RecurrenceTest, findsEveryDateFromTheStart)
{
    const std::tuple<Recurrence, std::string_view, std::string_view> cases[] = {
        {{Unit::month, 1, 31}, "2025-01-31", "2025-01-31 2025-02-28 2025-03-31 2025-04-30"},
        {{Unit::month, 1, 31}, "2024-01-31", "2024-01-31 2024-02-29 2024-03-31 2024-04-30"},
        {{Unit::month, 1, 30}, "2023-12-30", "2023-12-30 2024-01-30 2024-02-29 2024-03-30"}, // over the year's end
        {{Unit::year, 1, 29}, "2024-02-29", "2024-02-29 2025-02-28 2026-02-28 2027-02-28 2028-02-29"},
        {{Unit::year, 1, 29}, "1896-02-29", "1896-02-29 1897-02-28 1898-02-28 1899-02-28 1900-02-28"}, // no leap year
        {{Unit::quarter, 1, 31}, "2025-08-31", "2025-08-31 2025-11-30 2026-02-28 2026-05-31"},
        {{Unit::quarter, 2, 1}, "2025-10-01", "2025-10-01 2026-04-01 2026-10-01"},
        {{Unit::month, 5, 15}, "2025-10-15", "2025-10-15 2026-03-15 2026-08-15"},
        {{Unit::week, 2, 9}, "2025-12-25", "2025-12-25 2026-01-08 2026-01-22"}, // weeks know no day of the month
        {{Unit::week, 1, 1}, "2024-02-26", "2024-02-26 2024-03-04 2024-03-11"},
        {{Unit::month, 1, 1}, "2025-01-15", "2025-01-01 2025-02-01"}, // the day is the anchor's, also at the start
    };
    for (const auto& [schedule, start, expected] : cases) {
        const std::int64_t count = (std::ssize(expected) + 1) / 11;
        EXPECT_EQ(dates(schedule, start, count), expected) << schedule.summary();
    }
}

TEST(RecurrenceTest, goesBackAndKeepsToTheYearsOfTheCalendar)
{
    EXPECT_EQ(isoText(Recurrence{Unit::month, 1, 31}.date(-1, day("2025-03-31"))), "2025-02-28");
    EXPECT_EQ(isoText(Recurrence{Unit::month, 1, 1}.date(-1, day("2025-01-01"))), "2024-12-01");
    EXPECT_EQ(isoText(Recurrence{Unit::week, 2, 1}.date(-1, day("2025-01-01"))), "2024-12-18");
    const Recurrence extremes[] = {{Unit::week, 32'767, 31}, {Unit::year, 32'767, 31}, {Unit::month, 1, 31}};
    for (const Recurrence& schedule : extremes) {
        for (const std::int64_t n :
             {std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()}) {
            EXPECT_EQ(schedule.date(n, day("2025-01-31")), day("2025-01-31")) << schedule.summary();
        }
        EXPECT_EQ(schedule.firstIndexAfter(day("9999-12-31"), day("2025-01-31")), std::nullopt);
    }
}

TEST(RecurrenceTest, findsTheNextDateAsIfAllWereCounted)
{
    const Recurrence schedules[] = {{Unit::week, 1, 1},
                                    {Unit::week, 3, 1},
                                    {Unit::month, 1, 31},
                                    {Unit::month, 1, 1},
                                    {Unit::month, 7, 29},
                                    {Unit::quarter, 1, 30},
                                    {Unit::year, 1, 29},
                                    {Unit::year, 4, 31}};
    for (const Recurrence& schedule : schedules) {
        for (const std::string_view start : {"2024-02-29", "2023-12-31", "2025-01-15"}) {
            const std::chrono::sys_days first = std::chrono::sys_days(day(start)) - std::chrono::days(70);
            std::int64_t expected = 0; // by walking
            for (int offset = 0; offset < 3000; ++offset) {
                const CalendarDate date = first + std::chrono::days(offset);
                while (schedule.date(expected, day(start)) <= date) {
                    ++expected;
                }
                ASSERT_EQ(schedule.firstIndexAfter(date, day(start)), expected)
                    << schedule.summary() << " from " << start << " after " << isoText(date);
            }
        }
    }
}

TEST(RecurrenceTest, keepsTheDayInEveryZone)
{
    // Clocks change in the night of the second date; in Santiago and Beirut midnight itself is skipped.
    const std::tuple<std::string_view, std::string_view, std::string_view> cases[] = {
        {"Europe/Berlin", "2025-03-23", "2025-03-30"},
        {"America/Santiago", "2025-08-31", "2025-09-07"},
        {"Asia/Beirut", "2025-03-23", "2025-03-30"},
        {"Pacific/Auckland", "2025-09-21", "2025-09-28"},
        {"Pacific/Honolulu", "2025-12-27", "2026-01-03"},
        {"Pacific/Apia", "2011-12-23", "2011-12-30"}, // a day that never was
    };
    for (const auto& [zone, start, next] : cases) {
        const Calendar calendar(zone);
        const Instant late = calendar.startOfDay(day(start)) + std::chrono::hours(23);
        EXPECT_EQ(calendar.storedDay(day(next)), (Recurrence{Unit::week, 1, 1}.date(1, late, calendar))) << zone;
    }
}

TEST(RecurrenceTest, speaksOfItself)
{
    EXPECT_EQ((Recurrence{Unit::month, 1, 1}.summary()), "Every month");
    EXPECT_EQ((Recurrence{Unit::week, 2, 1}.summary()), "Every 2 weeks");
    EXPECT_EQ((Recurrence{Unit::quarter, 1, 1}.summary()), "Every quarter");
    EXPECT_EQ((Recurrence{Unit::year, 10, 1}.summary()), "Every 10 years");
    const std::pair<int, std::string_view> ordinals[] = {{1, "1st"},
                                                         {2, "2nd"},
                                                         {3, "3rd"},
                                                         {4, "4th"},
                                                         {10, "10th"},
                                                         {11, "11th"},
                                                         {12, "12th"},
                                                         {13, "13th"},
                                                         {21, "21st"},
                                                         {22, "22nd"},
                                                         {31, "31st"},
                                                         {100, "100th"},
                                                         {101, "101st"},
                                                         {111, "111th"},
                                                         {0, "0th"},
                                                         {-1, "-1st"},
                                                         {112, "112th"},
                                                         {113, "113th"}};
    for (const auto& [number, expected] : ordinals) {
        EXPECT_EQ(Recurrence::ordinal(number), expected);
    }
}

} // namespace
} // namespace Quillary
