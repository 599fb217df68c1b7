#include "QuillaryCore/Billing/Reminders.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Billing/LateFees.h"
#include "QuillaryCore/Billing/Payments.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/LateFeeKind.h"
#include "QuillaryCore/Model/Payment.h"
#include "QuillaryCore/Model/Reminder.h"
#include "tests/Model/TestLibrary.h"

#include <gtest/gtest.h>

#include <limits>
#include <string_view>
#include <vector>

namespace Quillary {

namespace {

class RemindersTest : public testing::Test, protected TestLibrary
{
protected:
    Document& sentInvoice()
    {
        Document& invoice = document(DocumentKind::invoice, DocumentStatus::sent);
        line(invoice, 10000);
        return invoice;
    }

    Reminder& remind(const Document& invoice, ReminderLevel level, std::int64_t fee)
    {
        return addReminder(context, invoice, level, fee, start, start + std::chrono::days(7));
    }
};

Business charging(LateFeeKind kind, std::int64_t fixed, std::int32_t basisPoints, std::int16_t fromLevel)
{
    Business business;
    business.currencyCode = "EUR";
    business.lateFeeKindRaw = static_cast<std::int16_t>(kind);
    business.lateFeeMinorUnits = fixed;
    business.lateFeeBasisPoints = basisPoints;
    business.lateFeeFromLevel = fromLevel;
    return business;
}

} // namespace

TEST(LateFeeTest, passesTheGatesInOrder)
{
    constexpr auto first = ReminderLevel::first;
    constexpr auto second = ReminderLevel::second;
    constexpr auto last = ReminderLevel::final;
    struct Case
    {
        std::string_view reason;
        Business business;
        ReminderLevel level;
        std::int64_t amountDue;
        std::string_view currency;
        std::int64_t expected;
    };
    const Business percent = charging(LateFeeKind::percentage, 0, 500, 0);
    const Business fixed = charging(LateFeeKind::fixed, 1000, 0, 1);
    const Case cases[] = {
        {"who never chose charges from the second reminder", percent, first, 10001, "EUR", 0},
        {"500.05 is rounded down", percent, second, 10001, "EUR", 500},
        {"500.5 is rounded up", percent, second, 10010, "EUR", 501},
        {"a percentage knows no currency", percent, last, 10010, "USD", 501},
        {"from the first", charging(LateFeeKind::percentage, 0, 500, 1), first, 10000, "EUR", 500},
        {"only the final", charging(LateFeeKind::percentage, 0, 500, 3), second, 10000, "EUR", 0},
        {"the final", charging(LateFeeKind::percentage, 0, 500, 3), last, 10000, "EUR", 500},
        {"an unreadable first level is the second",
         charging(LateFeeKind::percentage, 0, 500, 9),
         first,
         10000,
         "EUR",
         0},
        {"nothing due", fixed, last, 0, "EUR", 0},
        {"overpaid", fixed, last, -5, "EUR", 0},
        {"a fixed fee", fixed, first, 1, "eur", 1000},
        {"in no other currency", fixed, first, 1, "USD", 0},
        {"a negative fee counts as none", charging(LateFeeKind::fixed, -1, 0, 1), first, 1, "EUR", 0},
        {"a negative rate too", charging(LateFeeKind::percentage, 0, -500, 1), first, 10000, "EUR", 0},
        {"no fees", charging(LateFeeKind::none, 1000, 500, 1), last, 10000, "EUR", 0},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(lateFee(row.business, row.level, row.amountDue, row.currency), row.expected) << row.reason;
    }
    EXPECT_DEATH(static_cast<void>(lateFee(percent, last, std::numeric_limits<std::int64_t>::max(), "EUR")),
                 "fits 64 bits");
}

TEST_F(RemindersTest, levelsFollowTheHighest)
{
    struct Case
    {
        std::string_view reason;
        std::vector<std::int16_t> levels;
        ReminderLevel next;
        std::optional<ReminderLevel> last;
    };
    const Case cases[] = {
        {"none yet", {}, ReminderLevel::first, std::nullopt},
        {"after the first", {1}, ReminderLevel::second, ReminderLevel::first},
        {"the highest counts, not the latest", {2, 1}, ReminderLevel::final, ReminderLevel::second},
        {"a second one deleted", {1, 3}, ReminderLevel::final, ReminderLevel::final},
        {"the final repeats", {3, 3}, ReminderLevel::final, ReminderLevel::final},
        {"unreadable levels", {-4, 0}, ReminderLevel::first, std::nullopt},
    };
    for (const Case& row : cases) {
        const Document& invoice = sentInvoice();
        for (const std::int16_t level : row.levels) {
            auto& reminder = context.insert<Reminder>();
            reminder.document = invoice.ref;
            reminder.level = level;
        }
        EXPECT_EQ(nextReminderLevel(context, invoice), row.next) << row.reason;
        EXPECT_EQ(lastReminderLevel(context, invoice), row.last) << row.reason;
    }
}

TEST_F(RemindersTest, feesAreOwed)
{
    Document& invoice = sentInvoice();
    remind(invoice, ReminderLevel::first, 500);
    Reminder& second = remind(invoice, ReminderLevel::second, 1000);
    recordPayment(context, invoice, {2000, start, PaymentMethod::cash, ""});
    EXPECT_EQ(owedMinorUnits(context, invoice), 11500);
    EXPECT_EQ(amountDueMinorUnits(context, invoice), 9500);
    EXPECT_EQ(invoice.cachedLateFeesMinorUnits, 1500);

    recordPayment(context, invoice, {8500, start, PaymentMethod::cash, ""});
    EXPECT_EQ(status(invoice), DocumentStatus::sent) << "the second fee is still owed";
    deleteReminder(context, second);
    EXPECT_EQ(invoice.cachedLateFeesMinorUnits, 500);
    EXPECT_EQ(status(invoice), DocumentStatus::paid) << "nothing is left owed";
    remind(invoice, ReminderLevel::final, 100);
    EXPECT_EQ(status(invoice), DocumentStatus::sent);
}

TEST_F(RemindersTest, onlyWhatIsOwedOnASentInvoiceCanBeRemindedOf)
{
    Document& invoice = sentInvoice();
    EXPECT_TRUE(canSendReminder(context, invoice));
    invoice.kindRaw = 7;
    EXPECT_TRUE(canSendReminder(context, invoice)) << "an unreadable kind";
    invoice.kindRaw = 1;
    EXPECT_FALSE(canSendReminder(context, invoice)) << "a quote";
    invoice.kindRaw = 0;
    for (const int raw : {0, 2, 3, 9}) {
        invoice.statusRaw = static_cast<std::int16_t>(raw);
        EXPECT_FALSE(canSendReminder(context, invoice)) << raw;
    }
    recordPayment(context, invoice, {10000, start, PaymentMethod::cash, ""});
    invoice.statusRaw = 1; // still marked sent by hand
    EXPECT_FALSE(canSendReminder(context, invoice)) << "nothing is owed";
}

TEST_F(RemindersTest, proposesTheNextReminder)
{
    const Document& invoice = sentInvoice();
    Business business = charging(LateFeeKind::percentage, 0, 500, 2);
    business.reminderPaymentDays = 10;
    remind(invoice, ReminderLevel::first, 0);
    const Calendar calendar("Europe/Berlin");
    const Instant payBy = calendar.storedDay(std::chrono::year(2025) / 3 / 17);
    EXPECT_EQ(nextReminder(context, invoice, business, start, calendar),
              (ReminderDetails{.level = ReminderLevel::second, .feeMinorUnits = 500, .payBy = payBy}));
    business.reminderPaymentDays = -3;
    EXPECT_EQ(nextReminder(context, invoice, business, start, calendar).payBy,
              calendar.storedDay(std::chrono::year(2025) / 3 / 7));
}

TEST_F(RemindersTest, areRefusedWithASentence)
{
    const Calendar calendar("Europe/Berlin");
    struct Case
    {
        std::string_view expected; ///< empty: it can be sent
        DocumentKind kind = DocumentKind::invoice;
        DocumentStatus status = DocumentStatus::sent;
        std::int64_t paid = 0;
        std::int64_t fee = 0;
        int payInDays = 7;
    };
    constexpr std::int64_t tooMuch = 10'000'000'000'001;
    const Case cases[] = {
        {.expected = ""},
        {.expected = "", .fee = 1, .payInDays = 0}, // today is early enough
        {.expected = "", .paid = 9'999},
        {.expected = "Only invoices are reminded of.", .kind = DocumentKind::quote},
        {.expected = "Only invoices are reminded of.", .kind = DocumentKind::creditNote},
        {.expected = "Only invoices are reminded of.", .kind = DocumentKind::recurring},
        {.expected = "It is still a draft: nobody was asked to pay it yet.", .status = DocumentStatus::draft},
        {.expected = "It is paid.", .status = DocumentStatus::paid},
        {.expected = "It isn't marked as sent.", .status = DocumentStatus::accepted},
        {.expected = "Nothing is owed on it.", .paid = 10'000},
        {.expected = "The day to pay by has passed.", .payInDays = -1},
        {.expected = "The day to pay by lies more than ten years ahead.", .payInDays = 3651},
        {.expected = "A late fee can't be negative.", .fee = -1},
        {.expected = "The late fees of a document can be at most 100000000000.00 EUR together.", .fee = tooMuch},
    };
    for (const Case& row : cases) {
        Document& reminded = document(row.kind, row.status);
        line(reminded, 10000);
        if (row.paid != 0) { // recorded beside the rules: the invoice is still marked as sent
            auto& payment = context.insert<Payment>();
            payment.document = reminded.ref;
            payment.amountMinorUnits = row.paid;
        }
        const ReminderDetails details{.level = ReminderLevel::first,
                                      .feeMinorUnits = row.fee,
                                      .payBy = calendar.addingDays(start, row.payInDays)};
        EXPECT_EQ(checkReminder(context, reminded, details, start, calendar).value_or(""), row.expected);
        EXPECT_EQ(canSendReminder(context, reminded),
                  row.kind == DocumentKind::invoice && row.status == DocumentStatus::sent && row.paid < 10'000);
    }
}

} // namespace Quillary
