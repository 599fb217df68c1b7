#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Billing/Payments.h"
#include "QuillaryCore/Billing/StatusActions.h"
#include "QuillaryCore/Model/Payment.h"
#include "tests/Model/TestLibrary.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace Quillary {

namespace {

constexpr std::chrono::sys_days seventhOfMarch = std::chrono::year(2025) / 3 / 7;

std::string actionText(const Document& document)
{
    std::string text;
    for (const StatusAction action : statusActions(document)) {
        text += std::string(text.empty() ? "" : ", ") + std::string(title(action, kind(document)));
    }
    return text;
}

class StatusTest : public testing::Test, protected TestLibrary
{
protected:
    /// A sent invoice over 100.00 EUR.
    Document& sentInvoice()
    {
        Document& invoice = document(DocumentKind::invoice, DocumentStatus::sent);
        line(invoice, 10000);
        updateCachedTotals(context, invoice);
        return invoice;
    }

    Payment& pay(const Document& invoice, std::int64_t amount, Instant date = start)
    {
        return recordPayment(context, invoice, {amount, date, PaymentMethod::card, "note"});
    }
};

} // namespace

TEST(DisplayStatusTest, followsKindDatesAndAmounts)
{
    using std::chrono::days;
    struct Case
    {
        std::string_view reason;
        int kind;
        int status;
        std::optional<int> due; ///< days from today, at noon
        std::int64_t paid;
        std::string_view expected;
        std::int64_t overdue;
    };
    const Case cases[] = {
        {"an unreadable status is a draft", 0, 9, -1, 0, "draft", 1},
        {"due yesterday", 0, 1, -1, 0, "overdue", 1},
        {"due today", 0, 1, 0, 0, "sent", 0},
        {"due tomorrow, half paid", 0, 1, 1, 5000, "partlyPaid", 0},
        {"due a week ago, half paid", 0, 1, -7, 5000, "overdue", 7},
        {"paid, past its date", 0, 2, -7, 10000, "paid", 7},
        {"without a due date", 0, 1, std::nullopt, 0, "sent", 0},
        {"overpaid but marked sent", 0, 1, 1, 12000, "sent", 0},
        {"an unreadable kind is an invoice", 7, 1, -1, 0, "overdue", 1},
        {"a credit note is never overdue", 2, 1, -1, 0, "sent", 1},
        {"nor partly paid", 2, 1, std::nullopt, 5000, "sent", 0},
    };
    const Calendar calendar("Europe/Berlin");
    for (const Case& row : cases) {
        Document document;
        document.kindRaw = static_cast<std::int16_t>(row.kind);
        document.statusRaw = static_cast<std::int16_t>(row.status);
        document.cachedTotalMinorUnits = 10000;
        document.cachedPaidMinorUnits = row.paid;
        if (row.due) {
            document.dueDate = TestLibrary::start + days(*row.due);
        }
        // From the first to the last minute of the day in Berlin.
        for (const Instant today : {Instant(seventhOfMarch - std::chrono::hours(1)),
                                    Instant(seventhOfMarch + std::chrono::hours(22) + std::chrono::minutes(59))}) {
            EXPECT_EQ(rawText(displayStatus(document, today, calendar)), row.expected) << row.reason;
            EXPECT_EQ(daysOverdue(document, today, calendar), row.overdue) << row.reason;
        }
    }
}

TEST(DisplayStatusTest, letsAQuoteLiveThroughItsLastDay)
{
    struct Case
    {
        DocumentStatus status;
        int validUntil; ///< days from today
        DisplayStatus expected;
    };
    const Case cases[] = {
        {DocumentStatus::sent, 0, DisplayStatus::sent},
        {DocumentStatus::sent, -1, DisplayStatus::expired},
        {DocumentStatus::accepted, -1, DisplayStatus::accepted},
        {DocumentStatus::declined, -1, DisplayStatus::declined},
        {DocumentStatus::draft, -1, DisplayStatus::draft},
    };
    const Calendar calendar("Pacific/Auckland");
    const Instant today = calendar.startOfDay(TestLibrary::start);
    for (const Case& row : cases) {
        Document quote;
        quote.kindRaw = static_cast<std::int16_t>(DocumentKind::quote);
        quote.statusRaw = static_cast<std::int16_t>(row.status);
        quote.validUntil = today + std::chrono::days(row.validUntil);
        quote.dueDate = today - std::chrono::days(9); // a quote has none; one left over must not matter
        EXPECT_EQ(displayStatus(quote, today, calendar), row.expected) << row.validUntil;
    }
}

TEST(DisplayStatusTest, countsCalendarDaysThroughAClockChange)
{
    const Calendar calendar("Europe/Berlin"); // forward on 30 March 2025
    Document invoice;
    invoice.statusRaw = 1;
    invoice.dueDate = calendar.startOfDay(std::chrono::year(2025) / 3 / 30);
    const Instant nextDay = calendar.startOfDay(std::chrono::year(2025) / 3 / 31);
    EXPECT_EQ(daysOverdue(invoice, nextDay, calendar), 1); // though only 23 hours have passed
    EXPECT_EQ(displayStatus(invoice, nextDay, calendar), DisplayStatus::overdue);
    EXPECT_EQ(displayStatus(invoice, nextDay - std::chrono::milliseconds(1), calendar), DisplayStatus::sent);
}

TEST(DisplayStatusTest, roundTripsItsNames)
{
    for (const DisplayStatus status : allDisplayStatuses) {
        EXPECT_EQ(displayStatusFromRaw(rawText(status)), status);
    }
    EXPECT_EQ(displayStatusFromRaw("open"), std::nullopt);
    EXPECT_EQ(title(DisplayStatus::paid, DocumentKind::creditNote), "Refunded");
    EXPECT_EQ(title(DisplayStatus::paid, std::nullopt), "Paid");
}

TEST_F(StatusTest, paymentsDecide)
{
    Document& invoice = sentInvoice();
    pay(invoice, 4000, start + std::chrono::days(9));
    EXPECT_EQ(status(invoice), DocumentStatus::sent);
    EXPECT_EQ(invoice.cachedPaidMinorUnits, 4000);

    Payment& second = pay(invoice, 6000, start + std::chrono::days(2));
    EXPECT_EQ(status(invoice), DocumentStatus::paid);
    EXPECT_EQ(invoice.paidAt, start + std::chrono::days(9)) << "the day of the last payment, not of the last entered";
    EXPECT_EQ(second.method, "card");

    deletePayment(context, second);
    EXPECT_EQ(status(invoice), DocumentStatus::sent);
    EXPECT_EQ(invoice.paidAt, std::nullopt);
    EXPECT_EQ(amountDueMinorUnits(context, invoice), 6000);

    pay(invoice, 7000);
    EXPECT_EQ(status(invoice), DocumentStatus::paid);
    EXPECT_EQ(amountDueMinorUnits(context, invoice), -1000) << "overpaid";

    removePayments(context, invoice);
    EXPECT_EQ(status(invoice), DocumentStatus::sent);
    EXPECT_EQ(invoice.cachedPaidMinorUnits, 0);
    EXPECT_EQ(context.count<Payment>(""), 0);
}

TEST_F(StatusTest, paymentsChangedByHandAreTakenUp)
{
    Document& invoice = sentInvoice();
    Payment& payment = pay(invoice, 10000);
    payment.date = start + std::chrono::days(3);
    refreshPayments(context, invoice);
    EXPECT_EQ(invoice.paidAt, start + std::chrono::days(3));
    payment.date.reset(); // damaged: the day it was entered stands in
    refreshPayments(context, invoice);
    EXPECT_EQ(invoice.paidAt, start);
    payment.amountMinorUnits = 9999;
    refreshPayments(context, invoice);
    EXPECT_EQ(status(invoice), DocumentStatus::sent);
}

TEST_F(StatusTest, paymentsOnADraftWaitUntilItIsSent)
{
    Document& invoice = sentInvoice();
    invoice.statusRaw = 0;
    pay(invoice, 10000);
    EXPECT_EQ(status(invoice), DocumentStatus::draft);
    apply(context, invoice, StatusAction::markSent, start);
    EXPECT_EQ(status(invoice), DocumentStatus::paid);
    EXPECT_EQ(invoice.sentAt, start);
}

TEST_F(StatusTest, anInvoiceOverNothingStaysSentUntilItIsMarked)
{
    Document& invoice = document(DocumentKind::invoice, DocumentStatus::sent);
    refreshPayments(context, invoice);
    EXPECT_EQ(status(invoice), DocumentStatus::sent);
    apply(context, invoice, StatusAction::markPaid, start);
    EXPECT_EQ(status(invoice), DocumentStatus::paid);
    EXPECT_EQ(invoice.paidAt, start);
    EXPECT_EQ(context.count<Payment>(""), 0);
}

TEST_F(StatusTest, cachedAmountsAreWrittenOnlyWhenTheyChange)
{
    Document& invoice = document();
    LineItem& item = line(invoice, 10000, 1900);
    item.quantityThousandths = -2000;
    updateCachedTotals(context, invoice);
    EXPECT_EQ(invoice.cachedNetMinorUnits, -20000);
    EXPECT_EQ(invoice.cachedTotalMinorUnits, -23800);
    context.save();
    updateCachedTotals(context, invoice);
    refreshPayments(context, invoice);
    EXPECT_FALSE(context.hasChanges());
}

TEST_F(StatusTest, sumsPaymentsOfAPeriod)
{
    const Document& invoice = sentInvoice();
    pay(invoice, 1, start - std::chrono::milliseconds(1));
    pay(invoice, 20, start);
    pay(invoice, 300, start + std::chrono::days(1) - std::chrono::milliseconds(1));
    pay(invoice, 4000, start + std::chrono::days(1));
    pay(invoice, 50000).date.reset();
    EXPECT_EQ(amountPaid(context, invoice, start, start + std::chrono::days(1)), 320);
}

TEST_F(StatusTest, actionsFollowKindAndStatus)
{
    struct Case
    {
        int kind;
        int status;
        std::string_view expected;
    };
    const Case cases[] = {
        {0, 0, "Mark as Sent, Mark as Paid"},
        {0, 1, "Mark as Paid, Back to Draft"},
        {0, 2, "Mark as Unpaid"},
        {0, 3, "Reopen"},
        {0, 9, "Mark as Sent, Mark as Paid"},
        {7, 1, "Mark as Paid, Back to Draft"},
        {1, 0, "Mark as Sent"},
        {1, 1, "Mark as Accepted, Mark as Declined, Back to Draft"},
        {1, 3, "Reopen"},
        {1, 4, "Reopen"},
        {2, 0, "Mark as Sent"},
        {2, 1, "Mark as Refunded, Back to Draft"},
        {2, 2, "Mark as Not Refunded"},
        {3, 0, ""},
        {3, 1, ""},
    };
    for (const Case& row : cases) {
        Document document;
        document.kindRaw = static_cast<std::int16_t>(row.kind);
        document.statusRaw = static_cast<std::int16_t>(row.status);
        EXPECT_EQ(actionText(document), row.expected) << row.kind << " " << row.status;
    }
    Document paidInPart = sentInvoice();
    paidInPart.cachedPaidMinorUnits = 1;
    EXPECT_EQ(actionText(paidInPart), "Mark as Paid");
    Document reminded = sentInvoice();
    reminded.cachedLateFeesMinorUnits = 1;
    EXPECT_EQ(actionText(reminded), "Mark as Paid");
}

TEST_F(StatusTest, markingPaidRecordsWhatIsDue)
{
    Document& invoice = sentInvoice();
    invoice.statusRaw = 0;
    pay(invoice, 4000);
    const Instant later = start + std::chrono::days(1);
    apply(context, invoice, StatusAction::markPaid, later);
    EXPECT_EQ(status(invoice), DocumentStatus::paid);
    EXPECT_EQ(invoice.sentAt, later);
    EXPECT_EQ(invoice.paidAt, later);
    EXPECT_EQ(amountPaid(context, invoice, later, later + std::chrono::days(1)), 6000);

    apply(context, invoice, StatusAction::markUnpaid, later);
    EXPECT_EQ(status(invoice), DocumentStatus::sent);
    EXPECT_EQ(invoice.paidAt, std::nullopt);
    EXPECT_EQ(paidMinorUnits(context, invoice), 0);

    apply(context, invoice, StatusAction::markDraft, later);
    EXPECT_EQ(status(invoice), DocumentStatus::draft);
    EXPECT_EQ(invoice.sentAt, std::nullopt);
}

TEST_F(StatusTest, markingPaidInventsNoRefundOfAnOverpaidInvoice)
{
    for (const DocumentStatus before : {DocumentStatus::draft, DocumentStatus::sent}) {
        Document& invoice = sentInvoice();
        invoice.statusRaw = static_cast<std::int16_t>(before);
        pay(invoice, 9000).amountMinorUnits = 12000; // changed without a word to the invoice
        apply(context, invoice, StatusAction::markPaid, start + std::chrono::days(1));
        EXPECT_EQ(status(invoice), DocumentStatus::paid);
        EXPECT_EQ(paidMinorUnits(context, invoice), 12000);
        EXPECT_EQ(invoice.paidAt, start);
    }
}

TEST_F(StatusTest, aNegativeInvoiceIsPaidBack)
{
    Document& invoice = document(DocumentKind::invoice, DocumentStatus::sent);
    line(invoice, -2500);
    apply(context, invoice, StatusAction::markPaid, start);
    EXPECT_EQ(status(invoice), DocumentStatus::paid);
    EXPECT_EQ(paidMinorUnits(context, invoice), -2500);
    deletePayment(context, *context.first<Payment>(""));
    EXPECT_EQ(status(invoice), DocumentStatus::sent);
    EXPECT_EQ(invoice.paidAt, std::nullopt);
}

TEST_F(StatusTest, aCreditNoteIsRefundedWithoutAPayment)
{
    Document& note = document(DocumentKind::creditNote, DocumentStatus::sent);
    line(note, 10000).quantityThousandths = -1000;
    updateCachedTotals(context, note);
    EXPECT_EQ(note.cachedTotalMinorUnits, -10000);
    apply(context, note, StatusAction::markPaid, start);
    EXPECT_EQ(note.paidAt, start);
    EXPECT_EQ(context.count<Payment>(""), 0);
    apply(context, note, StatusAction::markUnpaid, start);
    EXPECT_EQ(status(note), DocumentStatus::sent);
    EXPECT_EQ(note.paidAt, std::nullopt);
}

TEST_F(StatusTest, aQuoteIsDecidedAndReopened)
{
    Document& quote = document(DocumentKind::quote, DocumentStatus::sent);
    for (const auto& [action, expected] : {std::pair(StatusAction::markAccepted, DocumentStatus::accepted),
                                           std::pair(StatusAction::markDeclined, DocumentStatus::declined)}) {
        apply(context, quote, action, start);
        EXPECT_EQ(status(quote), expected);
        EXPECT_EQ(quote.decidedAt, start);
        apply(context, quote, StatusAction::reopen, start);
        EXPECT_EQ(status(quote), DocumentStatus::sent);
        EXPECT_EQ(quote.decidedAt, std::nullopt);
    }
}

TEST_F(StatusTest, refusesWhatIsNotOpen)
{
    Document& quote = document(DocumentKind::quote, DocumentStatus::sent);
    EXPECT_DEATH(apply(context, quote, StatusAction::markPaid, start), "open to its document");
    EXPECT_DEATH(pay(quote, 1), "against an invoice");
}

} // namespace Quillary
