#include "QuillaryCore/Schedules/TimeBilling.h"

#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Model/TimeEntryBilling.h"
#include "QuillaryCore/Schedules/TimeTracking.h"
#include "tests/Documents/DocumentLibrary.h"

#include <gtest/gtest.h>

namespace Quillary {
namespace {

struct TimeBillingTest : testing::Test, DocumentLibrary
{
    const TimeEntry& entry(int hour)
    {
        const Instant begin = start + std::chrono::hours(hour);
        return TimeTracking::add(context, {.client = client.ref}, begin, begin + std::chrono::hours(1));
    }

    /// Bills all unbilled time of the client, a line for each entry.
    void billAll(const Document& draft)
    {
        const std::vector<const TimeEntry*> entries = TimeBilling::unbilled(context, client);
        const std::vector<TimeInvoicing::Line> lines =
            TimeInvoicing::lines(context,
                                 entries,
                                 {.grouping = TimeInvoicing::Grouping::eachEntry, .hourlyRate = 8000},
                                 start,
                                 calendar,
                                 Locale("en_GB"));
        TimeBilling::addLines(desk(), draft, lines, entries, 5, 1900);
    }
};

TEST_F(TimeBillingTest, deletingALineOrTheDraftFreesItsTime)
{
    const TimeEntry& first = entry(1);
    const TimeEntry& second = entry(2);
    TimeTracking::start(context, {.client = client.ref}, start); // runs, so it isn't billed
    const Document& draft = invoice("1", DocumentStatus::draft);
    billAll(draft);
    context.save();
    const std::vector<const LineItem*> lines = sortedItems(context, draft);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[1]->sortIndex, 6);
    EXPECT_EQ(lines[1]->unit, "hour");
    EXPECT_EQ(TimeBilling::entries(context, *lines[1]), std::vector<const TimeEntry*>{&second});
    EXPECT_TRUE(TimeBilling::unbilled(context, client).empty());

    context.erase(*lines[0]);
    context.save();
    EXPECT_EQ(TimeBilling::unbilled(context, client), std::vector<const TimeEntry*>{&first});
    EXPECT_EQ(second.invoiceID, draft.uuid);

    context.erase(draft);
    context.save();
    EXPECT_EQ(TimeBilling::unbilled(context, client), (std::vector<const TimeEntry*>{&first, &second}));
    EXPECT_EQ(context.count<TimeEntryBilling>(""), 0);
}

TEST_F(TimeBillingTest, takingADeletionBackBillsTheTimeAgain)
{
    const TimeEntry& tracked = entry(1);
    const Document& draft = invoice("1", DocumentStatus::draft);
    billAll(draft);
    const LineItem& billing = *sortedItems(context, draft).front();
    LineItem& work = line(draft, 1000, 0, 0);
    context.edit(billing).parent = work.ref; // it goes with its line
    context.save();
    {
        Scope scope = context.beginScope("Delete line");
        context.erase(work);
        EXPECT_FALSE(tracked.invoiceID);
        scope.rollback();
    }
    EXPECT_EQ(tracked.invoiceID, draft.uuid);
    Scope scope = context.beginScope("Delete line");
    context.erase(*context.find(work.ref));
    scope.commit();
    EXPECT_EQ(TimeBilling::unbilled(context, client).size(), 1U);
    context.undo();
    EXPECT_EQ(context.first<TimeEntry>("")->invoiceID, draft.uuid);
    EXPECT_EQ(context.count<TimeEntryBilling>(""), 1);

    // Two lines say that they billed it, as after two devices did: it is free when both have gone.
    LineItem& again = line(draft, 1000, 0, 0);
    auto& link = context.insert<TimeEntryBilling>();
    link.entryID = tracked.uuid;
    link.lineID = again.uuid;
    context.save();
    context.erase(*context.find(again.ref));
    EXPECT_EQ(context.first<TimeEntry>("")->invoiceID, draft.uuid);
    context.erase(*context.first<TimeEntry>(""));
    context.save();
    EXPECT_EQ(context.count<TimeEntryBilling>(""), 0);
}

TEST_F(TimeBillingTest, theClientsRateComesFirst)
{
    business.hourlyRateMinorUnits = 7000;
    EXPECT_EQ(TimeBilling::hourlyRate(&client, business), 7000);
    EXPECT_EQ(TimeBilling::hourlyRate(nullptr, business), 7000);
    client.hourlyRateMinorUnits = 9000;
    EXPECT_EQ(TimeBilling::hourlyRate(&client, business), 9000);
}

} // namespace
} // namespace Quillary
