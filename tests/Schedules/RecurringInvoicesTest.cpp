#include "QuillaryCore/Model/DeliveryKind.h"
#include "QuillaryCore/Model/DocumentTaxTreatment.h"
#include "QuillaryCore/Schedules/BillingPeriod.h"
#include "tests/Schedules/RecurringLibrary.h"
#include "tests/Store/QueryPlan.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <set>
#include <tuple>

namespace Quillary {
namespace {

using Reason = RecurringError::Reason;
using Told = std::vector<std::string>;

struct RecurringInvoicesTest : testing::Test, RecurringLibrary
{
};

TEST_F(RecurringInvoicesTest, makesWhatWasMissedInItsOrderAndOnce)
{
    Document& recurring = monthly("2024-11-01");
    Document& paused = monthly("2024-11-01");
    paused.uuid = uuids.next();
    paused.isPaused = true;
    context.save();
    EXPECT_EQ(told(makeDue()),
              (Told{"INV-2024-001 2024-11-01",
                    "INV-2024-002 2024-12-01",
                    "INV-2025-001 2025-01-01",
                    "INV-2025-002 2025-02-01",
                    "INV-2025-003 2025-03-01"}));
    EXPECT_EQ(dayOf(recurring.nextIssueDate), "2025-04-01");
    EXPECT_EQ(recurring.recurrenceCount, 5);
    EXPECT_TRUE(makeDue().empty());
    context.edit(recurring).nextIssueDate = on("2025-02-01"); // another device has not heard of it yet
    EXPECT_TRUE(makeDue().empty());
    EXPECT_EQ(dayOf(recurring.nextIssueDate), "2025-04-01");
    EXPECT_EQ(recurring.recurrenceCount, 5) << "what is there already is counted once";
    EXPECT_EQ(context.count<Document>("kindRaw = 0"), 5);
}

TEST_F(RecurringInvoicesTest, stopsAtTheLimitAndGoesOnInTheNextRun)
{
    Document& weekly = monthly("2020-01-06");
    weekly.issueDate = weekly.nextIssueDate;
    weekly.recurrenceUnitRaw = 0;
    weekly.recurrenceEndRaw = 1;
    weekly.recurrenceEndCount = 70;
    EXPECT_EQ(makeDue().size(), 60U);
    EXPECT_FALSE(RecurringInvoices::catchUp(context, clock.now(), 9, calendar).isComplete);
    EXPECT_EQ(makeDue().size(), 1U);
    EXPECT_TRUE(makeDue().empty());
    std::set<std::string> numbers;
    for (const Document* invoice : derivedDocuments(context, weekly)) {
        numbers.insert(invoice->number);
    }
    EXPECT_EQ(numbers.size(), 70U);
}

TEST_F(RecurringInvoicesTest, namesOccurrencesAlikeOnEveryDevice)
{
    const auto identifiers = [](RecurringLibrary& library) {
        library.monthly("2025-02-01");
        Document& recurring = library.context.edit(*RecurringInvoices::all(library.context).front());
        library.fee(recurring, 500, 1900).uuid = UUID(UUID::Bytes{1});
        library.percentDiscount(recurring, 1000).uuid = UUID(UUID::Bytes{2});
        std::vector<UUID> found;
        for (const Document* invoice : library.makeDue()) {
            found.push_back(*invoice->uuid);
            found.push_back(*sortedItems(library.context, *invoice).front()->uuid);
            found.push_back(*sortedFees(library.context, *invoice).front()->uuid);
            found.push_back(*sortedDiscounts(library.context, *invoice).front()->uuid);
        }
        return found;
    };
    RecurringLibrary other;
    other.uuids.next(); // its random identifiers are different ones
    other.calendar = Calendar("America/Los_Angeles");
    const std::vector<UUID> here = identifiers(*this);
    EXPECT_EQ(here, identifiers(other));
    EXPECT_EQ(std::set(here.begin(), here.end()).size(), 8U);
    // Python: uuid5(UUID("6F9619FF-8B86-D011-B42D-00C04FC964FF"), "invoice 2025-02-01")
    EXPECT_EQ(here.front().text(), "B39EDA06-B596-53CF-9F48-9EFD8ED10CB8");
}

TEST_F(RecurringInvoicesTest, copiesTheTemplateForItsClientAsOfToday)
{
    client.languageCode = "de";
    business.countryCode = "DE";
    Document& recurring = monthly("2025-03-01");
    recurring.languageCode = "en";
    recurring.introText = "For {month_year}.";
    recurring.tags = "support";
    recurring.taxExempt = true;
    recurring.taxExemptNote = "Small business";
    setTaxTreatment(context, recurring, TaxTreatment::exempt);
    LineItem& part = line(recurring, 2500, 300, 700);
    part.parent = sortedItems(context, recurring).front()->ref;
    part.details = "{period_start} to {period_end}";
    fixedDiscount(recurring, 100).title = "{year}";
    const Document& invoice = *makeDue().at(0);
    EXPECT_EQ(invoice.title, "Support März");
    EXPECT_EQ(invoice.introText, "For März 2025.");
    EXPECT_EQ(invoice.tags, "support");
    EXPECT_EQ(invoice.statusRaw, 0);
    EXPECT_EQ(invoice.madeBy, "");
    EXPECT_EQ(invoice.sourceDocumentID, recurring.uuid);
    EXPECT_EQ(dayOf(invoice.dueDate), "2025-03-11");
    EXPECT_EQ(taxTreatment(context, invoice), TaxTreatment::exempt);
    EXPECT_EQ(invoice.cachedTotalMinorUnits, 10'000 + 750 - 100);
    const std::vector<const LineItem*> lines = linesInOrder(context, invoice);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[1]->parent, lines[0]->ref);
    EXPECT_EQ(lines[1]->details, "01.03.2025 to 31.03.2025");
    EXPECT_EQ(sortedDiscounts(context, invoice).front()->title, "2025");
    EXPECT_EQ(recurring.title, "Support {month}") << "the template keeps its placeholders";
}

TEST_F(RecurringInvoicesTest, statesTheServicePeriod)
{
    const std::tuple<BillingPeriod, DeliveryKind, DeliveryKind, std::string, std::string, std::string> cases[] = {
        {BillingPeriod::none, DeliveryKind::serviceDate, DeliveryKind::none, "none", "none", "Support March"},
        {BillingPeriod::current,
         DeliveryKind::none,
         DeliveryKind::servicePeriod,
         "2025-03-01",
         "2025-03-31",
         "Support March"},
        {BillingPeriod::previous,
         DeliveryKind::deliveryDate,
         DeliveryKind::deliveryPeriod,
         "2025-02-01",
         "2025-02-28",
         "Support February"},
    };
    for (const auto& [period, usual, stated, first, last, title] : cases) {
        Document& recurring = monthly("2025-03-01");
        recurring.uuid = uuids.next();
        recurring.billingPeriodRaw = id(period);
        recurring.deliveryKindRaw = static_cast<std::int16_t>(usual);
        recurring.deliveryStart = on("2019-12-31");
        const Document& invoice = *makeDue().at(0);
        EXPECT_EQ(deliveryKind(invoice), stated) << title;
        EXPECT_EQ(dayOf(invoice.deliveryStart), first) << title;
        EXPECT_EQ(dayOf(invoice.deliveryEnd), last) << title;
        EXPECT_EQ(invoice.title, title);
    }
}

TEST_F(RecurringInvoicesTest, sendsWhatIsToBeSent)
{
    monthly("2025-03-01").recurringCreatesSent = true;
    const Document& invoice = *makeDue().at(0);
    EXPECT_EQ(status(invoice), DocumentStatus::sent);
    EXPECT_EQ(invoice.sentAt, clock.now());
}

TEST_F(RecurringInvoicesTest, oneBrokenTemplateHoldsUpNoOther)
{
    Document& orphan = monthly("2025-01-01"); // comes first
    orphan.uuid = uuids.next();
    orphan.title = "Lost";
    orphan.client = {};
    Document& foreign = monthly("2025-01-15");
    foreign.uuid = uuids.next();
    foreign.recurrenceUnitRaw = 7;
    Document& nameless = monthly("2025-01-20");
    nameless.uuid.reset();
    Document& sound = monthly("2025-02-01");
    context.save();

    const RecurringInvoices::Preview preview = RecurringInvoices::preview(context, clock.now(), 60, calendar);
    ASSERT_EQ(preview.due.size(), 2U);
    EXPECT_EQ(preview.due[1].number + isoText(preview.due[1].day), "INV-2025-0022025-03-01");
    EXPECT_EQ(preview.due[1].recurring, &sound);
    EXPECT_FALSE(context.hasChanges()) << "nothing of it stays";
    EXPECT_EQ(context.count<Document>("kindRaw = 0"), 0);
    const auto obstacle = [this](const Document& recurring) {
        const auto found = RecurringInvoices::obstacle(context, recurring, clock.now(), calendar);
        return found ? found->message() : "";
    };
    EXPECT_EQ(obstacle(orphan), preview.failures.at(0).message());
    EXPECT_EQ(obstacle(sound), "");
    EXPECT_EQ(dayOf(sound.nextIssueDate), "2025-02-01") << "looking is not making";
    orphan.isPaused = true;
    EXPECT_EQ(obstacle(orphan), "") << "it owes nothing";
    orphan.isPaused = false;
    context.save();

    const RecurringInvoices::Run run = RecurringInvoices::catchUp(context, clock.now(), 60, calendar);
    EXPECT_EQ(told(run.made), (Told{"INV-2025-001 2025-02-01", "INV-2025-002 2025-03-01"}));
    ASSERT_EQ(preview.failures.size(), run.failures.size());
    ASSERT_EQ(run.failures.size(), 3U);
    EXPECT_EQ(run.failures[0].reason(), Reason::noClient);
    EXPECT_EQ(run.failures[0].templateID(), orphan.uuid);
    EXPECT_EQ(run.failures[0].message(), preview.failures[0].message());
    EXPECT_EQ(
        run.failures[0].message(),
        "“Lost”: the invoice of 2025-01-01 can't be made. Its client was deleted. Choose a client for it, or delete "
        "it.");
    EXPECT_EQ(run.failures[1].reason(), Reason::noSchedule);
    EXPECT_EQ(run.failures[2].reason(), Reason::noIdentifier);
    EXPECT_EQ(dayOf(orphan.nextIssueDate), "2025-01-01") << "it waits to be mended";
    EXPECT_EQ(dayOf(sound.nextIssueDate), "2025-04-01");
    EXPECT_FALSE(context.hasChanges());
}

TEST_F(RecurringInvoicesTest, anErrorEndsTheRunAndKeepsWhatWasMade)
{
    Document& first = monthly("2024-12-01");
    Document& second = monthly("2025-02-01");
    second.uuid = uuids.next();
    second.title = "Broken";
    line(second, 1'000'000'000'000, 10'000'000'000'000, 0); // beyond any document's limits
    context.save();
    try {
        makeDue();
        ADD_FAILURE() << "nothing was refused";
    } catch (const RecurringError& error) {
        EXPECT_EQ(error.reason(), Reason::notMade);
        EXPECT_EQ(error.templateID(), second.uuid);
        EXPECT_TRUE(error.message().starts_with("“Broken”: the invoice of 2025-02-01 can't be made. "))
            << error.message();
    }
    EXPECT_EQ(derivedDocuments(context, first).size(), 4U);
    EXPECT_EQ(derivedDocuments(context, second).size(), 0U);
    EXPECT_EQ(second.recurrenceCount, 0);
    business.invoiceNumberFormat = "without a counter";
    context.edit(first).nextIssueDate = on("2025-03-05");
    context.save();
    const RecurringInvoices::Run run = RecurringInvoices::catchUp(context, clock.now(), 60, calendar);
    EXPECT_EQ(run.failures.size(), 2U);
    EXPECT_TRUE(run.made.empty());
}

/// A run with nothing due is made every day: it must not read through all documents, nor through all templates.
TEST_F(RecurringInvoicesTest, findsWhatIsDueByItsIndex)
{
    monthly("2025-04-01");
    context.save();
    std::set<std::string> statements;
    const auto note = [](unsigned /*event*/, void* found, void* handle, void* /*text*/) {
        static_cast<std::set<std::string>*>(found)->insert(sqlite3_sql(static_cast<sqlite3_stmt*>(handle)));
        return 0;
    };
    Connection& connection = store.connection();
    sqlite3_trace_v2(connection.handle(), SQLITE_TRACE_STMT, note, &statements);
    EXPECT_TRUE(makeDue().empty());
    sqlite3_trace_v2(connection.handle(), 0, nullptr, nullptr);
    std::string plans;
    for (const std::string& sql : statements) {
        if (sql.find("Document") != std::string::npos) {
            plans += queryPlan(connection, sql);
        }
    }
    EXPECT_EQ(plans, "SEARCH Document USING INDEX Document_template (nextIssueDate<?)\n");
}

TEST_F(RecurringInvoicesTest, todayIsTheDayOfTheCalendar)
{
    calendar = Calendar("Pacific/Auckland");
    Document& recurring = monthly("2025-03-08");
    recurring.recurrenceAnchorDay = 8;
    clock.set(calendar.startOfDay(*parseISODate("2025-03-08")) - std::chrono::milliseconds(1));
    EXPECT_TRUE(makeDue().empty());
    clock.set(clock.now() + std::chrono::milliseconds(1));
    EXPECT_EQ(makeDue().size(), 1U);
    clock.set(clock.now() - std::chrono::hours(1000)); // a clock set back
    EXPECT_TRUE(makeDue().empty());
    EXPECT_EQ(dayOf(recurring.nextIssueDate), "2025-04-08");
}

} // namespace
} // namespace Quillary
