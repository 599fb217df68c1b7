#include "QuillaryCore/Billing/DueNotices.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Billing/Payments.h"
#include "tests/Model/TestLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace Quillary {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DueNoticesTest : public testing::Test, protected TestLibrary
{
protected:
    void invoice(int dueInDays, DocumentKind kind = DocumentKind::invoice, DocumentStatus status = DocumentStatus::sent)
    {
        Document& made = document(kind, status);
        made.dueDate = calendar.addingDays(start, dueInDays);
        line(made, 10'000);
        updateCachedTotals(context, made);
    }

    /// The days that they are overdue, of a look so many days from the start; the last look was before that.
    std::vector<int> told(int day, std::optional<int> lastDay)
    {
        const auto last = lastDay ? std::optional(calendar.date(calendar.addingDays(start, *lastDay))) : std::nullopt;
        std::vector<int> days;
        for (const DueNotice& notice : dueNotices(context, last, calendar.addingDays(start, day), calendar)) {
            days.push_back(notice.daysOverdue);
        }
        return days;
    }

    Calendar calendar{"Europe/Berlin"};
};

TEST_F(DueNoticesTest, tellsOfEachOnceWhenItIsDueAndOnceWhenItIsOverdue)
{
    invoice(3);
    EXPECT_THAT(told(2, 1), IsEmpty());
    EXPECT_THAT(told(3, 2), ElementsAre(0));
    EXPECT_THAT(told(3, 3), IsEmpty()) << "told today already";
    EXPECT_THAT(told(4, 3), ElementsAre(1));
    EXPECT_THAT(told(5, 4), IsEmpty()) << "it was told yesterday";
    EXPECT_THAT(told(9, 2), ElementsAre(6)) << "the machine was off on the day itself";
    EXPECT_THAT(told(3, std::nullopt), ElementsAre(0)) << "the first look ever";
    EXPECT_THAT(told(20, std::nullopt), IsEmpty()) << "old news at the first look";
    EXPECT_THAT(told(3, 8), IsEmpty()) << "the clock was set back";
}

TEST_F(DueNoticesTest, tellsOnlyOfSentInvoicesWithSomethingOpen)
{
    invoice(-1);
    invoice(0);
    invoice(0, DocumentKind::quote);
    invoice(0, DocumentKind::creditNote);
    invoice(0, DocumentKind::recurring);
    invoice(0, DocumentKind::invoice, DocumentStatus::draft);
    invoice(0, DocumentKind::invoice, DocumentStatus::paid);
    EXPECT_THAT(told(0, -1), ElementsAre(1, 0)); // the longest overdue first
}

} // namespace
} // namespace Quillary
