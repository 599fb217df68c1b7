#include "QuillaryCore/Money/DecimalInput.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

/// What is read, as text.
std::string read(std::string_view text, const Locale& locale)
{
    const auto decimal = DecimalInput::parse(text, locale);
    return decimal ? decimal->text() : "none";
}

TEST(DecimalInputTest, aLoneSeparatorIsTheLocales)
{
    struct Case
    {
        std::string_view text;
        std::string_view english;
        std::string_view german;
    };
    const Case cases[] = {
        {"1,234", "1234", "1.234"},
        {"1.234", "1.234", "1234"},
        {"12,345", "12345", "12.345"},
        {"123,456", "123456", "123.456"},
        {"1234,567", "1234.567", "1234.567"}, // four digits in front: no group would begin so
        {"1,23", "1.23", "1.23"},             // two digits behind
        {"1,2345", "1.2345", "1.2345"},
        {",123", "0.123", "0.123"}, // nothing in front
        {"0.125", "0.125", "125"},  // a group of three is what it looks like
        {"-1,234", "-1234", "-1.234"},
    };
    const Locale english("en_US");
    const Locale german("de_DE");
    for (const auto& [text, inEnglish, inGerman] : cases) {
        EXPECT_EQ(read(text, english), inEnglish) << text;
        EXPECT_EQ(read(text, german), inGerman) << text;
    }
    EXPECT_EQ(read("1,234", Locale("fr_FR")), "1.234"); // a locale that groups with neither
    EXPECT_EQ(read("1.234", Locale("fr_FR")), "1.234");
    EXPECT_EQ(read("1,234", Locale("en_US_POSIX")), "1234");
}

TEST(DecimalInputTest, readsEveryStyle)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        // the same in every locale
        {"1234", "1234"},
        {"1.234,56", "1234.56"},
        {"1,234.56", "1234.56"},
        {"1 234,56", "1234.56"},
        {"1\u00A0234,56", "1234.56"},
        {"1\u202F234,56", "1234.56"},
        {"1'234.56", "1234.56"},
        {"CHF 1’234.56", "1234.56"},
        {"1,234,567", "1234567"},
        {"1.234.567", "1234567"},
        {"1,23,45,678.90", "12345678.90"},
        {"1.234.567,8", "1234567.8"},
        {"1,5", "1.5"},
        {"12,3456", "12.3456"},
        {"5.", "5"},
        {"5,", "5"},
        {".5", "0.5"},
        {",5", "0.5"},
        {"-.5", "-0.5"},
        // currency signs and words around the number
        {"€ 12,50", "12.50"},
        {"12.50 USD", "12.50"},
        {"$-3", "-3"},
        {"-12,50 €", "-12.50"},
        {"- 5", "-5"},
        {"about 7 pieces", "7"},
        {"\t12\n", "12"},
        // digits and signs of other scripts, as the formats of those locales write them
        {"١٬٢٣٤٫٥٦", "1234.56"},
        {"१,२३४.५", "1234.5"},
        {"１２", "12"},
        {"\u22125,25", "-5.25"},
        {"\u200E\u22125", "-5"},
        {"0", "0"},
        {"-0", "0"},
        {"000123.450", "123.450"},
    };
    for (const char* name : {"en_US", "de_DE", "fr_CH"}) {
        const Locale locale(name);
        for (const auto& [text, expected] : cases) {
            EXPECT_EQ(read(text, locale), expected) << text << " in " << name;
        }
    }
}

TEST(DecimalInputTest, refusesWhatIsNoNumber)
{
    const Locale locale("en_US");
    // One minus is a sign; there are no exponents, and one decimal mark.
    for (const std::string_view text :
         {"",    "abc",       "€",       ".",   ",",   "-",    "-.",      "--5", "12a4", "1-2",
          "1e5", "1.234,5,6", "1,2.3.4", "1/2", "1+2", "0x1F", "1\xFF,2", "²",   "..",   ".,"}) {
        EXPECT_EQ(read(text, locale), "none") << text;
    }
    EXPECT_EQ(read("5-", locale), "5"); // what follows the number is dropped like a currency sign
}

TEST(DecimalInputTest, longTextsStayExact)
{
    const Locale locale("en_US");
    const std::string digits = "12345678901234567890123456789012345678901234567890";
    EXPECT_EQ(read(digits + "." + digits, locale), digits + "." + digits);
    const std::string huge(5'000'000, '9');
    const auto decimal = DecimalInput::parse(huge, locale);
    ASSERT_TRUE(decimal);
    EXPECT_EQ(DecimalInput::scaled(*decimal, 2), std::nullopt);
    EXPECT_EQ(read(std::string(5'000'000, ','), locale), "none");
    EXPECT_EQ(read(std::string(5'000'000, ' ') + "7", locale), "7");
    EXPECT_EQ(DecimalInput::scaled(DecimalInput::parse("9223372036854775807", locale).value(), 0),
              std::numeric_limits<std::int64_t>::max());
}

} // namespace

} // namespace Quillary
