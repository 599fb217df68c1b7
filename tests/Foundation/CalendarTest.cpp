#include "QuillaryCore/Foundation/Calendar.h"

#include "QuillaryCore/Foundation/Text.h"

#include <gtest/gtest.h>
#include <unicode/gregocal.h>
#include <unicode/timezone.h>

#include <chrono>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

namespace {

using namespace std::chrono_literals;
using std::chrono::days;
using std::chrono::year;

CalendarDate date(std::string_view text)
{
    return parseISODate(text).value();
}

/// A moment in UTC.
Instant at(std::string_view day, std::chrono::minutes time = 0min)
{
    return std::chrono::sys_days(date(day)) + time;
}

TEST(CalendarTest, startsDaysAtTheFirstInstantThatExists)
{
    struct Case
    {
        std::string_view zone;
        std::string_view day;
        Instant expected;
    };
    const Case cases[] = {
        {"UTC", "2025-03-07", at("2025-03-07")},
        {"Europe/Berlin", "2025-01-15", at("2025-01-14", 23h)},
        {"Europe/Berlin", "2025-07-15", at("2025-07-14", 22h)},
        {"Europe/Berlin", "2025-03-30", at("2025-03-29", 23h)}, // the clock changes later that night
        {"Asia/Kolkata", "2025-03-07", at("2025-03-06", 18h + 30min)},
        {"Pacific/Kiritimati", "2025-01-01", at("2024-12-31", 10h)},     // UTC+14
        {"America/Sao_Paulo", "2018-11-04", at("2018-11-04", 3h)},       // midnight to one o'clock does not exist
        {"America/Sao_Paulo", "2018-02-18", at("2018-02-18", 3h)},       // the hour before midnight occurs twice
        {"Asia/Beirut", "2022-03-27", at("2022-03-26", 22h)},            // midnight does not exist
        {"America/Havana", "2024-11-03", at("2024-11-03", 4h)},          // midnight occurs twice: the first of them
        {"America/Toronto", "1919-03-31", at("1919-03-31", 4h + 30min)}, // 23:30 to 0:30 does not exist
        {"Pacific/Apia", "2011-12-30", at("2011-12-30", 10h)},           // a day that the islands left out
        {"Pacific/Apia", "2011-12-31", at("2011-12-30", 10h)},           //
    };
    for (const auto& [zone, day, expected] : cases) {
        const Calendar calendar(zone);
        const Instant start = calendar.startOfDay(date(day));
        EXPECT_EQ(start, expected) << zone << ' ' << day << ": " << (start - expected).count();
    }
}

TEST(CalendarTest, agreesWithICUFieldByField)
{
    std::mt19937_64 random(7); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same moments in every run
    const std::string zones[] = {"Europe/Berlin",
                                 "America/Sao_Paulo",
                                 "Asia/Kathmandu",
                                 "Australia/Lord_Howe",
                                 "Pacific/Apia",
                                 "Africa/Casablanca",
                                 "UTC"};
    for (const std::string& zone : zones) {
        const Calendar calendar(zone);
        UErrorCode status = U_ZERO_ERROR;
        icu::GregorianCalendar fields(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(zone)), status);
        fields.setGregorianChange(-8.64e15, status);
        for (int round = 0; round < 2000; ++round) {
            const Instant instant(std::chrono::milliseconds(random() % 8'000'000'000'000) - 24h * 365 * 150);
            fields.setTime(static_cast<double>(instant.time_since_epoch().count()), status);
            const CalendarDate expected =
                year(fields.get(UCAL_EXTENDED_YEAR, status)) /
                std::chrono::month(static_cast<unsigned>(fields.get(UCAL_MONTH, status)) + 1) /
                std::chrono::day(static_cast<unsigned>(fields.get(UCAL_DATE, status)));
            ASSERT_EQ(isoText(calendar.date(instant)), isoText(expected)) << zone << instant.time_since_epoch().count();
            const Instant start = calendar.startOfDay(instant);
            ASSERT_LE(start, instant) << zone;
            ASSERT_EQ(calendar.date(start), expected) << zone << ' ' << isoText(expected);
            ASSERT_NE(calendar.date(start - 1ms), expected) << zone << ' ' << isoText(expected);
            ASSERT_EQ(calendar.date(calendar.storedDay(expected)), expected) << zone << ' ' << isoText(expected);
        }
        ASSERT_TRUE(U_SUCCESS(status));
    }
}

TEST(CalendarTest, countsDaysAndNotHours)
{
    const Calendar berlin("Europe/Berlin");
    const Instant beforeChange = at("2025-03-29", 22h + 30min); // 23:30 of the 29th
    const Instant afterChange = at("2025-03-30", 21h + 30min);  // 23:30 of the 30th, 23 hours later
    EXPECT_EQ(berlin.daysBetween(beforeChange, afterChange), 1);
    EXPECT_EQ(berlin.daysBetween(afterChange, beforeChange), -1);
    EXPECT_EQ(berlin.daysBetween(at("2025-03-29", 22h + 59min), at("2025-03-29", 23h)), 1); // two minutes, two days
    EXPECT_EQ(berlin.daysBetween(at("2024-02-28", 12h), at("2024-03-01", 12h)), 2);         // a leap day between
    EXPECT_EQ(berlin.addingDays(at("2025-03-29", 22h + 30min), 1), at("2025-03-30", 10h));
    EXPECT_EQ(berlin.addingDays(at("2025-03-30", 12h), -1), at("2025-03-29", 10h));
    EXPECT_EQ(berlin.addingDays(at("2024-02-28", 12h), 366), at("2025-02-28", 10h));
}

TEST(CalendarTest, showsTheTimeOfTheClockOnTheWall)
{
    const Calendar berlin("Europe/Berlin");
    EXPECT_EQ(berlin.timeOfDay(at("2025-03-30", 59min)), 1h + 59min);
    EXPECT_EQ(berlin.timeOfDay(at("2025-03-30", 1h)), 3h); // two o'clock is skipped
    EXPECT_EQ(berlin.timeOfDay(at("2025-10-26", 30min)), berlin.timeOfDay(at("2025-10-26", 1h + 30min)));
    EXPECT_EQ(berlin.timeOfDay(at("1969-12-31", 22h + 59min)), 23h + 59min); // before the count of time begins
}

TEST(CalendarTest, findsTheInstantOfATimeOnTheWall)
{
    const Calendar berlin("Europe/Berlin");
    EXPECT_EQ(berlin.instant(date("2025-07-15"), 9h + 30min), at("2025-07-15", 7h + 30min));
    EXPECT_EQ(berlin.instant(date("2025-03-30"), 2h + 30min), at("2025-03-30", 1h));    // skipped: three o'clock
    EXPECT_EQ(berlin.instant(date("2025-10-26"), 2h + 30min), at("2025-10-26", 30min)); // the first of the two
    EXPECT_EQ(berlin.instant(date("2025-10-26"), 24h), at("2025-10-26", 23h));          // a day of 25 hours
}

TEST(CalendarTest, aStoredDayStaysThatDayWhereverTheLibraryIsOpened)
{
    const std::vector<std::string_view> zones =
        split("Pacific/Honolulu America/Los_Angeles America/New_York UTC Europe/Berlin Asia/Kolkata Asia/Tokyo "
              "Pacific/Auckland Pacific/Chatham",
              ' ');
    for (const std::string_view day : {"2025-01-01", "2025-03-30", "2025-07-15", "2025-12-31"}) {
        for (const std::string_view from : zones) {
            const Instant stored = Calendar(from).storedDay(date(day));
            for (const std::string_view to : zones) {
                EXPECT_EQ(isoText(Calendar(to).date(stored)), day) << from << " to " << to;
            }
        }
    }
    for (const std::string_view far : {"Pacific/Kiritimati", "Pacific/Pago_Pago", "Etc/GMT+12"}) {
        EXPECT_EQ(isoText(Calendar(far).date(Calendar(far).storedDay(date("2025-12-31")))), "2025-12-31") << far;
    }
}

TEST(CalendarTest, extremesStayWithinFourDigits)
{
    for (const std::string_view zone : {"UTC", "Pacific/Kiritimati", "America/Los_Angeles"}) {
        const Calendar calendar(zone);
        const Instant earliest = Instant::min();
        const Instant latest = Instant::max();
        EXPECT_EQ(isoText(calendar.date(earliest)), "0000-01-01");
        EXPECT_EQ(isoText(calendar.date(latest)), "9999-12-31");
        EXPECT_EQ(calendar.daysBetween(earliest, latest), 3652424); // 10000 years of 365.2425 days, less one day
        EXPECT_EQ(isoText(calendar.date(calendar.addingDays(latest, std::numeric_limits<int>::min()))), "0000-01-01");
        EXPECT_EQ(isoText(calendar.date(calendar.addingDays(earliest, std::numeric_limits<int>::max()))), "9999-12-31");
        EXPECT_EQ(isoText(calendar.date(calendar.startOfDay(date("0000-01-01")))), "0000-01-01");
        EXPECT_EQ(isoText(calendar.date(calendar.storedDay(date("9999-12-31")))), "9999-12-31");
        EXPECT_EQ(isoText(calendar.date(calendar.storedDay(year::max() / 12 / 31))), "9999-12-31");
    }
}

TEST(CalendarTest, unknownZonesReadAsUTC)
{
    for (const std::string_view zone : {"", "Mars/Olympus_Mons", "europe berlin", "\xFF", ":/etc/localtime"}) {
        EXPECT_EQ(Calendar(zone).startOfDay(date("2025-07-15")), at("2025-07-15")) << zone;
        EXPECT_EQ(Calendar(zone).timeZone(), "UTC") << zone;
    }
    EXPECT_EQ(Calendar(std::string(100'000, 'x')).timeZone(), "UTC");
    EXPECT_EQ(Calendar("Europe/Berlin").timeZone(), "Europe/Berlin");
}

TEST(CalendarTest, copiesAreIndependent)
{
    auto original = std::make_unique<Calendar>("Europe/Berlin");
    Calendar copy("UTC");
    copy = *original;
    original.reset();
    EXPECT_EQ(copy.timeZone(), "Europe/Berlin");
    EXPECT_EQ(copy.startOfDay(date("2025-01-15")), at("2025-01-14", 23h));
}

} // namespace

} // namespace Quillary
