#include "QuillaryCore/Billing/Totals.h"

#include "tests/Billing/ExactTotals.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>
#include <string_view>

namespace Quillary {

namespace {

using Totals::Discount;
using Totals::DiscountKind;
using Totals::Fee;
using Totals::Line;
using Totals::RateAmount;
using Totals::Result;
using Totals::Taxation;
using Totals::TaxLine;

constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();

Discount percent(std::int32_t basisPoints)
{
    return {.kind = DiscountKind::percentage, .basisPoints = basisPoints};
}

Discount fixed(std::int64_t amount)
{
    return {.kind = DiscountKind::fixed, .amountMinorUnits = amount};
}

/// A single unit.
Line one(std::int64_t price, std::int32_t rate)
{
    return {1000, price, rate};
}

struct Case
{
    std::string_view reason;
    std::vector<Line> lines;
    Result expected{};
    std::vector<Discount> discounts{};
    std::vector<Fee> fees{};
    Taxation taxation = Taxation::taxed;
};

/// Lists of values that make the rules meet: ties, cancelling lines, both ends of 64 bits.
class RandomDocument
{
public:
    explicit RandomDocument(unsigned seed)
        : m_random(seed)
    {
        const int size = pick(0, 2);
        for (int index = pick(0, 9); index > 0; --index) {
            lines.push_back({value(size), value(size), rate()});
            if (pick(0, 3) == 0) { // a line that takes the last one back
                lines.push_back({-lines.back().quantityThousandths, lines.back().unitPriceMinorUnits, rate()});
            }
        }
        for (int index = pick(0, 3); index > 0; --index) {
            discounts.push_back(pick(0, 1) == 0 ? percent(pick(-500, 11000)) : fixed(value(size)));
        }
        for (int index = pick(0, 2); index > 0; --index) {
            fees.push_back({value(size), rate()});
        }
        taxation = pick(0, 5) == 0 ? Taxation::exempt : Taxation::taxed;
    }

    std::vector<Line> lines;
    std::vector<Discount> discounts;
    std::vector<Fee> fees;
    Taxation taxation = Taxation::taxed;

private:
    int pick(int least, int most) { return std::uniform_int_distribution(least, most)(m_random); }

    std::int64_t value(int size)
    {
        switch (size) {
        case 0:
            return pick(-30, 60);
        case 1:
            return std::uniform_int_distribution<std::int64_t>(-20'000'000, 200'000'000)(m_random);
        default:
            return pick(0, 3) == 0
                       ? std::uniform_int_distribution(lowest, highest)(m_random)
                       : std::uniform_int_distribution<std::int64_t>(-4'000'000'000, 4'000'000'000)(m_random);
        }
    }

    std::int32_t rate()
    {
        const std::int32_t rates[] = {0, 700, 1900, 1900, 2100, 550, 210, 10000, 1, 2550};
        return rates[static_cast<std::size_t>(pick(0, 9))];
    }

    std::mt19937 m_random;
};

} // namespace

TEST(TotalsTest, roundsALineHalfAwayFromZeroAndSaturates)
{
    struct Amount
    {
        std::string_view reason;
        std::int64_t quantity;
        std::int64_t price;
        std::int64_t expected;
    };
    const Amount cases[] = {
        {"148.5 goes up", 1500, 99, 149},
        {"-148.5 goes down", 1500, -99, -149},
        {"both negative", -1500, -99, 149},
        {"just below a half", 499, 1, 0},
        {"just below a half, negative", -499, 1, 0},
        {"beyond 64 bits before the division, within after it", highest, 501, 4'620'909'390'464'242'679},
        {"a half beyond 64 bits before the division", 6'148'914'691'236'517, 1500, 9'223'372'036'854'776},
        {"too large", highest, highest, highest},
        {"too small", lowest, highest, lowest},
        {"the smallest fits", lowest, 1000, lowest},
        {"its opposite doesn't", lowest, -1000, highest},
    };
    for (const Amount& line : cases) {
        EXPECT_EQ(Totals::amount(line.quantity, line.price), line.expected) << line.reason;
    }
}

TEST(TotalsTest, followsTheRulesInTheirOrder)
{
    const Case cases[] = {
        {"nothing", {}},
        {"a discount is spread by base",
         {one(10000, 1900), one(5000, 1900), one(5000, 700)},
         {{10000, 5000, 5000}, 20000, {2000}, 2000, 0, 18000, {{700, 4500, 315}, {1900, 13500, 2565}}, 2880, 20880},
         {percent(1000)}},
        {"the odd cent goes to the largest remainder",
         {one(3333, 1900), one(3333, 700), one(3334, 2100)},
         {{3333, 3333, 3334},
          10000,
          {1000},
          1000,
          0,
          9000,
          {{700, 3000, 210}, {1900, 3000, 570}, {2100, 3000, 630}},
          1410,
          10410},
         {fixed(1000)}},
        {"of equal remainders the lower rate gets it",
         {one(100, 1900), one(100, 700)},
         {{100, 100}, 200, {1}, 1, 0, 199, {{700, 99, 7}, {1900, 100, 19}}, 26, 225},
         {fixed(1)}},
        {"later discounts are cut first",
         {one(10000, 0)},
         {{10000}, 10000, {8000, 2000}, 10000, 0, 0, {{0, 0, 0}}, 0, 0},
         {fixed(8000), fixed(5000)}},
        {"a negative discount among those cut is taken back whole",
         {one(100, 0)},
         {{100}, 100, {100, 0}, 100, 0, 0, {{0, 0, 0}}, 0, 0},
         {fixed(150), fixed(-20)}},
        {"percentages don't compound",
         {one(10000, 0)},
         {{10000}, 10000, {1000, 1000}, 2000, 0, 8000, {{0, 8000, 0}}, 0, 8000},
         {percent(1000), percent(1000)}},
        {"a negative subtotal is never capped",
         {one(-10000, 1900)},
         {{-10000}, -10000, {500}, 500, 0, -10500, {{1900, -10500, -1995}}, -1995, -12495},
         {fixed(500)}},
        {"a credit note mirrors its invoice",
         {{-1000, 3333, 1900}, {-1000, 3333, 700}, {-1000, 3334, 2100}},
         {{-3333, -3333, -3334},
          -10000,
          {-1000},
          -1000,
          -500,
          -9500,
          {{700, -3000, -210}, {1900, -3500, -665}, {2100, -3000, -630}},
          -1505,
          -11005},
         {fixed(-1000)},
         {{-500, 1900}}},
        {"exempt: one line at rate 0 with everything",
         {one(10000, 1900), one(5000, 700)},
         {{10000, 5000}, 15000, {1500}, 1500, 500, 14000, {{0, 14000, 0}}, 0, 14000},
         {percent(1000)},
         {{500, 1900}},
         Taxation::exempt},
        {"exempt and nothing left: no line",
         {one(100, 1900)},
         {{100}, 100, {100}, 100, 0, 0, {}, 0, 0},
         {fixed(100)},
         {},
         Taxation::exempt},
        {"a rate whose lines cancel still shows",
         {one(5000, 1900), one(-5000, 1900)},
         {{5000, -5000}, 0, {}, 0, 0, 0, {{1900, 0, 0}}, 0, 0}},
        {"a rate of free lines doesn't",
         {one(0, 1900), one(100, 700)},
         {{0, 100}, 100, {}, 0, 0, 100, {{700, 100, 7}}, 7, 107}},
        {"a fee brings its own rate",
         {one(10000, 700)},
         {{10000}, 10000, {}, 0, 500, 10500, {{700, 10000, 700}, {1900, 500, 95}}, 795, 11295},
         {},
         {{500, 1900}}},
        {"fees that cancel bring none",
         {one(100, 700)},
         {{100}, 100, {}, 0, 0, 100, {{700, 100, 7}}, 7, 107},
         {},
         {{500, 1900}, {-500, 1900}}},
        {"a discount on lines that cancel stays off the bases",
         {one(5000, 1900), one(-5000, 700)},
         {{5000, -5000}, 0, {-300}, -300, 0, 300, {{700, -5000, -350}, {1900, 5000, 950}}, 600, 900},
         {fixed(-300)}},
        {"a tax and a percentage outside 64 bits count as 0",
         {one(highest / 2, 30000)},
         {{highest / 2}, highest / 2, {0}, 0, 0, highest / 2, {{30000, highest / 2, 0}}, 0, highest / 2},
         {percent(50000)}},
    };
    for (const Case& document : cases) {
        EXPECT_EQ(Totals::calculate(document.lines, document.discounts, document.fees, document.taxation),
                  document.expected)
            << document.reason;
    }
}

TEST(TotalsTest, splitsByLargestRemainder)
{
    struct Split
    {
        std::string_view reason;
        std::int64_t amount;
        std::vector<RateAmount> bases;
        std::int64_t total;
        std::vector<RateAmount> expected;
    };
    const Split cases[] = {
        {"no total, no shares", 5, {{0, 1}}, 0, {}},
        {"the order of the bases is kept", 10, {{1900, 2}, {700, 1}}, 3, {{1900, 7}, {700, 3}}},
        {"equal remainders in any order", 1, {{1900, 1}, {700, 1}}, 2, {{1900, 0}, {700, 1}}},
        {"negative amounts mirror", -10, {{700, 1}, {1900, 2}}, 3, {{700, -3}, {1900, -7}}},
        {"a base of the other sign gives up what the others gain",
         1,
         {{700, -50}, {1900, 150}},
         100,
         {{700, 0}, {1900, 1}}},
        {"the product needs 128 bits", highest, {{0, highest - 1}, {1, 1}}, highest, {{0, highest - 1}, {1, 1}}},
        {"so does its negation", lowest, {{0, lowest}}, lowest, {{0, lowest}}},
    };
    for (const Split& split : cases) {
        EXPECT_EQ(Totals::share(split.amount, split.bases, split.total), split.expected) << split.reason;
    }
}

TEST(TotalsTest, agreesWithExactFractions)
{
    int representable = 0;
    for (unsigned seed = 0; seed < 40000; ++seed) {
        const RandomDocument document(seed);
        const std::optional<Result> exact =
            ExactTotals::calculate(document.lines, document.discounts, document.fees, document.taxation);
        const std::optional<Result> quick =
            Totals::calculateIfRepresentable(document.lines, document.discounts, document.fees, document.taxation);
        ASSERT_EQ(quick, exact) << "document " << seed;
        representable += exact ? 1 : 0;
    }
    EXPECT_GT(representable, 20000);
    EXPECT_LT(representable, 39000);
}

TEST(TotalsTest, usesAResultAgain)
{
    Result result;
    Totals::calculate(std::vector{one(100, 700), one(200, 1900)}, std::vector{fixed(10)}, {}, Taxation::taxed, result);
    Totals::calculate(std::vector{one(300, 0)}, {}, {}, Taxation::taxed, result);
    EXPECT_EQ(result, Totals::calculate(std::vector{one(300, 0)}, {}, {}, Taxation::taxed));
}

TEST(TotalsDeathTest, stopsOnSumsOutside64Bits)
{
    const Case cases[] = {
        {"the subtotal", {one(highest, 0), one(1, 0)}},
        {"the base of a rate, though the subtotal fits", {one(-10, 0), one(highest, 1900), one(10, 1900)}},
        {"the discounts", {one(1, 0)}, {}, {fixed(highest), fixed(1)}},
        {"the fees", {}, {}, {}, {{lowest, 0}, {-1, 700}}},
        {"the net amount", {one(highest, 0)}, {}, {fixed(-1)}},
        {"the total", {one(highest, 1)}},
        {"a share of lines that nearly cancel",
         {one(highest / 2, 1900), one(-highest / 2 - 1, 700)},
         {},
         {fixed(1000)}},
    };
    for (const Case& document : cases) {
        EXPECT_EQ(
            Totals::calculateIfRepresentable(document.lines, document.discounts, document.fees, document.taxation),
            std::nullopt)
            << document.reason;
        EXPECT_DEATH(
            static_cast<void>(Totals::calculate(document.lines, document.discounts, document.fees, document.taxation)),
            "figures of a document fit 64 bits")
            << document.reason;
    }
}

} // namespace Quillary
