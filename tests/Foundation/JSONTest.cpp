#include "QuillaryCore/Foundation/JSON.h"

#include "QuillaryCore/Foundation/Text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

namespace {

std::string repeated(std::string_view part, int times)
{
    std::string result;
    for (int count = 0; count < times; ++count) {
        result += part;
    }
    return result;
}

std::string nested(int depth)
{
    return repeated("[", depth) + repeated("]", depth);
}

TEST(JSONTest, comesBackAsItWasSent)
{
    const std::string_view cases[] = {
        "null",
        "true",
        "false",
        "\"text\"",
        "0",
        "-0",                             // the sign of an id is kept
        "12.50",                          // an amount's zeros
        "1e3",                            //
        "1E+3",                           //
        "-1.5e-7",                        //
        "9223372036854775807",            //
        "18446744073709551615",           // beyond signed 64 bits
        "123456789012345678901234567890", // beyond all
        "1e400",                          // beyond a double
        "0.1000000000000000055511151231257827",
        "[]",
        "{}",
        R"([1,[2,{"a":[]}],null])",
        R"({"z":1,"a":2,"m":{"b":0,"a":0}})", // the order of keys is kept
        R"({"":""})",
        R"("Grüße 世界 🌍 / é")",
        R"("\"\\\n\r\t\u0001\u0000")",
    };
    for (const std::string_view text : cases) {
        const auto value = JSON::parse(text);
        ASSERT_TRUE(value) << text;
        EXPECT_EQ(value->dump(), text);
    }
}

TEST(JSONTest, readsOtherSpellings)
{
    const std::string_view cases[][2] = {
        {" \t\r\n{ \"a\" : [ 1 , 2 ] } \n", R"({"a":[1,2]})"},
        {R"("\/\b\f\u00e9\uD83C\uDF0D")", "\"/\\u0008\\u000cé🌍\""}, // escapes that we do not write
        {R"({"a":1,"b":2,"a":3})", R"({"a":3,"b":2})"},              // the last value of a key counts
        {R"({"a":1,"a":2,"a":{"a":4,"a":5}})", R"({"a":{"a":5}})"},
        {"\xEF\xBB\xBF[1]", "[1]"}, // a byte-order mark is passed over
    };
    for (const auto& [text, expected] : cases) {
        const auto value = JSON::parse(text);
        ASSERT_TRUE(value) << text;
        EXPECT_EQ(value->dump(), expected) << text;
    }
}

TEST(JSONTest, refusesWhatIsNoJSON)
{
    const std::string cases[] = {
        "\"a\nb\"",              // a bare line end in a string
        R"("\ud800")",           // half a character
        R"("\x41")",             //
        "\"\xFF\"",              // no UTF-8
        "\"\xC0\xAF\"",          // overlong
        "\"\xED\xA0\x80\"",      // a surrogate in UTF-8
        std::string("1\0 2", 4), //
        nested(JSON::maximumDepth + 1),
        repeated("[", 1'000'000), // must not exhaust the stack
    };
    for (const std::string& text : cases) {
        EXPECT_EQ(JSON::parse(text), std::nullopt) << text.substr(0, 40);
    }
    for (const std::string_view text :
         split("|| |{|[1,]|{\"a\":1,}|[1] [2]|01|+1|.5|5.|1e|NaN|Infinity|'a'|tru|// comment\n1", '|')) {
        EXPECT_EQ(JSON::parse(text), std::nullopt) << text;
    }
    EXPECT_TRUE(JSON::parse(nested(JSON::maximumDepth)));
}

TEST(JSONTest, survivesHugeTexts)
{
    const std::string text = repeated("x", 10'000'000);
    const auto value = JSON::parse('"' + text + '"');
    ASSERT_TRUE(value);
    EXPECT_EQ(*value->string(), text);
    // Many keys, each of them twice: what looks for repeated keys must not compare all with all.
    std::string object = "{";
    for (int key = 0; key < 200'000; ++key) {
        object += "\"k" + std::to_string(key % 100'000) + "\":" + std::to_string(key) + ",";
    }
    object.back() = '}';
    const auto members = JSON::parse(object);
    ASSERT_TRUE(members);
    EXPECT_EQ(members->object()->size(), 100'000U);
    EXPECT_EQ(members->object()->front().second.integer(), 100'000);
}

TEST(JSONTest, numbersBecomeIntegersOnlyExactly)
{
    struct Case
    {
        std::string_view literal;
        std::optional<std::int64_t> integer;
        std::optional<std::string> decimal;
    };
    const Case cases[] = {
        {"0", 0, "0"},
        {"-0", 0, "-0"},
        {"12", 12, "12"},
        {"12.50", std::nullopt, "12.50"},
        {"12.00", 12, "12.00"},
        {"1e3", 1000, "1000"},
        {"1.5e1", 15, "15"},
        {"1.50e1", 15, "15.0"},
        {"125e-2", std::nullopt, "1.25"},
        {"1200e-2", 12, "12.00"},
        {"1e-3", std::nullopt, "0.001"},
        {"-1.5e-1", std::nullopt, "-0.15"},
        {"0.05e1", std::nullopt, "0.5"},
        {"0.05e3", 50, "50"},
        {"0e7", 0, "0"},
        {"9223372036854775807", std::numeric_limits<std::int64_t>::max(), "9223372036854775807"},
        {"-9223372036854775808", std::numeric_limits<std::int64_t>::min(), "-9223372036854775808"},
        {"9223372036854775808", std::nullopt, "9223372036854775808"},
        {"1e19", std::nullopt, "10000000000000000000"},
        {"1e401", std::nullopt, std::nullopt},  // a short text that would become a long one
        {"1e-401", std::nullopt, std::nullopt}, //
        {"1e999999999999", std::nullopt, std::nullopt},
    };
    for (const auto& [literal, integer, decimal] : cases) {
        const JSON value(JSON::Number{std::string(literal)});
        EXPECT_EQ(value.integer(), integer) << literal;
        EXPECT_EQ(value.decimalText(), decimal) << literal;
        EXPECT_EQ(value.text(), decimal) << literal;
    }
    EXPECT_EQ(JSON("12").integer(), std::nullopt); // a text is no number
    EXPECT_EQ(JSON("12").decimalText(), std::nullopt);
    EXPECT_EQ(JSON("12").text(), "12");
    EXPECT_EQ(JSON(true).text(), std::nullopt);
}

TEST(JSONTest, keepsThePointInEveryProcessLocale)
{
    // The reader below writes numbers with the point of the C locale of the process, which a window sets.
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "C"}) {
        if (std::setlocale(LC_NUMERIC, name) != nullptr) {
            EXPECT_EQ(JSON::parse("[12.50]")->dump(), "[12.50]") << name;
        }
    }
    std::setlocale(LC_NUMERIC, before.c_str());
}

TEST(JSONTest, membersAreFoundAndSet)
{
    JSON value;
    EXPECT_EQ(value.find("a"), nullptr);
    value.set("a", 1); // null becomes an object
    value.set("b", JSON::array({true, nullptr, "x"}));
    value.set("a", JSON::object({{"c", 2U}, {"d", std::string("y")}}));
    EXPECT_EQ(value.dump(), R"({"a":{"c":2,"d":"y"},"b":[true,null,"x"]})");
    ASSERT_NE(value.find("b"), nullptr);
    EXPECT_EQ(value.find("b")->array()->size(), 3U);
    EXPECT_EQ(value.find("c"), nullptr); // only members, not those of members
    EXPECT_EQ(JSON(1).find("a"), nullptr);
    EXPECT_DEATH(JSON(1).set("a", 1), "broken rule: members are set in objects");
}

TEST(JSONTest, brokenTextOfOursStaysReadable)
{
    EXPECT_EQ(JSON("a\xFF\"").dump(), "\"a\uFFFD\\\"\"");
    EXPECT_EQ(JSON::object({{"\xC3", 1}}).dump(), "{\"\uFFFD\":1}");
}

TEST(JSONTest, indentsForPeople)
{
    const JSON value = JSON::object({{"a", JSON::array({1, JSON::object({})})}, {"b", JSON::array({})}});
    EXPECT_EQ(value.pretty(), "{\n  \"a\": [\n    1,\n    {}\n  ],\n  \"b\": []\n}");
    EXPECT_EQ(JSON::parse(value.pretty()), value);
}

TEST(JSONTest, equalityLooksAtTextAndOrder)
{
    EXPECT_NE(JSON::parse("1.0"), JSON::parse("1"));
    EXPECT_NE(JSON::parse(R"({"a":1,"b":2})"), JSON::parse(R"({"b":2,"a":1})"));
    EXPECT_NE(JSON(false), JSON());
    EXPECT_NE(JSON(0), JSON(false));
}

} // namespace

} // namespace Quillary
