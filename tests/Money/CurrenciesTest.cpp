#include "QuillaryCore/Money/Currencies.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unicode/coll.h>
#include <unicode/numfmt.h>
#include <unicode/ucurr.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

TEST(CurrenciesTest, digitsAreThoseOfThePOSIXCurrencyFormat)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UEnumeration, decltype(&uenum_close)> codes(ucurr_openISOCurrencies(UCURR_ALL, &status),
                                                                      &uenum_close);
    const std::unique_ptr<icu::NumberFormat> format(
        icu::NumberFormat::createCurrencyInstance(icu::Locale("en_US_POSIX"), status));
    int count = 0;
    std::int32_t length = 0;
    while (const char* code = uenum_next(codes.get(), &length, &status)) {
        icu::UnicodeString name = icu::UnicodeString::fromUTF8(code);
        format->setCurrency(name.getTerminatedBuffer(), status);
        EXPECT_EQ(Currencies::fractionDigits(code), format->getMaximumFractionDigits()) << code;
        ++count;
    }
    EXPECT_TRUE(U_SUCCESS(status));
    EXPECT_GT(count, 250);
}

TEST(CurrenciesTest, digitsOfAnyCode)
{
    const std::pair<std::string_view, int> cases[] = {
        {"KWD", 3},
        {"CLF", 4},
        {"jpy", 0},
        {"QQQ", 2}, // unknown codes count like most
        {"", 2},
        {"EURO", 2},
        {"J€", 2},
        {"123", 2},
    };
    for (const auto& [code, digits] : cases) {
        EXPECT_EQ(Currencies::fractionDigits(code), digits) << code;
    }
}

TEST(CurrenciesTest, knowsCurrentCodesOnly)
{
    for (const std::string_view code : Currencies::popularCodes) {
        EXPECT_TRUE(Currencies::isKnown(code)) << code;
    }
    EXPECT_TRUE(Currencies::isKnown("eur"));
    for (const std::string_view code : {"DEM", "XTS", "QQQ", "", "EU", "EURO", "€"}) {
        EXPECT_FALSE(Currencies::isKnown(code)) << code;
    }
}

TEST(CurrenciesTest, listsEachOnceInTheOrderOfTheLanguage)
{
    for (const char* name : {"en_US", "de_DE", "sv_SE"}) {
        const auto currencies = Currencies::all(Locale(name));
        EXPECT_GT(currencies.size(), 140U);
        std::set<std::string> codes;
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(icu::Locale(name), status));
        for (std::size_t index = 0; index < currencies.size(); ++index) {
            EXPECT_TRUE(codes.insert(currencies[index].id()).second) << currencies[index].code;
            EXPECT_TRUE(Currencies::isKnown(currencies[index].code)) << currencies[index].code;
            if (index > 0) {
                EXPECT_LE(collator->compareUTF8(currencies[index - 1].name, currencies[index].name, status), 0)
                    << currencies[index].name;
            }
        }
        EXPECT_TRUE(std::ranges::all_of(Currencies::popularCodes,
                                        [&](std::string_view code) { return codes.contains(std::string(code)); }));
    }
    EXPECT_THAT(Currencies::all(Locale("de_DE")), testing::Contains(Currency{"CHF", "Schweizer Franken"}));
}

} // namespace

} // namespace Quillary
