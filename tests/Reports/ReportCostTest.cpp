#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Reports/AgingReport.h"
#include "QuillaryCore/Reports/ClientReport.h"
#include "QuillaryCore/Reports/InvoiceList.h"
#include "QuillaryCore/Reports/TaxReport.h"
#include "tests/Reports/ReportLibrary.h"
#include "tests/Store/QueryPlan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdint>
#include <functional>
#include <set>
#include <string>

namespace Quillary {
namespace {

using testing::HasSubstr;
using testing::Not;

/// What SQLite did meanwhile.
struct Cost
{
    std::set<std::string> statements;
    int runs = 0;
    int scannedRows = 0;      ///< by walking through a whole table
    std::int64_t vmSteps = 0; ///< of SQLite's virtual machine: time that no clock disturbs
};

Cost cost(Connection& connection, const std::function<void()>& work)
{
    Cost cost;
    const auto note = [](unsigned /*event*/, void* context, void* handle, void* /*nanoseconds*/) {
        auto* statement = static_cast<sqlite3_stmt*>(handle);
        auto* noted = static_cast<Cost*>(context);
        noted->statements.insert(sqlite3_sql(statement));
        noted->runs += 1;
        noted->scannedRows += sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_FULLSCAN_STEP, 1);
        noted->vmSteps += sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_VM_STEP, 1);
        return 0;
    };
    sqlite3_trace_v2(connection.handle(), SQLITE_TRACE_PROFILE, note, &cost);
    work();
    sqlite3_trace_v2(connection.handle(), 0, nullptr, nullptr);
    return cost;
}

class ReportCostTest : public testing::Test, protected ReportLibrary
{
protected:
    static constexpr DateRange year{start, start + std::chrono::days(365)};
    const Calendar calendar{"Europe/Berlin"};

    /// Sent invoices with two lines, one a day from a day on.
    void fill(int count, Instant from, DocumentStatus status)
    {
        for (int number = 0; number < count; ++number) {
            if (number % 10 == 0) {
                m_client = client("Client");
            }
            Document& made = document(DocumentKind::invoice, status);
            made.client = m_client;
            made.issueDate = from + std::chrono::days(number % 365);
            made.cachedTotalMinorUnits = 238;
            line(made, 100, 1900);
            line(made, 100, 1900);
            pay(made, 119, *made.issueDate);
            made.cachedPaidMinorUnits = 119;
        }
        context.save();
    }

    void aging() { std::ignore = AgingReport::make(context, start, calendar, "EUR"); }
    void tax(ReportBasis basis) { std::ignore = TaxReport::make(context, year, basis, "EUR"); }
    void clients() { std::ignore = ClientReport::make(context, year, "EUR"); }
    void invoices() { std::ignore = InvoiceList::make(context, year, "EUR", start, calendar); }

    Connection& connection() { return store.connection(); }

private:
    Ref<Client> m_client;
};

TEST_F(ReportCostTest, everyQueryTakesAnIndexAndNoneAsksForOneDocument)
{
    fill(400, start, DocumentStatus::sent);
    const std::function<void()> reports[] = {[&] { aging(); },
                                             [&] { tax(ReportBasis::invoiced); },
                                             [&] { tax(ReportBasis::paid); },
                                             [&] { clients(); },
                                             [&] {
                                                 invoices();
                                             }};
    std::set<std::string> statements;
    for (const auto& report : reports) {
        const Cost spent = cost(connection(), report);
        EXPECT_EQ(spent.scannedRows, 0);
        EXPECT_LE(spent.runs, 10);
        statements.insert(spent.statements.begin(), spent.statements.end());
    }
    EXPECT_GE(statements.size(), 10U);
    for (const std::string& sql : statements) {
        const std::string steps = queryPlan(connection(), sql);
        EXPECT_THAT(steps, Not(HasSubstr("SCAN"))) << sql;
        EXPECT_THAT(steps, Not(HasSubstr("TEMP B-TREE"))) << sql;
        if (sql.find("FROM Payment") != std::string::npos) {
            EXPECT_THAT(steps, HasSubstr("COVERING INDEX Payment_date (date>? AND date<?)"));
        }
        if (sql.find("statusRaw = 1") != std::string::npos) {
            EXPECT_THAT(steps, HasSubstr("COVERING INDEX Document_open (currencyCode=?)"));
        }
        if (sql.find("paidAt >=") != std::string::npos) {
            EXPECT_THAT(steps, HasSubstr("INDEX Document_refunded (paidAt>? AND paidAt<?)"));
        }
    }
}

TEST_F(ReportCostTest, growsWithWhatItReportsOnly)
{
    fill(300, start, DocumentStatus::sent);
    const std::int64_t agingBefore = cost(connection(), [&] { aging(); }).vmSteps;
    fill(1500, start + std::chrono::days(400), DocumentStatus::paid);
    const std::int64_t agingAfter = cost(connection(), [&] { aging(); }).vmSteps;
    EXPECT_LT(agingAfter, agingBefore + agingBefore / 50) << "documents that are paid cost the aging report";

    const DateRange other{start + std::chrono::days(400), start + std::chrono::days(800)};
    for (const ReportBasis basis : allReportBases) {
        const std::int64_t some = cost(connection(), [&] { tax(basis); }).vmSteps;
        const std::int64_t all =
            cost(connection(), [&] { std::ignore = TaxReport::make(context, other, basis, "EUR"); }).vmSteps;
        EXPECT_NEAR(static_cast<double>(all) / static_cast<double>(some), 5, 0.5) << rawText(basis);
    }
}

} // namespace
} // namespace Quillary
