#include "QuillaryCore/Money/Quantity.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

TEST(QuantityTest, readsThousandths)
{
    const Locale english("en_US");
    const std::pair<std::string_view, std::optional<std::int64_t>> cases[] = {
        {"2.5", 2500},
        {"2,5 h", 2500},
        {"1,234", 1'234'000},
        {"0.0005", 1}, // a tie goes away from zero
        {"-0.0005", -1},
        {"0.00049", 0},
        {"9223372036854775.807", std::numeric_limits<std::int64_t>::max()},
        {"9223372036854775.8075", std::nullopt},
        {"two", std::nullopt},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(Quantity::parse(text, english), expected) << text;
    }
    EXPECT_EQ(Quantity::parse("1,234", Locale("de_DE")), 1234);
}

TEST(QuantityTest, writesUpToThreeFractionDigits)
{
    struct Case
    {
        std::int64_t thousandths;
        std::string_view english;
        std::string_view german;
        std::string_view plain;
    };
    const Case cases[] = {
        {2500, "2.5", "2,5", "2.5"},
        {1000, "1", "1", "1"},
        {1234, "1.234", "1,234", "1.234"},
        {0, "0", "0", "0"},
        {10, "0.01", "0,01", "0.01"},
        {-1500, "-1.5", "-1,5", "-1.5"},
        {10'000'000, "10,000", "10.000", "10000"}, // zeros of the whole part stay
        {1'234'567'890, "1,234,567.89", "1.234.567,89", "1234567.89"},
    };
    const Locale english("en_US");
    const Locale german("de_DE");
    for (const auto& [thousandths, inEnglish, inGerman, plain] : cases) {
        EXPECT_EQ(Quantity::format(thousandths, english), inEnglish);
        EXPECT_EQ(Quantity::format(thousandths, german), inGerman);
        EXPECT_EQ(Quantity::plainText(thousandths), plain);
    }
}

} // namespace

} // namespace Quillary
