#include "QuillaryCore/Schedules/TimeInput.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace Quillary {
namespace {

using std::chrono::minutes;
using namespace std::chrono_literals;

TEST(TimeInputTest, readsLengthsOrNothing)
{
    const std::pair<std::string_view, std::optional<std::int64_t>> cases[] = {
        {"1:30", 5400},
        {"0:05", 300},
        {"100:00", 360'000},
        {"1:30:15", 5415},
        {"90m", 5400},
        {" 90 Min ", 5400},
        {"90min.", 5400},
        {"1.5h", 5400},
        {"1,5 h", 5400},
        {"2 hours", 7200},
        {"1 Stunde", 3600},
        {"0.25", 900}, // nobody counts fractions of minutes
        {"1h30", 5400},
        {"1h 30m", 5400},
        {"1 h 05 min", 3900},
        {"0.333h", 1199},      // to the nearest second
        {"2", std::nullopt},   // hours or minutes?
        {"1:5", std::nullopt}, // five minutes, or half an hour?
        {"1:60", std::nullopt},
        {"1h90m", std::nullopt},
        {"1.5h30", std::nullopt},
        {"30m 1h", std::nullopt},
        {"1d", std::nullopt},
        {"-1h", std::nullopt},
        {"-1:30", std::nullopt},
        {"0m", std::nullopt},
        {"h", std::nullopt},
        {"", std::nullopt},
        {"1000001h", std::nullopt}, // beyond a million hours
        {"999999999999999999999h", std::nullopt},
        {"99999999:00:00", std::nullopt},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(TimeInput::duration(text, Locale("en_GB")), expected) << text;
    }
    EXPECT_EQ(TimeInput::duration("1,5 Std", Locale("de_DE")), 5400);
}

TEST(TimeInputTest, readsTimesOfTheDay)
{
    const std::pair<std::string_view, std::optional<minutes>> cases[] = {
        {"9", 9h},
        {"09:05", 9h + 5min},
        {"9.30", 9h + 30min},
        {"9h30", 9h + 30min},
        {"9h", 9h},
        {"24:00", 24h},
        {"9 am", 9h},
        {"12am", 0h},
        {"12:15pm", 12h + 15min},
        {"1 PM", 13h},
        {"24:01", std::nullopt},
        {"13pm", std::nullopt},
        {"0am", std::nullopt},
        {"9:", std::nullopt},
        {"9:5", std::nullopt},
        {"9:60", std::nullopt},
        {":30", std::nullopt},
        {"", std::nullopt},
        {"nine", std::nullopt},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(TimeInput::timeOfDay(text), expected) << text;
    }
}

TEST(TimeInputTest, readsSpans)
{
    using Span = TimeInput::Span;
    const std::pair<std::string_view, std::optional<Span>> cases[] = {
        {"9:00-10:30", Span{9h, 10h + 30min}},
        {"9 – 10", Span{9h, 10h}},
        {"9am to 5pm", Span{9h, 17h}},
        {"22:00-1:00", Span{22h, 25h}}, // into the next day
        {"22:00-24:00", Span{22h, 24h}},
        {"9:00-9:00", Span{9h, 33h}},
        {"9:00", std::nullopt},
        {"9:00-", std::nullopt},
        {"24:00-1:00", std::nullopt},
        {"9-10-11", std::nullopt},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(TimeInput::span(text), expected) << text;
    }
}

TEST(TimeInputTest, readsDays)
{
    const CalendarDate newYear = std::chrono::year(2026) / 1 / 1;
    EXPECT_EQ(TimeInput::day("Today", newYear), newYear);
    EXPECT_EQ(TimeInput::day("yesterday", newYear), std::chrono::year(2025) / 12 / 31);
    EXPECT_EQ(TimeInput::day(" 2026-02-28 ", newYear), std::chrono::year(2026) / 2 / 28);
    EXPECT_EQ(TimeInput::day("2026-02-29", newYear), std::nullopt);
}

} // namespace
} // namespace Quillary
