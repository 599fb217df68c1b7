#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Foundation/NumberStyle.h"

#include <gtest/gtest.h>
#include <unicode/decimfmt.h>
#include <unicode/locid.h>
#include <unicode/numberformatter.h>
#include <unicode/smpdtfmt.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <string>
#include <utility>

namespace Quillary {

namespace {

std::string utf8(const icu::UnicodeString& text)
{
    std::string result;
    return text.toUTF8String(result);
}

std::span<const icu::Locale> allLocales()
{
    std::int32_t count = 0;
    const icu::Locale* locales = icu::Locale::getAvailableLocales(count);
    return {locales, static_cast<std::size_t>(count)};
}

std::string decimalText(std::int64_t unscaled, int scale)
{
    return std::to_string(unscaled) + "E-" + std::to_string(scale);
}

constexpr auto largest = std::numeric_limits<std::int64_t>::max();
constexpr auto smallest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t amounts[] = {0,         1,           -1,          5,          -99,         100,
                                    999,       -1000,       1234,        9999,       -10000,      99999,
                                    100000,    -123456,     999999,      1000000,    -1234567,    12345678,
                                    123456789, -1234567890, 12345678901, -999999999, 98765432109, 900000000000000,
                                    largest,   smallest};

/// The locale's currency format; by default it ignores how many digits a locale wants to see before it groups.
std::unique_ptr<icu::DecimalFormat> currencyFormat(const icu::Locale& locale, const char* code, int digits)
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::NumberFormat> format(icu::NumberFormat::createCurrencyInstance(locale, status));
    std::unique_ptr<icu::DecimalFormat> result(dynamic_cast<icu::DecimalFormat*>(format.release()));
    icu::UnicodeString name = icu::UnicodeString::fromUTF8(code);
    result->setCurrency(name.getTerminatedBuffer(), status);
    result->setMinimumFractionDigits(digits);
    result->setMaximumFractionDigits(digits);
    result->setMinimumGroupingDigits(UNUM_MINIMUM_GROUPING_DIGITS_AUTO);
    EXPECT_TRUE(U_SUCCESS(status)) << locale.getName() << ' ' << code;
    return result;
}

TEST(LocaleAgainstICUTest, moneyIsWrittenAsICUWritesIt)
{
    constexpr std::pair<const char*, int> currencies[] = {{"EUR", 2}, {"JPY", 0}, {"KWD", 3}, {"INR", 2}, {"CVE", 2}};
    for (const icu::Locale& icuLocale : allLocales()) {
        const Locale locale(icuLocale.getName());
        ASSERT_EQ(locale.identifier(), icuLocale.getName());
        for (const auto& [code, digits] : currencies) {
            const auto format = currencyFormat(icuLocale, code, digits);
            for (const std::int64_t amount : amounts) {
                UErrorCode status = U_ZERO_ERROR;
                icu::UnicodeString expected;
                format->format(icu::StringPiece(decimalText(amount, digits)), expected, nullptr, status);
                ASSERT_EQ(locale.formatCurrency(amount, digits, code), utf8(expected))
                    << icuLocale.getName() << ' ' << code << ' ' << amount;
            }
        }
    }
}

TEST(LocaleAgainstICUTest, numbersAreWrittenAsICUWritesThem)
{
    for (const icu::Locale& icuLocale : allLocales()) {
        const Locale locale(icuLocale.getName());
        for (const int minimumFraction : {0, 2}) {
            // ICU's newer interface: another way through the library than the one the program takes.
            const auto format = icu::number::NumberFormatter::withLocale(icuLocale).precision(
                icu::number::Precision::minMaxFraction(minimumFraction, 3));
            for (const std::int64_t amount : amounts) {
                UErrorCode status = U_ZERO_ERROR;
                const auto expected = format.formatDecimal(decimalText(amount, 3), status).toString(status);
                ASSERT_EQ(locale.formatDecimal(amount, 3, minimumFraction), utf8(expected))
                    << icuLocale.getName() << ' ' << amount;
            }
        }
    }
}

TEST(LocaleAgainstICUTest, datesAreWrittenAsICUWritesThem)
{
    const CalendarDate days[] = {parseISODate("2024-02-29").value(),
                                 parseISODate("1999-12-31").value(),
                                 parseISODate("2025-05-01").value(),
                                 parseISODate("2031-09-10").value()};
    for (const icu::Locale& icuLocale : allLocales()) {
        const Locale locale(icuLocale.getName());
        icu::Locale gregorian = icuLocale;
        UErrorCode status = U_ZERO_ERROR;
        gregorian.setKeywordValue("calendar", "gregorian", status);
        const std::unique_ptr<icu::DateFormat> format(
            icu::DateFormat::createDateInstance(icu::DateFormat::kMedium, gregorian));
        format->setTimeZone(*icu::TimeZone::getGMT());
        for (const CalendarDate day : days) {
            const auto noon = std::chrono::sys_days(day).time_since_epoch() + std::chrono::hours(12);
            icu::UnicodeString expected;
            format->format(static_cast<double>(std::chrono::milliseconds(noon).count()), expected);
            ASSERT_EQ(locale.formatDate(day), utf8(expected)) << icuLocale.getName() << ' ' << isoText(day);
        }
    }
}

// Without this, a style that is never understood would show nowhere but in the time it takes.
TEST(LocaleAgainstICUTest, everyLocaleIsWrittenByHand)
{
    for (const icu::Locale& locale : allLocales()) {
        EXPECT_TRUE(NumberStyle::learned(*currencyFormat(locale, "EUR", 2), 2)) << locale.getName();
    }
}

} // namespace

} // namespace Quillary
