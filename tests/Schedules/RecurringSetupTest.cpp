#include "QuillaryCore/Schedules/RecurringSetup.h"

#include "QuillaryCore/Documents/DocumentError.h"
#include "QuillaryCore/Model/DeliveryKind.h"
#include "QuillaryCore/Schedules/RecurringTemplate.h"
#include "tests/Schedules/RecurringLibrary.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>

namespace Quillary {
namespace {

using Reason = DocumentError::Reason;

CalendarDate date(std::string_view text)
{
    return parseISODate(text).value();
}

struct RecurringSetupTest : testing::Test, RecurringLibrary
{
    Document& invoiceOf(std::string_view day)
    {
        Document& made = invoice("INV-1");
        made.issueDate = on(day);
        made.title = "Support";
        line(made, 1000, 5000, 1900);
        return made;
    }

    /// The schedule and its next two dates.
    [[nodiscard]] std::string told(const Document& recurring) const
    {
        std::string text = RecurringTemplate::summary(recurring, calendar);
        for (const CalendarDate day : RecurringTemplate::nextDates(recurring, 2, calendar)) {
            text += " " + isoText(day);
        }
        return text;
    }

    /// Why it was refused. No value: it wasn't.
    template <class Work>
    std::optional<Reason> refusal(const Work& work)
    {
        try {
            work();
        } catch (const DocumentError& error) {
            return error.reason();
        }
        return std::nullopt;
    }

    CalendarDate today = date("2025-03-07");
};

TEST_F(RecurringSetupTest, beginsAfterTheInvoiceItIsMadeFrom)
{
    struct Case
    {
        std::string_view invoice;
        RecurringChoices choices;
        std::string_view told; ///< on 2025-03-07
    };
    const Case cases[] = {
        {"2025-02-15", {}, "Every month on the 15th 2025-03-15 2025-04-15"},
        {"2025-02-07", {}, "Every month on the 7th 2025-03-07 2025-04-07"},  // today's own is not past
        {"2024-05-31", {}, "Every month on the 31st 2025-03-31 2025-04-30"}, // what passed is not made up for unasked
        {"2025-06-30", {}, "Every month on the 30th 2025-07-30 2025-08-30"}, // a draft that is dated ahead
        {"2025-02-15", {.anchorDay = 31}, "Every month on the 31st 2025-03-31 2025-04-30"},
        {"2025-02-15", {.interval = 3, .anchorDay = 1}, "Every 3 months on the 1st 2025-05-01 2025-08-01"},
        {"2025-02-20", {.unit = RecurrenceUnit::week, .interval = 2}, "Every 2 weeks 2025-03-20 2025-04-03"},
        {"2024-02-29", {.unit = RecurrenceUnit::year}, "Every year on the 29th 2026-02-28 2027-02-28"},
        {"2025-02-15", {.next = date("2025-01-31")}, "Every month on the 31st 2025-01-31 2025-02-28"}, // asked for
        {"2025-02-15",
         {.unit = RecurrenceUnit::year, .anchorDay = 1, .next = date("2025-07-15")},
         "Every year on the 1st 2025-08-01 2026-08-01"},
        {"2025-02-15",
         {.end = RecurringEnd{.rule = RecurrenceEnd::afterCount, .count = 1}},
         "Every month on the 15th, 0 of 1 made 2025-03-15"},
        {"2025-02-15",
         {.end = RecurringEnd{.rule = RecurrenceEnd::onDate, .lastDay = date("2025-03-15")}},
         "Every month on the 15th, until 2025-03-15 2025-03-15"},
    };
    for (const Case& example : cases) {
        EXPECT_EQ(told(RecurringSetup::create(desk(), invoiceOf(example.invoice), example.choices, today)),
                  example.told)
            << example.invoice;
    }
}

TEST_F(RecurringSetupTest, repeatsTheInvoiceWithItsTerms)
{
    Document& model = invoiceOf("2025-03-01");
    model.deliveryKindRaw = static_cast<std::int16_t>(DeliveryKind::deliveryPeriod);
    model.deliveryStart = on("2025-02-01");
    model.deliveryEnd = on("2025-02-28");
    model.paymentTermsDays = 10;
    const Document& made =
        RecurringSetup::create(desk(), model, {.title = "Support {month}", .createsSent = true}, date("2025-03-01"));
    EXPECT_EQ(made.number, "");
    EXPECT_EQ(made.cachedTotalMinorUnits, 5950);
    EXPECT_EQ(billingPeriod(made), BillingPeriod::previous) << "as the invoice, which bills the month before";
    clock.set(on("2025-04-01"));
    const std::vector<const Document*> invoices = makeDue();
    ASSERT_EQ(invoices.size(), 1U);
    EXPECT_EQ(invoices.front()->title, "Support March");
    EXPECT_EQ(deliveryKind(*invoices.front()), DeliveryKind::deliveryPeriod);
    EXPECT_EQ(dayOf(invoices.front()->deliveryStart), "2025-03-01");
    EXPECT_EQ(dayOf(invoices.front()->dueDate), "2025-04-11");
    EXPECT_EQ(invoices.front()->statusRaw, 1);
    EXPECT_EQ(model.title, "Support");
}

TEST_F(RecurringSetupTest, changesWhatWasChosenAndNothingElse)
{
    const std::pair<RecurringChoices, std::string_view> cases[] = {
        {{.title = "New"}, "Every month on the 15th 2025-03-15 2025-04-15"},
        {{.next = date("2025-03-20")}, "Every month on the 15th 2025-03-20 2025-04-15"}, // one date is moved
        {{.anchorDay = 15}, "Every month on the 15th 2025-03-20 2025-04-15"},            // as it is already
        {{.anchorDay = 31}, "Every month on the 31st 2025-03-31 2025-04-30"},
        {{.anchorDay = 1}, "Every month on the 1st 2025-04-01 2025-05-01"},
        {{.unit = RecurrenceUnit::quarter}, "Every quarter on the 1st 2025-04-01 2025-07-01"},
        {{.unit = RecurrenceUnit::week}, "Every week 2025-04-01 2025-04-08"},
        {{.interval = 4, .next = date("2025-04-02")}, "Every 4 weeks 2025-04-02 2025-04-30"},
        {{.unit = RecurrenceUnit::month, .interval = 1}, "Every month on the 2nd 2025-04-02 2025-05-02"},
        {{.end = RecurringEnd{.rule = RecurrenceEnd::afterCount, .count = 1}},
         "Every month on the 2nd, 0 of 1 made 2025-04-02"},
        {{.end = RecurringEnd{}}, "Every month on the 2nd 2025-04-02 2025-05-02"},
    };
    const Document& recurring = RecurringSetup::create(desk(), invoiceOf("2025-02-15"), {}, today);
    for (const auto& [choices, expected] : cases) {
        RecurringSetup::change(desk(), recurring, choices);
        EXPECT_EQ(told(recurring), expected);
    }
    EXPECT_EQ(recurring.title, "New");
    EXPECT_FALSE(recurring.recurringCreatesSent);
    context.edit(recurring).recurrenceUnitRaw = 7; // of a newer version
    context.save();
    EXPECT_EQ(refusal([&] { RecurringSetup::change(desk(), recurring, {.interval = 2}); }), Reason::badSchedule);
    RecurringSetup::change(desk(), recurring, {.unit = RecurrenceUnit::year});
    EXPECT_EQ(told(recurring), "Every year on the 2nd 2025-04-02 2026-04-02");
}

TEST_F(RecurringSetupTest, refusesWhatCannotBe)
{
    Document& model = invoiceOf("2025-02-15");
    const RecurringEnd past{.rule = RecurrenceEnd::onDate, .lastDay = date("2025-03-14")};
    const RecurringChoices cases[] = {
        {.interval = 0},
        {.interval = 1000},
        {.anchorDay = 32},
        {.anchorDay = 0},
        {.unit = RecurrenceUnit::week, .anchorDay = 5},
        {.end = RecurringEnd{.rule = RecurrenceEnd::afterCount, .count = 0}},
        {.end = RecurringEnd{.rule = RecurrenceEnd::afterCount, .count = 40'000}},
        {.end = RecurringEnd{.rule = RecurrenceEnd::onDate}},
        {.end = past},
    };
    context.save();
    for (const RecurringChoices& choices : cases) {
        EXPECT_EQ(refusal([&] { RecurringSetup::create(desk(), model, choices, today); }), Reason::badSchedule);
    }
    context.edit(model).issueDate = on("9999-12-31");
    EXPECT_EQ(refusal([&] { RecurringSetup::create(desk(), model, {}, today); }), Reason::badSchedule);
    const Document& quote = document(DocumentKind::quote);
    EXPECT_EQ(refusal([&] { RecurringSetup::create(desk(), quote, {}, today); }), Reason::wrongKind);
    EXPECT_EQ(refusal([&] { RecurringSetup::change(desk(), model, {.title = ""}); }), Reason::wrongKind);
    Document& empty = invoice("INV-2");
    EXPECT_EQ(refusal([&] { RecurringSetup::create(desk(), empty, {}, today); }), Reason::isNeeded);
    context.edit(model).client = {};
    EXPECT_EQ(refusal([&] { RecurringSetup::create(desk(), model, {}, today); }), Reason::isNeeded);
    EXPECT_TRUE(RecurringInvoices::all(context).empty());
}

} // namespace
} // namespace Quillary
