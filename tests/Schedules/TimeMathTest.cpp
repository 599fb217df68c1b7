#include "QuillaryCore/Schedules/TimeMath.h"

#include <gtest/gtest.h>

#include <tuple>

namespace Quillary {
namespace {

TEST(TimeMathTest, roundsUpToWholeSteps)
{
    const std::tuple<std::int64_t, std::int64_t, std::int64_t> cases[] = {
        {420, 15, 900}, // seven minutes are a quarter of an hour
        {420, 0, 420},  // no rounding
        {0, 60, 0},     // nothing stays nothing
        {-5, 15, 0},    // a clock set back
        {-5, 0, 0},
        {60, 1, 60},  // exactly a step
        {61, 1, 120}, // one second over
        {61, 15, 900},
        {3601, 60, 7200},
        {59, -1, 59}, // a damaged setting rounds nothing
    };
    for (const auto& [seconds, minutes, expected] : cases) {
        EXPECT_EQ(TimeMath::roundUp(seconds, minutes), expected) << seconds << " to " << minutes;
    }
}

TEST(TimeMathTest, pricesAndCountsHours)
{
    EXPECT_EQ(TimeMath::amount(90 * 60, 8000), 12000);
    EXPECT_EQ(TimeMath::amount(1, 1), 0);
    EXPECT_EQ(TimeMath::amount(1799, 1), 0);
    EXPECT_EQ(TimeMath::amount(1800, 1), 1); // half of a cent rounds up
    EXPECT_EQ(TimeMath::amount(-1800, 100), 0);
    EXPECT_EQ(TimeMath::thousandthsOfHours(20 * 60), 333);
    EXPECT_EQ(TimeMath::thousandthsOfHours(10 * 60), 166); // cut off
    EXPECT_EQ(TimeMath::thousandthsOfHours(-10), 0);
    EXPECT_EQ(TimeMath::hoursAndMinutes(5400), "1:30");
    EXPECT_EQ(TimeMath::hoursAndMinutes(59), "0:00");
    EXPECT_EQ(TimeMath::hoursAndMinutes(-5400), "0:00");
    EXPECT_EQ(TimeMath::clock(100 * 3600 + 61), "100:01:01");
}

TEST(TimeMathDeathTest, stopsOnAnAmountOutside64Bits)
{
    EXPECT_DEATH(std::ignore = TimeMath::amount(INT64_MAX / 2, 3), "fits 64 bits");
}

} // namespace
} // namespace Quillary
