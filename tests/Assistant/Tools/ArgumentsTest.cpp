#include "QuillaryCore/Assistant/Tools/Arguments.h"

#include "QuillaryCore/Assistant/Tools/ToolResult.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>

namespace Quillary {
namespace {

constexpr std::int64_t limit = 10'000'000;

/// The value that a reader gives for {"x": `literal`}, or the sentence it refuses it with.
std::string read(std::string_view literal, const std::function<std::string(const Arguments&)>& reader)
{
    const auto object = JSON::parse("{\"x\":" + std::string(literal) + "}");
    EXPECT_TRUE(object) << literal;
    try {
        return reader(Arguments(*object));
    } catch (const AssistantError& error) {
        return error.message();
    }
}

template <class T>
std::string shown(const std::optional<T>& value)
{
    return value ? std::to_string(*value) : "none";
}

TEST(ArgumentsTest, readsAmountsWithoutBinaryRounding)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"90", "9000"},
        {"\"1250.50\"", "125050"},
        {"0.285", "29"},  // a tie; the nearest binary number lies below it
        {"1e2", "10000"}, // exponents are numbers too
        {"-1.005", "-101"},
        {"null", "none"},
        {"\"1,50\"", "“x” must be a plain number such as 12.5."},
        {"\"\"", "“x” must be a plain number such as 12.5."},
        {"\"∞\"", "“x” must be a plain number such as 12.5."},
        {"100000.01", "“x” is too large for a price: at most 100000.00 EUR."},
        {"92233720368547758.08", "“x” is too large for a price: at most 100000.00 EUR."},
        {"1e400", "“x” must be a plain number such as 12.5."},
    };
    for (const auto& [literal, expected] : cases) {
        EXPECT_EQ(read(literal,
                       [](const Arguments& arguments) {
                           return shown(arguments.amount("x", "price", "EUR", Sign::any, limit));
                       }),
                  expected)
            << literal;
    }
    EXPECT_EQ(read("-5",
                   [](const Arguments& arguments) {
                       return shown(arguments.amount("x", "discount", "JPY", Sign::notNegative, limit));
                   }),
              "“x” can't be negative: a discount is 0 or more.");
}

TEST(ArgumentsTest, readsRatesAndWholeNumbersExactly)
{
    const std::pair<std::string_view, std::string_view> rates[] = {
        {"19", "1900"},
        {"5.5", "550"},
        {"100", "10000"},
        {"19.000", "1900"},
        {"0.001", "“x” must be a percentage from 0 to 100 with at most two decimals, such as 19 or 5.5."},
        {"100.01", "“x” must be a percentage from 0 to 100 with at most two decimals, such as 19 or 5.5."},
        {"-1", "“x” must be a percentage from 0 to 100 with at most two decimals, such as 19 or 5.5."},
    };
    for (const auto& [literal, expected] : rates) {
        EXPECT_EQ(read(literal, [](const Arguments& arguments) { return shown(arguments.rate("x")); }), expected)
            << literal;
    }
    const std::pair<std::string_view, std::string_view> whole[] = {
        {"14", "14"},
        {"14.0", "14"},
        {"14.5", "“x” must be a whole number from 0 to 30."},
        {"31", "“x” must be a whole number from 0 to 30."},
        {"99999999999999999999", "“x” must be a whole number from 0 to 30."},
    };
    for (const auto& [literal, expected] : whole) {
        EXPECT_EQ(read(literal, [](const Arguments& arguments) { return shown(arguments.wholeNumber("x", 0, 30)); }),
                  expected)
            << literal;
    }
}

TEST(ArgumentsTest, cleansTextAndCountsItsCharacters)
{
    const std::pair<std::string_view, std::string_view> lines[] = {
        {"\"  Two\\twords\\n\"", "Two words"},
        {"\"a\\u0000b\"", "a\uFFFDb"},
        {"4711", "4711"},
        {"\"a\\u0085b\\u2028c\"", "a b c"},
        {"\"a\\u202Eb\\u2066c\"", "a b c"},         // would show what follows backwards
        {"\"x\\u200Cy\\u200D\"", "x\u200Cy\u200D"}, // joiners belong to the text
        {"\"12345678901\"", "“x” is too long: at most 10 characters."},
    };
    for (const auto& [literal, expected] : lines) {
        EXPECT_EQ(read(literal, [](const Arguments& arguments) { return arguments.line("x", 10).value_or("none"); }),
                  expected)
            << literal;
    }
    std::string families;
    for (int count = 0; count < 10; ++count) {
        families += "👩‍👩‍👧"; // one character to a reader, eighteen bytes to a machine
    }
    EXPECT_EQ(read("\"" + families + "\"",
                   [](const Arguments& arguments) { return arguments.line("x", 10).value_or("none"); }),
              families);
    EXPECT_EQ(read("\" a\\r\\nb\\rc\\u0007 \"",
                   [](const Arguments& arguments) { return arguments.paragraphs("x", 10).value_or("none"); }),
              "a\nb\nc");
    EXPECT_EQ(read("\"a\\u2029b\\u009F\"",
                   [](const Arguments& arguments) { return arguments.paragraphs("x", 10).value_or("none"); }),
              "a\nb");
    // NOLINTNEXTLINE(bugprone-string-constructor): long on purpose
    const std::string huge = "\"" + std::string(10'000'000, 'x') + "\"";
    EXPECT_EQ(read(huge, [](const Arguments& arguments) { return arguments.line("x", 500).value_or("none"); }),
              "“x” is too long: at most 500 characters.");
}

} // namespace
} // namespace Quillary
