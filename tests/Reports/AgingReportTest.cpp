#include "QuillaryCore/Reports/AgingReport.h"

#include "tests/Reports/ReportLibrary.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace Quillary {
namespace {

using Bucket = AgingReport::Bucket;
using std::chrono::sys_days;
using std::chrono::year;

class AgingReportTest : public testing::Test, protected ReportLibrary
{
protected:
    const Calendar calendar{"Europe/Berlin"};
    const Instant today = calendar.startOfDay(year(2026) / 4 / 15) + std::chrono::minutes(5);

    Document& open(std::int64_t balance, std::optional<Instant> due, Ref<Client> client = {})
    {
        Document& made = document(DocumentKind::invoice, DocumentStatus::sent);
        made.cachedTotalMinorUnits = balance;
        made.dueDate = due;
        made.client = client;
        return made;
    }

    AgingReport report() { return AgingReport::make(context, today, calendar, "EUR"); }
};

TEST_F(AgingReportTest, agesByCalendarDays)
{
    const CalendarDate day = year(2026) / 4 / 15;
    const std::pair<int, Bucket> cases[] = {
        {-20, Bucket::notDueYet},
        {0, Bucket::notDueYet},
        {1, Bucket::upTo30Days},
        {30, Bucket::upTo30Days}, // the clocks went forward in between: a day of 23 hours is a day
        {31, Bucket::upTo60Days},
        {60, Bucket::upTo60Days},
        {61, Bucket::upTo90Days},
        {90, Bucket::upTo90Days},
        {91, Bucket::over90Days},
        {4000, Bucket::over90Days},
    };
    for (const auto& [days, bucket] : cases) {
        const Instant due = calendar.startOfDay(CalendarDate(sys_days(day) - std::chrono::days(days)));
        for (const Instant moment : {due, due + std::chrono::minutes(22 * 60 + 59)}) {
            open(100, moment);
            AgingReport::Amounts expected{};
            expected.at(static_cast<std::size_t>(bucket)) = 100;
            ASSERT_EQ(report().rows.size(), 1U);
            EXPECT_EQ(report().rows[0].amounts, expected) << days;
            context.rollback();
        }
    }
    open(100, std::nullopt);
    EXPECT_EQ(report().totals(), (AgingReport::Amounts{100}));
}

TEST_F(AgingReportTest, listsWhatIsOwed)
{
    open(1000, today).cachedPaidMinorUnits = 1000;
    open(1000, today).cachedPaidMinorUnits = 1200;
    open(1000, today).currencyCode = "USD";
    for (const DocumentStatus status :
         {DocumentStatus::draft, DocumentStatus::paid, DocumentStatus::accepted, DocumentStatus::declined}) {
        open(1000, today).statusRaw = static_cast<std::int16_t>(status);
    }
    open(1000, today).kindRaw = static_cast<std::int16_t>(DocumentKind::quote);
    open(1000, today).kindRaw = static_cast<std::int16_t>(DocumentKind::creditNote);
    EXPECT_TRUE(report().rows.empty());
    Document& late = open(1000, today - std::chrono::days(40));
    late.cachedPaidMinorUnits = 1000;
    late.cachedLateFeesMinorUnits = 500;
    EXPECT_EQ(report().totals(), (AgingReport::Amounts{0, 0, 500, 0, 0}));
}

TEST_F(AgingReportTest, putsTheLargestDebtsFirst)
{
    const Ref<Client> zoe = client("Zoë");
    const Ref<Client> adam = client("adam"); // plain text: capitals come first
    const Ref<Client> eve = client("Eve");
    const Ref<Client> gone(4711);
    open(300, today, adam);
    open(200, today, zoe);
    open(100, today - std::chrono::days(31), zoe);
    open(400, today - std::chrono::days(100), eve);
    open(10, today);
    open(20, today, gone);
    const AgingReport made = report();
    std::string lines;
    for (const AgingReport::Row& row : made.rows) {
        lines += row.client + " " + std::to_string(row.total()) + " " + std::to_string(row.invoices) + "\n";
    }
    EXPECT_EQ(lines, "Eve 400 1\nZoë 300 2\nadam 300 1\nNo client 30 2\n");
    EXPECT_FALSE(made.rows[3].id);
    EXPECT_TRUE(made.rows[0].id);
    EXPECT_EQ(made.total(), 1030);
    store.connection().execute("ALTER TABLE Client RENAME TO Gone");
    EXPECT_TRUE(report().rows.empty());
    EXPECT_TRUE(store.lastFailure());
}

} // namespace
} // namespace Quillary
