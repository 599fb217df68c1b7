#include "QuillaryCore/Money/TypedSum.h"

#include <gtest/gtest.h>

#include <optional>

namespace Quillary {
namespace {

TEST(TypedSumTest, reckonsExactlyAndRoundsOnce)
{
    struct Case
    {
        std::string_view text;
        std::string_view locale;
        std::optional<std::int64_t> cents;
    };
    const Case cases[] = {
        {"3*12.50", "en", 3750},
        {"3 × 12,50", "de", 3750},
        {"1.000,50 + 2", "de", 100'250},
        {"2+3*4", "en", 1400}, // products first
        {"2*3+4*5-1", "en", 2500},
        {"10/4", "en", 250},
        {"1/3*3", "en", 100}, // a third is kept whole until the end
        {"0.005*1", "en", 1}, // a tie goes away from zero, on both sides
        {"-0.005*1", "en", -1},
        {"-3*2", "en", -600},
        {"3*-2", "en", -600}, // a minus after an operator is a sign
        {"5 − 7", "en", -200},
        {"10-2-3", "en", 500}, // from the left
        {"100 ÷ 8 ÷ 2", "en", 625},
        {"12.5", "en", 1250}, // a number alone
        {"0/5", "en", 0},
        {"1/0", "en", std::nullopt},
        {"3*", "en", std::nullopt},
        {"*3", "en", std::nullopt},
        {"2**3", "en", std::nullopt},
        {"", "en", std::nullopt},
        {"three*2", "en", std::nullopt},
        {"9000000000*9000000000*9000000000*9000000000", "en", std::nullopt}, // beyond what it reckons with
        {"92233720368547758.07*1", "en", std::nullopt},                      // an operand of so many digits
        {"9223372036*1000000000", "en", std::nullopt},                       // a result beyond 64 bits
    };
    for (const auto& [text, locale, cents] : cases) {
        EXPECT_EQ(TypedSum::scaled(text, Locale(locale), 2), cents) << text;
    }
}

} // namespace
} // namespace Quillary
