#include "QuillaryCore/Reports/TaxReport.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "tests/Reports/ReportLibrary.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace Quillary {
namespace {

using Row = TaxReport::Row;
using std::chrono::days;
using std::chrono::milliseconds;

class TaxReportTest : public testing::Test, protected ReportLibrary
{
protected:
    static constexpr DateRange period{start, start + days(90)};

    /// An invoice of one line, dated in the period.
    Document& invoice(std::int64_t price, std::int32_t rate)
    {
        Document& made = document(DocumentKind::invoice, DocumentStatus::sent);
        made.issueDate = start + days(1);
        line(made, price, rate);
        updateCachedTotals(context, made);
        return made;
    }

    TaxReport report(ReportBasis basis) { return TaxReport::make(context, period, basis, "EUR"); }

    static std::vector<std::string> numbers(const TaxReport& report)
    {
        std::vector<std::string> numbers;
        numbers.reserve(report.entries.size());
        for (const TaxReport::Entry& entry : report.entries) {
            numbers.push_back(entry.number);
        }
        return numbers;
    }
};

TEST_F(TaxReportTest, countsByTheDocumentsDates)
{
    struct Case
    {
        std::string number;
        std::optional<Instant> date;
        DocumentKind kind = DocumentKind::invoice;
        DocumentStatus status = DocumentStatus::sent;
        std::string currency = "EUR";
    };
    const Case cases[] = {
        {"last instant", period.end - milliseconds(1)},
        {"first instant", period.start},
        {"the end", period.end},
        {"before", period.start - milliseconds(1)},
        {"no date", std::nullopt},
        {"draft", start + days(2), DocumentKind::invoice, DocumentStatus::draft}, // the status is not asked
        {"quote", start + days(2), DocumentKind::quote},
        {"template", start + days(2), DocumentKind::recurring},
        {"credit", start + days(3), DocumentKind::creditNote},
        {"dollars", start + days(2), DocumentKind::invoice, DocumentStatus::sent, "USD"},
    };
    for (const Case& example : cases) {
        Document& made = document(example.kind, example.status);
        made.number = example.number;
        made.issueDate = example.date;
        made.currencyCode = example.currency;
        line(made, 100, 1900);
    }
    const TaxReport invoiced = report(ReportBasis::invoiced);
    EXPECT_EQ(numbers(invoiced), (std::vector<std::string>{"first instant", "draft", "credit", "last instant"}));
    EXPECT_EQ(invoiced.rows, (std::vector<Row>{{1900, 1900, 400, 76}}));
    EXPECT_EQ(invoiced.total(), (Row{0, std::nullopt, 400, 76}));
    EXPECT_EQ(invoiced.total().gross(), 476);
}

TEST_F(TaxReportTest, listsTheHighestRateFirstAndNoneLast)
{
    Document& mixed = invoice(5000, 700);
    line(mixed, 10'000, 1900);
    line(mixed, 300, 0);
    mixed.client = client("Acme");
    Document& exempt = invoice(2000, 1900);
    exempt.taxExempt = true;
    exempt.client = Ref<Client>(77); // one that is gone
    invoice(0, 0).title = "nothing at all";
    const TaxReport made = report(ReportBasis::invoiced);
    EXPECT_EQ(made.rows,
              (std::vector<Row>{
                  {1900, 1900, 10'000, 1900}, {700, 700, 5000, 350}, {0, 0, 300, 0}, {-1, std::nullopt, 2000, 0}}));
    ASSERT_EQ(made.entries.size(), 3U);
    EXPECT_EQ(made.entries[0].client, "Acme");
    EXPECT_EQ(made.entries[0].id, mixed.uuid);
    EXPECT_EQ(made.entries[0].gross(), 17'550);
    EXPECT_EQ(made.entries[1].client, "");
    EXPECT_EQ(made.entries[1].tax, 0);
}

TEST_F(TaxReportTest, countsWhatWasPaidOfAnInvoice)
{
    Document& half = invoice(10'000, 1900);
    half.number = "half";
    half.issueDate = start - days(400); // its own date doesn't count
    pay(half, 2000, start + days(8));
    pay(half, 3950, start + days(4));
    pay(half, 5950, period.end);
    Document& outside = invoice(10'000, 1900);
    pay(outside, 11'900, start - days(1));
    Document& taken = invoice(10'000, 1900); // what came in went back
    pay(taken, 500, start + days(1));
    pay(taken, -500, start + days(2));
    Document& draft = invoice(300, 700);
    draft.number = "draft";
    draft.statusRaw = 0; // money is money
    pay(draft, 321, start);
    Document& nothing = invoice(0, 1900);
    pay(nothing, 100, start);
    Document& exempt = invoice(10'000, 1900);
    exempt.number = "exempt";
    exempt.taxExempt = true;
    updateCachedTotals(context, exempt);
    pay(exempt, 2500, start);
    const TaxReport paid = report(ReportBasis::paid);
    EXPECT_EQ(numbers(paid), (std::vector<std::string>{"half", "draft", "exempt"}));
    EXPECT_EQ(paid.rows, (std::vector<Row>{{1900, 1900, 5000, 950}, {700, 700, 300, 21}, {-1, std::nullopt, 2500, 0}}));
    EXPECT_EQ(paid.entries[0].date, start + days(8)) << "the last payment in the period";
}

TEST_F(TaxReportTest, countsRefundedCreditNotes)
{
    const auto credit = [&](const std::string& number, DocumentStatus status, std::optional<Instant> paidAt) {
        Document& made = document(DocumentKind::creditNote, status);
        made.number = number;
        made.issueDate = start - days(100);
        made.paidAt = paidAt;
        line(made, 1000, 1900).quantityThousandths = -1000;
        updateCachedTotals(context, made);
        pay(made, -500, start + days(1)); // nothing that a credit note takes
    };
    credit("refunded", DocumentStatus::paid, start + days(5));
    credit("draft", DocumentStatus::draft, start + days(5));
    credit("sent", DocumentStatus::sent, start + days(5));
    credit("later", DocumentStatus::paid, period.end);
    credit("undated", DocumentStatus::paid, std::nullopt);
    const TaxReport paid = report(ReportBasis::paid);
    EXPECT_EQ(numbers(paid), (std::vector<std::string>{"refunded"}));
    EXPECT_EQ(paid.entries[0].date, start + days(5));
    EXPECT_EQ(paid.entries[0].kind, DocumentKind::creditNote);
    EXPECT_EQ(paid.rows, (std::vector<Row>{{1900, 1900, -1000, -190}}));
}

TEST_F(TaxReportTest, seesWhatIsNotSavedYet)
{
    Document& made = invoice(100, 1900);
    context.save();
    context.edit(made).taxExempt = true;
    EXPECT_EQ(report(ReportBasis::invoiced).rows, (std::vector<Row>{{-1, std::nullopt, 100, 0}}));
}

TEST_F(TaxReportTest, isEmptyAndRemembersAFailedRead)
{
    invoice(100, 1900);
    store.connection().execute("ALTER TABLE Fee RENAME TO Gone");
    const TaxReport made = report(ReportBasis::invoiced);
    EXPECT_TRUE(made.rows.empty() && made.entries.empty());
    EXPECT_EQ(made.currencyCode, "EUR");
    EXPECT_TRUE(store.lastFailure());
}

TEST_F(TaxReportTest, stopsWhenASumLeaves64Bits)
{
    invoice(std::numeric_limits<std::int64_t>::max() - 10, 0);
    invoice(11, 0);
    EXPECT_DEATH(report(ReportBasis::invoiced), "a sum of amounts fits 64 bits");
}

} // namespace
} // namespace Quillary
