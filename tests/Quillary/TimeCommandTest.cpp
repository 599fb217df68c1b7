#include "tests/Quillary/RunProgram.h"
#include "tests/Support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace Quillary {
namespace {

using testing::HasSubstr;
using testing::Not;

struct TimeCommandTest : testing::Test
{
    TimeCommandTest()
    {
        EXPECT_EQ(run("call update_business_profile --name Hof --country DE --vat-id DE136695976").status, 0);
        EXPECT_EQ(run("call create_client --name Acme --hourly-rate 80").status, 0);
    }

    [[nodiscard]] Answer run(const std::string& arguments) const
    {
        return quillary(folder, arguments, "TZ=Europe/Berlin");
    }

    TempFolder folder;
};

TEST_F(TimeCommandTest, anHourTrackedInTheShellBecomesALine)
{
    EXPECT_THAT(run("time start Menu --client acme").output, HasSubstr("Started "));
    EXPECT_THAT(run("time status").output, HasSubstr("Acme, Menu"));
    EXPECT_THAT(run("time start Call --client acme").output, HasSubstr("Stopped "));
    EXPECT_THAT(run("time stop").output, HasSubstr("Acme, Call"));
    EXPECT_EQ(run("time stop").output, "No timer is running.\n");
    EXPECT_EQ(run("time delete last").status, 0);
    EXPECT_EQ(run("time delete last").status, 0);

    EXPECT_THAT(run("time add 9:00-10:07 'Fixing the menu' --client acme --date 2026-03-03").output,
                HasSubstr("Added 2026-03-03 9:00–10:07, 1:07 h, Acme, Fixing the menu ["));
    EXPECT_THAT(run("time add 1:30 --client acme --date 2026-03-03").output, HasSubstr("2026-03-03 10:07–11:37"));
    EXPECT_THAT(run("time add 23:00-1:00 --client acme --date 2026-10-24").output, HasSubstr("23:00–1:00, 2:00 h"));
    const Answer overlapping = run("time add 11:00-12:00 Other --date 2026-03-03 --billable false");
    EXPECT_THAT(overlapping.output, HasSubstr("Counts some of the same time: 2026-03-03 10:07–11:37"));
    EXPECT_EQ(overlapping.status, 0);

    const Answer billed =
        run("time invoice --client acme --until 2026-03-31 --grouping oneline --rounding 15 --output json");
    EXPECT_EQ(billed.status, 0) << billed.output;
    EXPECT_THAT(billed.output, HasSubstr("\"entries\": 2"));
    const std::string shown = run("call get_document --document \"$(date +INV-%Y-001)\"").output;
    EXPECT_THAT(shown, HasSubstr("Leistungen"));
    EXPECT_THAT(shown, HasSubstr("2.75")); // an hour and a quarter, and an hour and a half
    const Answer added = run("time invoice --document \"$(date +INV-%Y-001)\"");
    EXPECT_THAT(added.output, HasSubstr("1 time entry billed on Invoice INV-"));
    EXPECT_THAT(run("time list --unbilled").output, HasSubstr("There is no such time."));
    EXPECT_THAT(run("time list --client acme").output, HasSubstr("4:37"));

    EXPECT_EQ(run("time edit last --note x").output,
              "This time is on an invoice. Remove its line there first; an invoice that was sent keeps it.\n");
    EXPECT_EQ(run("call update_document --document \"$(date +INV-%Y-001)\" --remove-lines 1").status, 0);
    EXPECT_THAT(run("time list --unbilled").output, HasSubstr("2:37"));
}

TEST_F(TimeCommandTest, changesWhatIsNotBilled)
{
    EXPECT_EQ(run("time add 9:00-10:00 Menu --client acme --date 2026-03-03").status, 0);
    EXPECT_THAT(run("time edit last --time 2h").output, HasSubstr("2026-03-03 9:00–11:00, 2:00 h"));
    EXPECT_THAT(run("time edit last --date 2026-03-29").output, HasSubstr("2026-03-29 9:00–11:00"));
    EXPECT_THAT(run("time edit last --time 1:30-3:30").output, HasSubstr("1:30–3:30, 1:00 h")); // clocks change
    EXPECT_THAT(run("time edit last --client '' --note Other").output, Not(HasSubstr("Acme")));
}

TEST_F(TimeCommandTest, answersMistakesWithOneSentence)
{
    const std::pair<std::string, std::string> cases[] = {
        {"time add 2", "“2” is no time. Write from when to when, like 9:00-10:30, or how long, like 1:30 or 90m.\n"},
        {"time add 1h --date 2026-02-30", "“2026-02-30” is no day. Write it like 2026-03-31, or today or yesterday.\n"},
        {"time start --project Moon", "There's no project “Moon”.\n"},
        {"time edit ABCD --note x", "There's no time entry “ABCD”. “quillary time list” shows their ids.\n"},
        {"time invoice", "Whose time? Give --client, or --document for a draft that is there.\n"},
        {"time invoice --client acme", "Acme has no unbilled time.\n"},
    };
    for (const auto& [arguments, expected] : cases) {
        const Answer answer = run(arguments);
        EXPECT_EQ(answer.status, 1) << arguments;
        EXPECT_EQ(answer.output, expected) << arguments;
    }
    EXPECT_THAT(run("call --output json find_documents").output, Not(HasSubstr("INV-")))
        << "a failed bill leaves no draft";
}

} // namespace
} // namespace Quillary
