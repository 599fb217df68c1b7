#include "QuillaryCore/Assistant/Operations/MoneyOverview.h"

#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "tests/Assistant/AssistantLibrary.h"

#include <regex>

namespace Quillary {
namespace {

class MoneyOverviewTest : public testing::Test
{
protected:
    Document& add(DocumentKind kind, DocumentStatus status, std::string number, std::int64_t total, int dueInDays = 0)
    {
        Document& document = library.context.insert<Document>();
        document.kindRaw = static_cast<std::int16_t>(kind);
        document.statusRaw = static_cast<std::int16_t>(status);
        document.number = std::move(number);
        document.currencyCode = "EUR";
        document.cachedTotalMinorUnits = total;
        document.dueDate = library.clock.now() + std::chrono::days(dueInDays);
        return document;
    }

    /// The overview's text without identifiers.
    std::string text()
    {
        const std::string all = library.call("get_money_overview", "{}").text;
        return std::regex_replace(all, std::regex(R"( \[[0-9A-F-]{36}\])"), "");
    }

    AssistantLibrary library;
};

TEST_F(MoneyOverviewTest, saysWhatIsWhereForEachCurrency)
{
    EXPECT_EQ(text(), "Nothing is open or overdue, no draft waits, and no time is unbilled.");
    using enum DocumentKind;
    add(invoice, DocumentStatus::sent, "I-1", 10000, -3);
    add(invoice, DocumentStatus::sent, "I-2", 20000, -40).cachedPaidMinorUnits = 5000;
    add(invoice, DocumentStatus::sent, "I-3", 7000, 0);
    add(invoice, DocumentStatus::sent, "I-4", 1000, 1).cachedLateFeesMinorUnits = 500;
    add(invoice, DocumentStatus::paid, "I-5", 9900);
    add(invoice, DocumentStatus::draft, "I-6", 4200);
    add(creditNote, DocumentStatus::sent, "C-1", -2500);
    add(creditNote, DocumentStatus::paid, "C-2", -100);
    add(quote, DocumentStatus::sent, "Q-1", 99900);
    add(recurring, DocumentStatus::draft, "R-1", 100);
    add(invoice, DocumentStatus::sent, "Y-1", 1200, 5).currencyCode = "JPY";
    TimeEntry& entry = library.context.insert<TimeEntry>();
    entry.start = library.clock.now() - std::chrono::hours(2);
    entry.end = library.clock.now();
    entry.isBillable = true;
    library.context.edit(*library.context.find(library.business)).hourlyRateMinorUnits = 8000;
    library.context.save();
    EXPECT_EQ(text(),
              "In EUR:\n"
              "Open: 335.00 EUR (4 invoices)\n"
              "Overdue: 250.00 EUR (2 invoices)\n"
              "- Invoice I-2: 150.00 EUR, 40 days overdue (since 2026-02-05)\n"
              "- Invoice I-1: 100.00 EUR, 3 days overdue (since 2026-03-14)\n"
              "Due next: 85.00 EUR (2 invoices)\n"
              "- Invoice I-3: 70.00 EUR, due today\n"
              "- Invoice I-4: 15.00 EUR, due 2026-03-18 (in 1 day)\n"
              "Credit notes not refunded or set off yet: -25.00 EUR (1 credit note)\n"
              "Open, less these: 310.00 EUR\n"
              "Drafts waiting: 42.00 EUR (1 draft)\n"
              "- Invoice I-6: 42.00 EUR, dated 2026-03-17\n"
              "Unbilled time: 160.00 EUR (2 h)\n"
              "\n"
              "In JPY:\n"
              "Open: 1200 JPY (1 invoice)\n"
              "Overdue: 0 JPY (0 invoices)\n"
              "Due next: 1200 JPY (1 invoice)\n"
              "- Invoice Y-1: 1200 JPY, due 2026-03-22 (in 5 days)\n"
              "Drafts waiting: 0 JPY (0 drafts)");
    const JSON data = library.data("get_money_overview", "{}");
    const JSON& euros = data.find("currencies")->array()->front();
    EXPECT_EQ(member(euros, "open_less_credit"), R"({"amount":310.00})");
    EXPECT_EQ(member(euros.find("overdue_invoices")->array()->front(), "days_overdue"), "40");

    // What is due today counts as due soon, what is due on the eighth day doesn't.
    add(invoice, DocumentStatus::sent, "I-7", 300, MoneyOverview::soonDays);
    add(invoice, DocumentStatus::sent, "I-8", 400, MoneyOverview::soonDays + 1);
    const MoneyOverview overview = MoneyOverview::of(library.environment()).front();
    EXPECT_EQ(overview.dueSoonTotal, 8800);
    EXPECT_EQ(overview.dueSoonCount, 3U);
}

} // namespace
} // namespace Quillary
