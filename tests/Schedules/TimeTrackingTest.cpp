#include "QuillaryCore/Schedules/TimeTracking.h"

#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Schedules/TimeInvoicing.h"
#include "tests/Model/TestLibrary.h"
#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <tuple>

namespace Quillary {
namespace {

using Reason = TimeError::Reason;
using namespace std::chrono_literals;

struct TimeTrackingTest : testing::Test, TestLibrary
{
    const Instant now = clock.now();

    void expectRefused(Reason reason, const std::function<void()>& work)
    {
        try {
            work();
            ADD_FAILURE() << "nothing was refused";
        } catch (const TimeError& error) {
            EXPECT_EQ(error.reason(), reason) << error.message();
        }
    }
};

TEST_F(TimeTrackingTest, oneTimerRunsAtATime)
{
    const TimeEntry& first = TimeTracking::start(context, {.note = "Menu"}, now - 2h);
    const TimeEntry& second = TimeTracking::start(context, {.note = "Call"}, now - 30min);
    EXPECT_EQ(first.end, now - 30min);
    EXPECT_EQ(TimeTracking::running(context), std::vector<const TimeEntry*>{&second});
    EXPECT_TRUE(TimeTracking::overlaps(context, second, now).empty());
    EXPECT_EQ(TimeTracking::stop(context, now), std::vector<const TimeEntry*>{&second});
    EXPECT_EQ(TimeInvoicing::duration(second, now + 5h), 1800);
    EXPECT_TRUE(TimeTracking::stop(context, now).empty());
}

TEST_F(TimeTrackingTest, aTimerSurvivesTheProgramAndTheMachine)
{
    const TempFolder folder;
    const auto inLibrary = [&](const std::function<void(Context&)>& work) {
        Store file(Store::Location::directory(folder.path()), DataModel::records(), DataModel::history(), clock, uuids);
        Context opened(file, clock, uuids);
        work(opened);
    };
    inLibrary([&](Context& opened) {
        auto scope = opened.beginScope("Start");
        TimeTracking::start(opened, {.note = "Menu"}, now);
        scope.commit();
        opened.insert<TimeEntry>(); // and the program ends here
    });
    clock.set(now + 9h); // the machine slept
    inLibrary([&](Context& opened) {
        ASSERT_EQ(TimeTracking::running(opened).size(), 1U);
        EXPECT_EQ(TimeInvoicing::duration(*TimeTracking::stop(opened, clock.now()).front(), clock.now()), 9 * 3600);
    });
}

TEST_F(TimeTrackingTest, aClockSetBackCountsNothing)
{
    const TimeEntry& entry = TimeTracking::start(context, {}, now);
    clock.set(now - 1h);
    TimeTracking::stop(context, clock.now());
    EXPECT_EQ(entry.end, now);
    EXPECT_EQ(TimeInvoicing::duration(entry, clock.now()), 0);
}

TEST_F(TimeTrackingTest, countsSecondsWhateverTheClocksOnTheWallDid)
{
    const std::tuple<std::string_view, std::string_view, std::chrono::minutes, std::chrono::minutes, int> cases[] = {
        {"Europe/Berlin", "2025-03-29", 23h, 28h, 4},       // over midnight and the hour that is skipped
        {"Europe/Berlin", "2025-10-25", 23h, 28h, 6},       // and the one that comes twice
        {"America/New_York", "2025-11-01", 22h, 26h, 5},    //
        {"Australia/Lord_Howe", "2025-04-05", 20h, 27h, 7}, // half an hour, see below
    };
    for (const auto& [zone, day, from, until, hours] : cases) {
        const Calendar calendar(zone);
        const CalendarDate date = *parseISODate(day);
        const CalendarDate next(std::chrono::sys_days(date) + std::chrono::days(1));
        const Instant end = calendar.instant(next, until - 24h);
        const TimeEntry& entry = TimeTracking::add(context, {}, calendar.instant(date, from), end);
        const int extra = zone == std::string_view("Australia/Lord_Howe") ? 1800 : 0;
        EXPECT_EQ(TimeInvoicing::duration(entry, now), hours * 3600 + extra) << zone << day;
    }
}

TEST_F(TimeTrackingTest, tellsOverlaps)
{
    const auto at = [&](std::chrono::minutes from, std::chrono::minutes until) -> const TimeEntry& {
        return TimeTracking::add(context, {}, now + from, now + until);
    };
    const TimeEntry& entry = at(0min, 60min);
    at(-60min, 0min); // ends where it begins
    at(60min, 90min);
    at(30min, 30min); // no time at all
    const TimeEntry& before = at(-10min, 1min);
    const TimeEntry& inside = at(20min, 30min);
    const TimeEntry& around = at(-60min, 200min);
    const TimeEntry& running = TimeTracking::start(context, {}, now - 5min);
    EXPECT_EQ(TimeTracking::overlaps(context, entry, now + 10min),
              (std::vector<const TimeEntry*>{&around, &before, &running, &inside}));
    EXPECT_EQ(TimeTracking::overlaps(context, entry, now), (std::vector<const TimeEntry*>{&around, &before, &inside}));
}

TEST_F(TimeTrackingTest, refusesWhatCannotBe)
{
    expectRefused(Reason::backwards, [&] { TimeTracking::add(context, {}, now, now - 1min); });
    expectRefused(Reason::tooLong, [&] { TimeTracking::add(context, {}, now, now + 1'000'001h); });
    expectRefused(Reason::inFuture, [&] { TimeTracking::start(context, {}, now + 1min); });
    TimeEntry& entry = TimeTracking::add(context, {.note = "before"}, now - 2h, now);
    expectRefused(Reason::backwards, [&] { TimeTracking::edit(context, entry, {.end = now - 3h}); });
    TimeTracking::edit(context, entry, {.note = "after", .start = now - 1h});
    EXPECT_EQ(TimeInvoicing::duration(entry, now), 3600);
    context.edit(entry).invoiceID = uuids.next();
    expectRefused(Reason::billed, [&] { TimeTracking::edit(context, entry, {.note = "billed"}); });
    expectRefused(Reason::billed, [&] { TimeTracking::erase(context, entry); });
    EXPECT_EQ(entry.note, "after");
}

} // namespace
} // namespace Quillary
