#include "QuillaryCore/Money/Decimal.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <string_view>

namespace Quillary {

namespace {

constexpr auto largest = std::numeric_limits<std::int64_t>::max();
constexpr auto smallest = std::numeric_limits<std::int64_t>::min();

TEST(DecimalTest, readsPlainDecimalsOnly)
{
    for (const std::string_view text : {"0", "0.0", "12.50", "-0.05", "-1", "123456789012345678901234567890.12345"}) {
        const auto decimal = Decimal::parse(text);
        ASSERT_TRUE(decimal) << text;
        EXPECT_EQ(decimal->text(), text);
    }
    for (const std::string_view text :
         {"", "-", ".", "5.", ".5", "+5", "--5", "1e3", "1.2.3", "1,5", " 1", "1 ", "-.5", "0x10", "NaN", "inf", "١"}) {
        EXPECT_FALSE(Decimal::parse(text)) << text;
    }
}

TEST(DecimalTest, scalesWithTiesAwayFromZero)
{
    struct Case
    {
        std::string text;
        int scale;
        std::optional<std::int64_t> expected;
    };
    const Case cases[] = {
        {"2.5", 0, 3},
        {"-2.5", 0, -3},
        {"2.49", 0, 2},
        {"2.4999999999999999999999999999999999999999999999", 0, 2}, // more digits than any binary type holds
        {"-2.49", 0, -2},
        {"0.5", 0, 1},
        {"0.05", 0, 0}, // the digit that decides is a zero in front of all others
        {"0.049", 1, 0},
        {"0.05", 1, 1},
        {"-0.005", 2, -1},
        {"0.004", 2, 0},
        {"0.995", 2, 100}, // a carry through all digits
        {"9.9995", 3, 10000},
        {"1", 18, 1'000'000'000'000'000'000},
        {"0", 30, 0},
        {"0.000000000000000000000000000001", 30, 1},
        {"1", 30, std::nullopt},
        {"9223372036854775807", 0, largest},
        {"-9223372036854775808", 0, smallest},
        {"9223372036854775808", 0, std::nullopt},
        {"-9223372036854775809", 0, std::nullopt},
        {"9223372036854775807.4", 0, largest},
        {"9223372036854775807.5", 0, std::nullopt}, // fits before it is rounded, but not after
        {"-9223372036854775808.4", 0, smallest},
        {"-9223372036854775808.5", 0, std::nullopt},
        {"92233720368547758.07", 2, largest},
        {"92233720368547758.08", 2, std::nullopt},
        {std::string(1000, '0') + "1.5", 1, 15},
        {"1" + std::string(1000, '0'), 0, std::nullopt},
        {"0." + std::string(1000, '0') + "1", 3, 0},
    };
    for (const auto& [text, scale, expected] : cases) {
        const auto decimal = Decimal::parse(text);
        ASSERT_TRUE(decimal) << text;
        EXPECT_EQ(decimal->scaled(scale), expected) << text.substr(0, 60) << " at " << scale;
    }
}

TEST(DecimalTest, scalesLikeWholeNumberDivision)
{
    std::mt19937_64 random(11); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same numbers in every run
    for (int round = 0; round < 20000; ++round) {
        const auto unscaled = static_cast<std::int64_t>(random()) >> (random() % 64);
        const int fractionDigits = static_cast<int>(random() % 7);
        const int scale = static_cast<int>(random() % 4);
        Int128 value = unscaled;
        Int128 divisor = 1;
        for (int digit = 0; digit < scale; ++digit) {
            value *= 10;
        }
        for (int digit = 0; digit < fractionDigits; ++digit) {
            divisor *= 10;
        }
        const Int128 half = value < 0 ? -divisor / 2 : divisor / 2;
        const auto expected = narrowed<std::int64_t>((value + half) / divisor);
        EXPECT_EQ(Decimal::fromInteger(unscaled, fractionDigits).scaled(scale), expected)
            << unscaled << ' ' << fractionDigits << ' ' << scale;
    }
}

TEST(DecimalTest, comparesNumbersAndNotTexts)
{
    const auto decimal = [](std::string_view text) {
        return Decimal::parse(text).value();
    };
    EXPECT_EQ(decimal("1.5"), decimal("1.50"));
    EXPECT_EQ(decimal("100"), decimal("100.00"));
    EXPECT_EQ(decimal("-0"), decimal("0.000"));
    EXPECT_EQ(decimal("0012.5"), decimal("12.5"));
    EXPECT_NE(decimal("1.5"), decimal("15"));
    EXPECT_NE(decimal("1.5"), decimal("-1.5"));
    EXPECT_NE(decimal("1"), decimal("10"));
    EXPECT_NE(decimal("0.1"), decimal("0.01"));
    EXPECT_NE(decimal("1.05"), decimal("1.5"));
}

TEST(DecimalTest, showsIntegersAsDecimals)
{
    EXPECT_EQ(Decimal::fromInteger(1234, 2).text(), "12.34");
    EXPECT_EQ(Decimal::fromInteger(-5, 2).text(), "-0.05");
    EXPECT_EQ(Decimal::fromInteger(0, 2).text(), "0.00");
    EXPECT_EQ(Decimal::fromInteger(7, 0).text(), "7");
    EXPECT_EQ(Decimal::fromInteger(smallest, 3).text(), "-9223372036854775.808");
    EXPECT_EQ(Decimal().text(), "0");
    EXPECT_EQ(Decimal().negated().text(), "0"); // zero has no sign
    EXPECT_EQ(Decimal::fromInteger(5, 1).negated().text(), "-0.5");
}

} // namespace

} // namespace Quillary
