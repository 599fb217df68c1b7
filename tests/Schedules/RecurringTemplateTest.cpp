#include "QuillaryCore/Schedules/RecurringTemplate.h"

#include "QuillaryCore/Model/Document.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace Quillary {
namespace {

CalendarDate date(std::string_view text)
{
    return parseISODate(text).value();
}

struct RecurringTemplateTest : testing::Test
{
    Calendar calendar{"Europe/Berlin"};

    /// A template of a month's interval from the 31st, whose next date is `next`.
    [[nodiscard]] Document monthly(std::string_view next) const
    {
        Document made;
        made.kindRaw = 3;
        made.issueDate = calendar.storedDay(date("2025-01-31"));
        made.recurrenceUnitRaw = 1;
        made.recurrenceInterval = 1;
        made.recurrenceAnchorDay = 31;
        made.nextIssueDate = calendar.storedDay(date(next));
        return made;
    }

    [[nodiscard]] std::string next(const Document& recurring) const
    {
        return recurring.nextIssueDate ? isoText(calendar.date(*recurring.nextIssueDate)) : "none";
    }

    [[nodiscard]] std::string due(const Document& recurring, std::string_view today, std::size_t limit = 60) const
    {
        std::string text;
        for (const CalendarDate day : RecurringTemplate::dueDates(recurring, date(today), limit, calendar)) {
            text += (text.empty() ? "" : " ") + isoText(day);
        }
        return text;
    }
};

TEST_F(RecurringTemplateTest, movesOnFromTheStartWhateverWasMade)
{
    Document recurring = monthly("2025-02-28");
    recurring.recurrenceCount = 700; // says nothing about dates
    RecurringTemplate::advance(recurring, date("2025-02-28"), calendar);
    EXPECT_EQ(next(recurring), "2025-03-31");
    recurring.nextIssueDate = calendar.storedDay(date("2025-04-10")); // the user moved it
    RecurringTemplate::advance(recurring, date("2025-04-10"), calendar);
    EXPECT_EQ(next(recurring), "2025-04-30");
    RecurringTemplate::advance(recurring, date("2025-01-31"), calendar); // made by hand for an earlier day
    EXPECT_EQ(next(recurring), "2025-04-30");
    recurring.issueDate.reset(); // the next date is all there is: it becomes the start
    recurring.recurrenceAnchorDay = 0;
    RecurringTemplate::advance(recurring, date("2025-04-30"), calendar);
    RecurringTemplate::advance(recurring, date("2025-05-30"), calendar);
    EXPECT_EQ(next(recurring), "2025-06-30");
}

TEST_F(RecurringTemplateTest, endsByItsRule)
{
    struct Case
    {
        std::int16_t rule;
        std::int16_t count;
        std::int32_t made;
        std::string_view lastDay;
        std::string_view due; ///< on 2025-06-15, the next date being 2025-02-28
    };
    const Case cases[] = {
        {0, 1, 5, "2025-01-01", "2025-02-28 2025-03-31 2025-04-30 2025-05-31"},
        {1, 7, 5, "", "2025-02-28 2025-03-31"}, // two are left
        {1, 5, 5, "", ""},
        {1, 0, 0, "", ""},
        {2, 0, 9, "2025-04-30", "2025-02-28 2025-03-31 2025-04-30"}, // the last day counts
        {2, 0, 9, "2025-04-29", "2025-02-28 2025-03-31"},
        {2, 0, 9, "2025-02-27", ""},
        {2, 0, 9, "", "2025-02-28 2025-03-31 2025-04-30 2025-05-31"},
        {9, 0, 0, "", ""}, // a rule of a newer version
    };
    for (const Case& example : cases) {
        Document recurring = monthly("2025-02-28");
        recurring.recurrenceEndRaw = example.rule;
        recurring.recurrenceEndCount = example.count;
        recurring.recurrenceCount = example.made;
        if (!example.lastDay.empty()) {
            recurring.recurrenceEndDate = calendar.storedDay(date(example.lastDay));
        }
        EXPECT_EQ(due(recurring, "2025-06-15"), example.due) << example.rule << example.lastDay;
    }
    EXPECT_EQ(due(monthly("2025-02-28"), "2025-06-15", 2), "2025-02-28 2025-03-31");
    EXPECT_EQ(due(monthly("2025-02-28"), "2025-02-27"), "");
}

TEST_F(RecurringTemplateTest, isShownAsWhatItIs)
{
    Document recurring = monthly("2025-02-28");
    EXPECT_EQ(RecurringTemplate::state(recurring, calendar), RecurringState::active);
    EXPECT_EQ(RecurringTemplate::summary(recurring, calendar), "Every month on the 31st");
    recurring.isPaused = true;
    EXPECT_EQ(RecurringTemplate::state(recurring, calendar), RecurringState::paused);
    EXPECT_EQ(due(recurring, "2025-06-15"), "");
    recurring.recurrenceEndRaw = 1;
    recurring.recurrenceEndCount = 12;
    recurring.recurrenceCount = 12;
    EXPECT_EQ(RecurringTemplate::summary(recurring, calendar), "Every month on the 31st, 12 of 12 made");
    EXPECT_EQ(RecurringTemplate::state(recurring, calendar), RecurringState::ended);
    recurring = monthly("2025-02-28");
    recurring.recurrenceUnitRaw = 0;
    recurring.recurrenceInterval = -3;
    recurring.recurrenceEndRaw = 2;
    recurring.recurrenceEndDate = calendar.storedDay(date("2026-12-31"));
    EXPECT_EQ(RecurringTemplate::summary(recurring, calendar), "Every week, until 2026-12-31");
    recurring.nextIssueDate.reset();
    EXPECT_EQ(RecurringTemplate::state(recurring, calendar), RecurringState::ended);
}

TEST_F(RecurringTemplateTest, goesOnFromTodayAfterAPause)
{
    const std::tuple<std::string_view, std::string_view, std::size_t> cases[] = {
        {"2025-06-15", "2025-06-30", 4},
        {"2025-05-31", "2025-05-31", 3}, // today's own date comes
        {"2025-02-28", "2025-02-28", 0},
        {"2025-03-01", "2025-03-31", 1},
        {"2024-12-01", "2025-02-28", 0}, // a clock set back skips nothing
    };
    for (const auto& [today, expected, skipped] : cases) {
        Document recurring = monthly("2025-02-28");
        recurring.isPaused = true;
        EXPECT_EQ(RecurringTemplate::resume(recurring, date(today), RecurringTemplate::MissedDates::skipped, calendar),
                  skipped)
            << today;
        EXPECT_EQ(next(recurring), expected) << today;
        EXPECT_FALSE(recurring.isPaused);
    }
    Document recurring = monthly("2025-02-28");
    recurring.isPaused = true;
    EXPECT_EQ(
        RecurringTemplate::resume(recurring, date("2025-06-15"), RecurringTemplate::MissedDates::madeUp, calendar), 0U);
    EXPECT_EQ(due(recurring, "2025-06-15"), "2025-02-28 2025-03-31 2025-04-30 2025-05-31");
}

} // namespace
} // namespace Quillary
