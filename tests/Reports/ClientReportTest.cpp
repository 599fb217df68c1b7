#include "QuillaryCore/Reports/ClientReport.h"

#include "tests/Reports/ReportLibrary.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Quillary {
namespace {

using std::chrono::days;

class ClientReportTest : public testing::Test, protected ReportLibrary
{
protected:
    static constexpr DateRange period{start, start + days(30)};

    Document& make(Ref<Client> client, DocumentKind kind, DocumentStatus status, std::optional<Instant> date)
    {
        Document& made = document(kind, status);
        made.client = client;
        made.issueDate = date;
        made.cachedNetMinorUnits = 100;
        made.cachedTotalMinorUnits = 119;
        return made;
    }

    /// "client: documents net gross paid open"
    std::vector<std::string> lines()
    {
        std::vector<std::string> lines;
        for (const ClientReport::Row& row : ClientReport::make(context, period, "EUR").rows) {
            std::string line = row.client + ":";
            for (const std::int64_t figure : {row.documents, row.net, row.gross, row.paid, row.open}) {
                line += " " + std::to_string(figure);
            }
            lines.push_back(line);
        }
        return lines;
    }
};

TEST_F(ClientReportTest, tellsThePeriodFromNow)
{
    using enum DocumentKind;
    using enum DocumentStatus;
    const Ref<Client> busy = client("Busy");
    make(busy, invoice, paid, start);
    make(busy, creditNote, sent, start + days(29)).cachedTotalMinorUnits = -19;
    make(busy, invoice, accepted, start + days(1));
    make(busy, invoice, draft, start + days(1));
    make(busy, quote, accepted, start + days(1));
    make(busy, invoice, sent, start + days(1)).currencyCode = "USD";
    Document& older = make(busy, invoice, sent, start - days(300)); // counts for what came in, and for what is open
    older.cachedPaidMinorUnits = 19;
    older.cachedLateFeesMinorUnits = 5;
    pay(older, 9, start - days(1));
    pay(older, 10, start + days(2));
    Document& overpaid = make(busy, invoice, sent, std::nullopt);
    overpaid.cachedPaidMinorUnits = 200;
    pay(overpaid, 200, period.end);
    pay(make(busy, creditNote, paid, start - days(300)), 50, start); // not on a credit note
    pay(make(busy, invoice, draft, start), 70, start);               // nor on a draft
    make(client("Paid long ago"), invoice, paid, start - days(300));
    make(client("Large"), invoice, sent, period.end - days(1)).cachedTotalMinorUnits = 5000;
    make(client("Even"), invoice, paid, start).cachedTotalMinorUnits = 219;
    make({}, invoice, paid, start);
    EXPECT_EQ(
        lines(),
        (std::vector<std::string>{
            "Large: 1 100 5000 0 5000", "Busy: 3 300 219 10 105", "Even: 1 100 219 0 0", "No client: 1 100 119 0 0"}));
    const ClientReport::Row total = ClientReport::make(context, period, "EUR").total();
    EXPECT_EQ(total.documents, 6);
    EXPECT_EQ(total.gross, 5557);
    EXPECT_EQ(total.open, 5105);
}

} // namespace
} // namespace Quillary
