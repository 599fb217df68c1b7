#include "QuillaryCore/Money/Percent.h"

#include "QuillaryCore/Foundation/Text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

TEST(PercentTest, readsRates)
{
    const std::pair<std::string_view, std::int32_t> cases[] = {
        {"19", 1900},
        {"7.5", 750},
        {"7.50", 750},
        {"7.05", 705},
        {"7,25 %", 725},
        {" \t19\u00A0% ", 1900},
        {"0.5", 50},
        {"0", 0},
        {"000", 0},
        {"100%", 10000},
        {"100.00", 10000},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(Percent::basisPoints(text), expected) << text;
    }
    for (const std::string_view text : split("100.01|999|0100|7.125|-7|+7|7.|.5|7..5|7.5,5|7%%|%7|%||7 5|٧", '|')) {
        EXPECT_EQ(Percent::basisPoints(text), std::nullopt) << text;
    }
}

TEST(PercentTest, writesRatesWithoutNeedlessZeros)
{
    const std::pair<std::int32_t, std::string_view> cases[] = {
        {1900, "19%"},
        {0, "0%"},
        {750, "7.5%"},
        {525, "5.25%"},
        {5, "0.05%"},
        {1950, "19.5%"},
        {1905, "19.05%"},
        {2000, "20%"},
        {10000, "100%"},
        {-50, "-0.5%"}, // damaged data: shown as it is
        {std::numeric_limits<std::int32_t>::min(), "-21474836.48%"},
    };
    for (const auto& [basisPoints, expected] : cases) {
        EXPECT_EQ(Percent::format(basisPoints), expected);
    }
}

TEST(PercentTest, everyRateComesBack)
{
    for (std::int32_t rate = 0; rate <= 10000; ++rate) {
        ASSERT_EQ(Percent::basisPoints(Percent::format(rate)), rate);
    }
}

} // namespace

} // namespace Quillary
