#include "QuillaryCore/Foundation/Locale.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <string_view>

namespace Quillary {

namespace {

constexpr auto largest = std::numeric_limits<std::int64_t>::max();
constexpr auto smallest = std::numeric_limits<std::int64_t>::min();

TEST(LocaleTest, namesAreRead)
{
    struct Case
    {
        std::string identifier;
        std::string_view resolved;
        std::string_view language;
        std::string_view region;
    };
    const Case cases[] = {
        {"de_AT", "de_AT", "de", "AT"},
        {"de-AT", "de_AT", "de", "AT"},
        {"DE_at", "de_AT", "de", "AT"},
        {"de_DE.UTF-8", "de_DE", "de", "DE"},
        {"de_DE@euro", "de_DE", "de", "DE"},
        {"de_DE.UTF-8@euro", "de_DE", "de", "DE"},
        {"de", "de", "de", ""},
        {"sr_RS@latin", "sr_Latn_RS", "sr", "RS"},
        {"zh-Hant-TW", "zh_Hant_TW", "zh", "TW"},
        {"es-419", "es_419", "es", "419"},
        {"iw_IL", "he_IL", "he", "IL"}, // the code that Hebrew had before
        {"ar_EG@numbers=latn;calendar=islamic", "ar_EG", "ar", "EG"},
        {"ar-EG-u-nu-latn", "ar_EG", "ar", "EG"},
        {"de_ZZ", "de_ZZ", "de", "ZZ"}, // a region without data follows the language
        {"en_US_POSIX", "en_US_POSIX", "en", "US"},
        {"root", "en", "en", ""},
        {"_DE", "en", "en", ""}, // a region alone says nothing about the language
    };
    for (const auto& [identifier, resolved, language, region] : cases) {
        const Locale locale(identifier);
        const std::string shown = identifier.substr(0, 40);
        EXPECT_EQ(locale.identifier(), resolved) << shown;
        EXPECT_EQ(locale.languageCode(), language) << shown;
        EXPECT_EQ(locale.regionCode(), region) << shown;
    }
    // Languages without data ("tlh") and texts that name none.
    for (const std::string& identifier : {std::string("de\0_AT", 6),
                                          std::string(100'000, 'd'),
                                          std::string("\xFF\xFE"),
                                          std::string("../../etc/passwd"),
                                          std::string("garbage!!"),
                                          std::string("C"),
                                          std::string("C.UTF-8"),
                                          std::string("POSIX"),
                                          std::string("tlh_AA"),
                                          std::string()}) {
        EXPECT_EQ(Locale(identifier).identifier(), "en") << identifier.substr(0, 40);
        EXPECT_EQ(Locale(identifier).languageCode() + Locale(identifier).regionCode(), "en")
            << identifier.substr(0, 40);
    }
}

TEST(LocaleTest, numbersAreGroupedAsTheRegionDoes)
{
    struct Case
    {
        std::string_view locale;
        std::int64_t unscaled;
        int scale;
        int minimumFraction;
        std::string_view expected;
    };
    const Case cases[] = {
        {"en_US", 1234567890, 3, 0, "1,234,567.89"},
        {"en_US", 1000, 3, 0, "1"},
        {"en_US", 1234, 3, 0, "1.234"},
        {"en_US", -500, 3, 0, "-0.5"},
        {"en_US", -1, 3, 3, "-0.001"},
        {"en_US", 0, 3, 2, "0.00"},
        {"en_US", 100000, 2, 2, "1,000.00"},
        {"en_US", largest, 0, 0, "9,223,372,036,854,775,807"},
        {"en_US", smallest, 0, 0, "-9,223,372,036,854,775,808"},
        {"en_US", smallest, 18, 0, "-9.223372036854775808"},
        {"de_DE", 123456789, 2, 2, "1.234.567,89"},
        {"es_ES", 123456, 2, 2, "1234,56"},    // four digits are not grouped in Spain
        {"es_ES", 1234567, 2, 2, "12.345,67"}, //
        {"es_MX", 123456, 2, 2, "1,234.56"},   // but in Mexico
        {"pl_PL", 123456, 2, 2, "1234,56"},    //
        {"en_IN", 1234567890, 2, 2, "1,23,45,678.90"},
        {"de_CH", 123456, 2, 2, "1’234.56"},
        {"de_AT", 123456, 2, 2, "1\u00A0234,56"},
        {"fr_FR", 123456, 2, 2, "1\u202F234,56"},
        {"sv_SE", -123456, 2, 2, "\u22121\u00A0234,56"}, // a minus sign, not a hyphen
        {"ar_EG", 123456, 2, 2, "١٬٢٣٤٫٥٦"},
        {"en_US_POSIX", 123456, 2, 2, "1234.56"},
    };
    for (const auto& [name, unscaled, scale, minimumFraction, expected] : cases) {
        EXPECT_EQ(Locale(name).formatDecimal(unscaled, scale, minimumFraction), expected) << name << ' ' << unscaled;
    }
}

TEST(LocaleTest, moneyStandsAsTheRegionWritesIt)
{
    struct Case
    {
        std::string_view locale;
        std::int64_t minorUnits;
        int fractionDigits;
        std::string_view code;
        std::string_view expected;
    };
    const Case cases[] = {
        {"en_US", -123456, 2, "USD", "-$1,234.56"},
        {"de_DE", -123456, 2, "EUR", "-1.234,56\u00A0€"},
        {"de_AT", 123456, 2, "EUR", "€\u00A01.234,56"}, // other marks than in plain numbers
        {"de_CH", -123456, 2, "CHF", "CHF-1’234.56"},
        {"en_CH", -123456, 2, "CHF", "CHF-1’234.56"}, // CLDR's pattern of a locale that inherits from another region
        {"fr_FR", 123456, 2, "EUR", "1\u202F234,56\u00A0€"},
        {"nl_NL", -123456, 2, "EUR", "€\u00A0-1.234,56"},
        {"es_ES", 123456, 2, "EUR", "1234,56\u00A0€"},
        {"ja_JP", 123456, 0, "JPY", "￥123,456"},
        {"en_IN", 1234567890, 2, "INR", "₹1,23,45,678.90"},
        {"en_US", 1234567, 3, "KWD", "KWD\u00A01,234.567"},
        {"pt_CV", 123456, 2, "CVE", "1234$56\u00A0\u200B"},
        {"en_US", 123, 2, "usd", "$1.23"},
        {"en_US", 123, 2, "QQQ", "QQQ\u00A01.23"}, // a code that nobody uses
        {"en_US", 123, 2, "E1R", "E1R\u00A01.23"}, // no code at all stands as it is
        {"en_US", 123, 2, "", "\u00A01.23"},
        {"en_US", smallest, 2, "USD", "-$92,233,720,368,547,758.08"},
    };
    for (const auto& [name, minorUnits, digits, code, expected] : cases) {
        EXPECT_EQ(Locale(name).formatCurrency(minorUnits, digits, code), expected) << name << ' ' << code;
    }
}

TEST(LocaleTest, datesHaveAWholeYear)
{
    struct Case
    {
        std::string_view locale;
        std::string_view day;
        std::string_view expected;
    };
    const Case cases[] = {
        {"en_US", "2025-03-07", "Mar 7, 2025"},
        {"en_GB", "2025-03-07", "7 Mar 2025"},
        {"de_DE", "2025-03-07", "07.03.2025"},
        {"fr_FR", "2025-03-07", "7 mars 2025"},
        {"es_ES", "2025-03-07", "7 mar 2025"},
        {"nl_NL", "2025-03-07", "7 mrt 2025"},
        {"it_IT", "2025-12-31", "31 dic 2025"},
        {"ja_JP", "2025-03-07", "2025/03/07"},
        {"th_TH", "2025-03-07", "7 มี.ค. 2025"},            // the Gregorian year, where another era is usual
        {"ar_SA", "2025-03-07", "٠٧\u200F/٠٣\u200F/٢٠٢٥"}, // and another calendar
        {"de_DE", "1582-10-10", "10.10.1582"},             // a day that the older calendars do not have
        {"de_DE", "0001-01-01", "01.01.1"},
    };
    for (const auto& [name, day, expected] : cases) {
        EXPECT_EQ(Locale(name).formatDate(parseISODate(day).value()), expected) << name;
    }
    EXPECT_FALSE(Locale("de_DE").formatDate(CalendarDate()).empty()); // no such day, but no crash either
}

TEST(LocaleTest, namesCountriesAndCurrencies)
{
    const Locale german("de_DE");
    EXPECT_EQ(german.countryName("AT"), "Österreich");
    EXPECT_EQ(german.countryName("at"), "Österreich");
    EXPECT_EQ(german.countryName("QX"), "QX");
    EXPECT_EQ(german.countryName("Österreich"), "Österreich");
    EXPECT_EQ(german.countryName(""), "");
    EXPECT_EQ(german.currencyName("CHF"), "Schweizer Franken");
    EXPECT_EQ(german.currencyName("chf"), "Schweizer Franken");
    EXPECT_EQ(german.currencyName("QQQ"), "QQQ");
    EXPECT_EQ(german.currencyName("E1"), "E1");
    EXPECT_EQ(Locale("en").currencyName("CHF"), "Swiss Franc");
}

TEST(LocaleTest, copiesShareNothing)
{
    auto original = std::make_unique<Locale>("de_DE");
    EXPECT_EQ(original->formatCurrency(150, 2, "EUR"), "1,50\u00A0€");
    Locale copy("en_US");
    copy = *original;
    original.reset();
    EXPECT_EQ(copy.identifier(), "de_DE");
    EXPECT_EQ(copy.formatCurrency(150, 2, "EUR"), "1,50\u00A0€");
}

TEST(LocaleTest, manyCurrenciesDoNotPileUp)
{
    const Locale locale("en_US");
    std::string code = "QAA";
    for (char second = 'A'; second <= 'F'; ++second) {
        for (char third = 'A'; third <= 'Z'; ++third) {
            code[1] = second;
            code[2] = third;
            EXPECT_EQ(locale.formatCurrency(100, 2, code), code + "\u00A01.00");
        }
    }
}

} // namespace

} // namespace Quillary
