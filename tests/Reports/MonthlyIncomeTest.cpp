#include "QuillaryCore/Reports/MonthlyIncome.h"

#include "QuillaryCore/Model/DataModel.h"
#include "tests/Reports/MixedLibrary.h"
#include "tests/Support/TempFolder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace Quillary {
namespace {

/// The same by nothing but SQL, which knows the zone as a fixed difference.
std::int64_t plainIncome(Connection& connection, int year, int month, const std::string& currency)
{
    const std::string when = fmt::format("= '{:04}-{:02}'", year, month);
    Statement statement(
        connection,
        fmt::format("SELECT coalesce(sum(amount), 0) FROM ("
                    "SELECT p.amountMinorUnits AS amount, p.date AS day FROM Payment p JOIN Document d ON "
                    "d.id = p.document WHERE d.kindRaw = 0 AND d.currencyCode = '{0}' UNION ALL "
                    "SELECT cachedTotalMinorUnits, paidAt FROM Document WHERE kindRaw = 2 AND "
                    "statusRaw = 2 AND currencyCode = '{0}') "
                    "WHERE strftime('%Y-%m', day / 1000 + 19800, 'unixepoch') {1}",
                    currency,
                    when));
    return statement.step() ? statement.integer(0) : -1;
}

TEST(MonthlyIncomeTest, agreesWithPlainSQL)
{
    TempFolder folder;
    MixedLibrary(7).make(folder.path(), 600);
    const FixedClock clock(MixedLibrary::today);
    CountingUUIDSource uuids;
    Store store =
        Store::openReadOnly(Store::Location::directory(folder.path()), DataModel::records(), DataModel::history());
    Context context(store, clock, uuids);
    const Calendar calendar("Asia/Kolkata");
    int filled = 0;
    for (const int year : {2024, 2026}) {
        for (const std::string currency : {"EUR", "USD"}) {
            const MonthlyIncome income = MonthlyIncome::make(context, std::chrono::year(year), calendar, currency);
            std::int64_t total = 0;
            for (int month = 1; month <= 12; ++month) {
                const std::int64_t expected = plainIncome(store.connection(), year, month, currency);
                EXPECT_EQ(income.months.at(static_cast<std::size_t>(month - 1)), expected)
                    << year << "-" << month << " " << currency;
                total += expected;
                filled += expected != 0 ? 1 : 0;
            }
            EXPECT_EQ(income.total(), total);
        }
    }
    EXPECT_GT(filled, 24) << "the library has no income to speak of";
    EXPECT_FALSE(store.lastFailure());
}

TEST(MonthlyIncomeTest, isNothingWhenTheLibraryCannotBeRead)
{
    const FixedClock clock(MixedLibrary::today);
    CountingUUIDSource uuids;
    Store store(Store::Location::inMemory(), DataModel::records(), DataModel::history(), clock, uuids);
    Context context(store, clock, uuids);
    store.connection().execute("DROP TABLE Payment");
    EXPECT_EQ(MonthlyIncome::make(context, std::chrono::year(2026), Calendar("UTC"), "EUR").total(), 0);
    EXPECT_TRUE(store.lastFailure());
}

} // namespace
} // namespace Quillary
