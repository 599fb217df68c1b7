#include "QuillaryCore/Schedules/TimeInvoicing.h"

#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"

#include <gtest/gtest.h>

namespace Quillary {
namespace {

using std::chrono::minutes;
using TimeInvoicing::Grouping;
using TimeInvoicing::Line;

class TimeInvoicingTest : public testing::Test
{
protected:
    const TimeEntry* add(const Project* project, minutes start, minutes length, std::string note)
    {
        TimeEntry& entry = context.insert<TimeEntry>();
        entry.start = morning + start;
        entry.end = morning + start + length;
        entry.note = std::move(note);
        entry.project = project == nullptr ? Ref<Project>() : project->ref;
        return entries.emplace_back(&entry);
    }

    const Project* project(std::string name)
    {
        Project& made = context.insert<Project>();
        made.name = std::move(name);
        return &made;
    }

    std::vector<Line> lines(Grouping grouping, std::int64_t rounding, DocumentLanguage language = {})
    {
        const TimeInvoicing::Terms terms{grouping, 9000, rounding, language};
        return TimeInvoicing::lines(context, entries, terms, clock.now(), Calendar("Europe/Berlin"), Locale("en_GB"));
    }

    const Instant morning = std::chrono::sys_days(std::chrono::year(2026) / 3 / 3) + std::chrono::hours(8);
    FixedClock clock{morning + std::chrono::hours(10)};
    CountingUUIDSource uuids;
    Store store{Store::Location::inMemory(), DataModel::records(), DataModel::history(), clock, uuids};
    Context context{store, clock, uuids};
    std::vector<const TimeEntry*> entries;
};

TEST_F(TimeInvoicingTest, groupsInTheOrderOfTheStarts)
{
    const Project* shop = project("Shop");
    const Project* site = project("Website");
    add(site, minutes(120), minutes(30), "Menu");
    add(shop, minutes(0), minutes(10), "");
    add(nullptr, minutes(60), minutes(20), "Call");
    add(shop, minutes(200), minutes(7), "Prices,\nnew");

    const std::vector<Line> byProject = lines(Grouping::byProject, 0);
    ASSERT_EQ(byProject.size(), 3U);
    EXPECT_EQ(byProject[0].title, "Shop");
    EXPECT_EQ(byProject[0].details, "- 3 Mar 2026 (0:10 h)\n- 3 Mar 2026, Prices, new (0:07 h)");
    EXPECT_EQ(byProject[0].quantityThousandths, 283); // 17 minutes of both together, not of each
    EXPECT_EQ(byProject[0].amount(), 2547);
    EXPECT_EQ(byProject[0].entryIDs, (std::vector{*entries[1]->uuid, *entries[3]->uuid}));
    EXPECT_EQ(byProject[1].title, "Work");
    EXPECT_EQ(byProject[2].title, "Website");

    const std::vector<Line> each = lines(Grouping::eachEntry, 0);
    ASSERT_EQ(each.size(), 4U);
    EXPECT_EQ(each[0].quantityThousandths, 167); // ten minutes, to the nearest

    const std::vector<Line> one = lines(Grouping::oneLine, 0, DocumentLanguage::german);
    ASSERT_EQ(one.size(), 1U);
    EXPECT_EQ(one[0].title, "Leistungen");
    EXPECT_TRUE(one[0].details.starts_with("- 3 Mar 2026, Shop (0:10 h)\n- 3 Mar 2026, Call")) << one[0].details;
}

TEST_F(TimeInvoicingTest, roundsEachEntryByItself)
{
    add(nullptr, minutes(0), minutes(7), "");
    add(nullptr, minutes(10), minutes(7), "");
    add(nullptr, minutes(20), minutes(0), "");
    EXPECT_EQ(lines(Grouping::oneLine, 15)[0].quantityThousandths, 500);
    EXPECT_EQ(lines(Grouping::oneLine, 0)[0].quantityThousandths, 233);
    EXPECT_TRUE(lines(Grouping::oneLine, 15)[0].details.ends_with("(0:00 h)"));
}

TEST_F(TimeInvoicingTest, billsARunningEntryUpToNowAndABackwardOneNotAtAll)
{
    add(nullptr, minutes(0), minutes(0), "");
    context.edit(*entries[0]).end.reset();
    add(nullptr, minutes(60), minutes(-30), "");
    EXPECT_EQ(lines(Grouping::oneLine, 0)[0].quantityThousandths, 10'000);
}

} // namespace
} // namespace Quillary
