#include "QuillaryCore/Money/Money.h"

#include "QuillaryCore/Money/Quantity.h"

#include <gtest/gtest.h>
#include <unicode/locid.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_set>
#include <utility>

namespace Quillary {

namespace {

using namespace std::string_view_literals;

constexpr auto largest = std::numeric_limits<std::int64_t>::max();
constexpr auto smallest = std::numeric_limits<std::int64_t>::min();

TEST(MoneyTest, readsOnlyPlainDecimals)
{
    struct Case
    {
        std::string_view text;
        std::string_view code;
        std::int64_t expected;
    };
    const Case cases[] = {
        {"12.345", "EUR", 1235}, // a tie goes away from zero, on both sides
        {"-0.005", "EUR", -1},
        {"-0.004", "EUR", 0},
        {" \t12.3 \t", "EUR", 1230},
        {"1234.5", "JPY", 1235},
        {"1.2345", "KWD", 1235},
        {"007", "EUR", 700},
        {"92233720368547758.07", "EUR", largest},
        {"-92233720368547758.08", "EUR", smallest},
    };
    for (const auto& [text, code, expected] : cases) {
        EXPECT_EQ(Money::fromDecimalString(text, code), Money(expected, code)) << text;
    }
    // Grouping and commas belong to typed text; blanks and tabs are trimmed, line ends are not.
    for (const std::string_view text : {"1,00"sv, "1,000.00"sv, "1 000"sv, "+1"sv,    "1e3"sv,
                                        "12\n"sv, ".5"sv,       "5."sv,    "- 5"sv,   "--5"sv,
                                        ""sv,     "  "sv,       "-"sv,     "1.2.3"sv, "€5"sv,
                                        "٥"sv,    "nan"sv,      "inf"sv,   "1\0"sv,   "92233720368547758.08"sv}) {
        EXPECT_EQ(Money::fromDecimalString(text, "EUR"), std::nullopt) << text;
    }
    EXPECT_EQ(Money::fromDecimalString("9223372036854775808", "JPY"), std::nullopt);
}

TEST(MoneyTest, readsWhatIsTyped)
{
    const Locale english("en_US");
    const std::pair<std::string_view, std::optional<std::int64_t>> cases[] = {
        {"0.005", 1},
        {"0.004", 0},
        {"-0.005", -1},
        {"$1,234.50", 123450},
        {"1,234", 123400},
        {"92,233,720,368,547,758.07", largest},
        {"92,233,720,368,547,758.08", std::nullopt},
        {"free", std::nullopt},
    };
    for (const auto& [text, expected] : cases) {
        const auto money = Money::typed(text, "usd", english);
        EXPECT_EQ(money, expected ? std::optional(Money(*expected, "USD")) : std::nullopt) << text;
    }
    EXPECT_EQ(Money::typed("1234.5", "JPY", english), Money(1235, "JPY"));
}

TEST(MoneyTest, isShownWithTheCurrencysDigits)
{
    const Locale english("en_US");
    EXPECT_EQ(Money(1235, "JPY").formatted(english), "¥1,235");
    EXPECT_EQ(Money(-123450, "usd").formatted(english), "-$1,234.50");
    EXPECT_EQ(Money(1234567, "KWD").formatted(english), "KWD\u00A01,234.567");
    EXPECT_EQ(Money(1235, "JPY").editingText(english), "1,235");
    EXPECT_EQ(Money(-123450, "USD").editingText(Locale("de_DE")), "-1.234,50");
    EXPECT_EQ(Money(-5, "USD").plainText(), "-0.05");
    EXPECT_EQ(Money(5, "JPY").plainText(), "5");
    EXPECT_EQ(Money(1234, "EUR").decimalValue(), Decimal::parse("12.34"));
    EXPECT_EQ(Money(1234, "QQQ").plainText(), "12.34");
}

TEST(MoneyTest, whatIsShownForEditingIsReadBackInEveryLocale)
{
    constexpr std::int64_t amounts[] = {0, 5, -99, 100000, 123456, -1234567, 123456789, -12345678901234, largest};
    std::int32_t count = 0;
    const icu::Locale* locales = icu::Locale::getAvailableLocales(count);
    for (const icu::Locale& icuLocale : std::span(locales, static_cast<std::size_t>(count))) {
        const Locale locale(icuLocale.getName());
        for (const char* code : {"EUR", "JPY", "KWD"}) {
            for (const std::int64_t amount : amounts) {
                const Money money(amount, code);
                const std::string text = money.editingText(locale);
                ASSERT_EQ(Money::typed(text, code, locale), money) << locale.identifier() << ' ' << text;
            }
        }
        for (const std::int64_t amount : amounts) {
            const std::string text = Quantity::format(amount, locale);
            ASSERT_EQ(Quantity::parse(text, locale), amount) << locale.identifier() << ' ' << text;
        }
    }
}

TEST(MoneyTest, addsWithinOneCurrency)
{
    EXPECT_EQ(Money(150, "EUR") + Money(-200, "eur"), Money(-50, "EUR"));
    EXPECT_EQ(Money(150, "EUR") - Money(200, "EUR"), Money(-50, "EUR"));
    EXPECT_EQ(-Money(largest, "EUR"), Money(-largest, "EUR"));
    EXPECT_EQ(Money::zero("eur"), Money(0, "EUR"));
    EXPECT_NE(Money(1, "EUR"), Money(1, "USD"));
}

TEST(MoneyDeathTest, wrongSumsStopTheProgram)
{
    EXPECT_DEATH(std::ignore = Money(1, "EUR") + Money(1, "USD"), "broken rule: amounts of one currency are added");
    EXPECT_DEATH(std::ignore = Money(1, "EUR") - Money(1, "USD"), "broken rule: amounts of one currency are added");
    EXPECT_DEATH(std::ignore = Money(largest, "EUR") + Money(1, "EUR"), "broken rule: a sum of amounts fits 64 bits");
    EXPECT_DEATH(std::ignore = Money(smallest, "EUR") - Money(1, "EUR"), "a difference of amounts fits 64 bits");
    EXPECT_DEATH(std::ignore = -Money(smallest, "EUR"), "a difference of amounts fits 64 bits");
}

TEST(MoneyTest, isStoredFieldByField)
{
    const Money money(smallest, "eur");
    EXPECT_EQ(money.json().dump(), R"({"minorUnits":-9223372036854775808,"currencyCode":"EUR"})");
    EXPECT_EQ(Money::fromJSON(money.json()), money);
    for (const std::string_view text : {"{}",
                                        R"({"minorUnits":1})",
                                        R"({"currencyCode":"EUR"})",
                                        R"({"minorUnits":"1","currencyCode":"EUR"})",
                                        R"({"minorUnits":1.5,"currencyCode":"EUR"})",
                                        R"({"minorUnits":9223372036854775808,"currencyCode":"EUR"})",
                                        R"({"minorUnits":1,"currencyCode":2})",
                                        "[]"}) {
        EXPECT_EQ(Money::fromJSON(JSON::parse(text).value()), std::nullopt) << text;
    }
    const std::unordered_set<Money> set = {Money(1, "EUR"), Money(1, "USD"), Money(2, "EUR"), Money(1, "eur")};
    EXPECT_EQ(set.size(), 3U);
}

} // namespace

} // namespace Quillary
