#include "QuillaryCore/Billing/OverdueInvoices.h"

#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Billing/Payments.h"
#include "QuillaryCore/Model/Business.h"
#include "tests/Model/TestLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Quillary {

namespace {

using testing::ElementsAre;

class OverdueInvoicesTest : public testing::Test, protected TestLibrary
{
protected:
    OverdueInvoicesTest()
    {
        business.currencyCode = "EUR";
        business.lateFeeKindRaw = 2; // a percentage, from the second reminder on
        business.lateFeeBasisPoints = 500;
        business.reminderPaymentDays = 7;
    }

    [[nodiscard]] Instant day(int daysFromToday) const { return calendar.addingDays(start, daysFromToday); }

    Document& invoice(std::string_view number, int dueInDays, DocumentStatus status = DocumentStatus::sent)
    {
        Document& made = document(DocumentKind::invoice, status);
        made.number = number;
        made.dueDate = day(dueInDays);
        line(made, 10'000);
        updateCachedTotals(context, made);
        return made;
    }

    /// "number: days, amount due, step, next level, next fee"
    std::vector<std::string> listed()
    {
        std::vector<std::string> result;
        for (const OverdueInvoice& each : overdueInvoices(context, business, start, calendar)) {
            constexpr std::string_view steps[] = {"remind", "wait", "mark paid"};
            EXPECT_EQ(displayStatus(*each.document, start, calendar), DisplayStatus::overdue);
            EXPECT_EQ(each.reminder.payBy, day(7));
            result.push_back(each.document->number + ": " + std::to_string(each.daysOverdue) + ", " +
                             std::to_string(each.amountDueMinorUnits) + ", " +
                             std::string(steps[static_cast<std::size_t>(each.next)]) + ", " +
                             std::to_string(static_cast<int>(each.reminder.level)) + ", " +
                             std::to_string(each.reminder.feeMinorUnits));
        }
        return result;
    }

    Calendar calendar{"Pacific/Auckland"};
    Business business;
};

} // namespace

TEST_F(OverdueInvoicesTest, saysWhatComesNext)
{
    invoice("yesterday", -1);
    invoice("today", 0); // the due date ends with the day
    invoice("draft", -9, DocumentStatus::draft);
    invoice("paid", -9, DocumentStatus::paid);
    invoice("quote", -9).kindRaw = 1;
    invoice("unreadable kind", -2).kindRaw = 9;
    invoice("no due date", -9).dueDate.reset();
    Document& settled = invoice("settled", -3);
    settled.cachedPaidMinorUnits = 10'000; // still marked as sent
    const Document& waiting = invoice("waiting", -30);
    addReminder(context, waiting, ReminderLevel::first, 0, day(-7), start);
    const Document& ripe = invoice("ripe", -20);
    addReminder(context, ripe, ReminderLevel::first, 200, day(-8), day(-1));
    recordPayment(context, ripe, {.amountMinorUnits = 5'000, .date = day(-5), .note = {}});
    EXPECT_THAT(listed(),
                ElementsAre("waiting: 30, 10000, wait, 2, 500",
                            "ripe: 20, 5200, remind, 2, 260",
                            "settled: 3, 0, mark paid, 1, 0",
                            "unreadable kind: 2, 10000, remind, 1, 0",
                            "yesterday: 1, 10000, remind, 1, 0"));
}

} // namespace Quillary
