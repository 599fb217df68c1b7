#include "QuillaryCore/Reports/ReportData.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Model/KeyRuns.h"
#include "tests/Model/TestLibrary.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <utility>
#include <vector>

namespace Quillary {
namespace {

TEST(ReportDataTest, sharesRoundHalfAwayFromZero)
{
    constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
    constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();
    struct Case
    {
        std::int64_t x;
        std::int64_t y;
        std::int64_t total;
        std::int64_t expected;
    };
    const Case cases[] = {
        {5950, 10'000, 11'900, 5000}, // half of an invoice of 119.00
        {5950, 1900, 11'900, 950},
        {1, 5, 0, 0}, // nothing is part of nothing
        {1, 1, 2, 1},
        {-1, 1, 2, -1}, // a tie goes away from zero on both sides
        {1, 1, 3, 0},
        {2, 1, 3, 1},
        {3, 5, -2, 8}, // the sign is that of the product
        {-3, 5, -2, -8},
        {4'000'000'000'000, 4'000'000'000'000, 4'000'000'000'000, 4'000'000'000'000}, // the product leaves 64 bits
        {lowest, highest, lowest, -highest},
        {lowest, 1, 1, lowest},
    };
    for (const Case& example : cases) {
        EXPECT_EQ(ReportData::share(example.x, example.y, example.total), example.expected)
            << example.x << " × " << example.y << " ÷ " << example.total;
    }
    EXPECT_DEATH(std::ignore = ReportData::share(highest, 3, 2), "a share of an amount fits 64 bits");
    EXPECT_DEATH(std::ignore = ReportData::share(lowest, -1, 1), "a share of an amount fits 64 bits");
}

/// All that was paid on one document belongs to it, whatever was paid when: payments that make up the total have shares
/// that make up each part, but for the half unit that each may be rounded by.
TEST(ReportDataTest, sharesOfAWholeAddUpToItButForRounding)
{
    std::mt19937_64 random(7);
    const auto pick = [&](std::int64_t limit) {
        return static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(limit));
    };
    for (int round = 0; round < 2000; ++round) {
        const std::int64_t total = 1 + pick(5'000'000'000'000);
        const std::int64_t part = pick(total + 1);
        std::int64_t left = total;
        std::int64_t sum = 0;
        const std::int64_t payments = 1 + pick(5);
        for (std::int64_t payment = 1; payment <= payments; ++payment) {
            const std::int64_t paid = payment == payments ? left : pick(left + 1);
            left -= paid;
            sum += ReportData::share(paid, part, total);
        }
        EXPECT_LE(2 * std::abs(sum - part), payments) << part << " of " << total;
        EXPECT_EQ(ReportData::share(total, part, total), part);
    }
}

TEST(ReportDataTest, runsReachEveryKeyAndLittleElse)
{
    const std::vector<std::int64_t> keys = {3, 4, 8, 13, 14, 100};
    std::vector<std::pair<std::int64_t, std::int64_t>> runs;
    const auto note = [&](std::int64_t first, std::int64_t last) {
        runs.emplace_back(first, last);
    };
    forEachRun(keys, 4, note);
    EXPECT_EQ(runs, (std::vector<std::pair<std::int64_t, std::int64_t>>{{3, 8}, {13, 14}, {100, 100}}));
    runs.clear();
    forEachRun({}, 4, note);
    EXPECT_TRUE(runs.empty());
}

TEST(ReportDataTest, fetchesKindsOfOneCurrency)
{
    TestLibrary library;
    const Ref<Document> invoice = library.document().ref;
    library.document(DocumentKind::quote);
    const Ref<Document> credit = library.document(DocumentKind::creditNote).ref;
    library.document().currencyCode = "USD";
    const DocumentKind kinds[] = {DocumentKind::invoice, DocumentKind::creditNote};
    std::vector<Ref<Document>> found;
    for (const Document* document : ReportData::documents(library.context, kinds, "EUR")) {
        found.push_back(document->ref);
    }
    EXPECT_EQ(found, (std::vector{invoice, credit}));
    EXPECT_TRUE(ReportData::documents(library.context, {}, "EUR").empty());
    library.store.connection().execute("ALTER TABLE Document RENAME TO Gone");
    EXPECT_TRUE(ReportData::documents(library.context, kinds, "EUR").empty());
    EXPECT_TRUE(library.store.lastFailure()) << "an empty list after a failed read is no answer";
}

} // namespace
} // namespace Quillary
