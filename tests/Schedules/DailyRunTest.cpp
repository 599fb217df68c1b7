#include "QuillaryCore/Schedules/DailyRun.h"

#include <gtest/gtest.h>

namespace Quillary {
namespace {

using namespace std::chrono_literals;

TEST(DailyRunTest, isDueAtFirstAndAfterEachLocalMidnight)
{
    // The day is that of the place: 24 hours before the clocks change is another day, 23 hours after it the same.
    const Calendar calendar("America/Santiago");
    const Instant midnight = calendar.startOfDay(*parseISODate("2025-09-07")); // at one: there is no midnight
    DailyRun run;
    EXPECT_TRUE(run.isDue(midnight - 1ms, calendar));
    run.didRun(midnight - 1ms, calendar);
    EXPECT_FALSE(run.isDue(midnight - 20h, calendar));
    EXPECT_TRUE(run.isDue(midnight, calendar));
    run.didRun(midnight, calendar);
    EXPECT_FALSE(run.isDue(midnight + 23h - 1ms, calendar));
    EXPECT_TRUE(run.isDue(midnight + 23h, calendar));
    EXPECT_TRUE(run.isDue(midnight + 9000h, calendar)); // a machine that slept
    run.didRun(midnight + 900'000h, calendar);          // a clock set forward by mistake
    EXPECT_TRUE(run.isDue(midnight, calendar));
}

} // namespace
} // namespace Quillary
