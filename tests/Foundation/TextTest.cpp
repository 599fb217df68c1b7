#include "QuillaryCore/Foundation/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

using testing::ElementsAre;

// One character each, as a person counts.
const std::string family = "\U0001F469\u200D\U0001F467"; // two people and a joiner
const std::string flag = "\U0001F1E9\U0001F1EA";         // two regional letters
const std::string accented = "e\u0301";                  // a letter and its accent
const std::string thumb = "\U0001F44D\U0001F3FD";        // a hand and its colour
const std::string hangul = "\u1112\u1161\u11AB";         // a syllable in its parts

TEST(TextTest, trimsUnicodeWhiteSpace)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        {" \t\r\n a b \v\f ", "a b"},
        {"\u00A0\u202F\u3000x\u2028\u2029\u0085", "x"}, // what word processors and spreadsheets leave behind
        {"\u200Bx\u200B", "\u200Bx\u200B"},             // a zero-width space is no white space (Unicode)
        {" \t ", ""},                                   //
        {"", ""},                                       //
        {"\xA0x\xA0", "\xA0x\xA0"},                     // broken bytes are not white space
        {" \xE2\x80", "\xE2\x80"},                      // half a space at the end
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(trimmed(text), expected) << testing::PrintToString(text);
    }
}

TEST(TextTest, countsCharactersAsAPersonDoes)
{
    const std::pair<std::string, std::size_t> cases[] = {
        {"", 0},
        {"abc", 3},
        {"a\r\nb", 3}, // a line end is one character, also in ASCII text
        {"\r\r\n\n", 3},
        {accented, 1},
        {family + flag + thumb + hangul, 4},
        {"x" + accented + "y", 3},
        {flag + flag, 2}, // four regional letters are two flags
        {"a\xFF\xFE"
         "b",
         4}, // each broken byte shows as one mark
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(graphemeCount(text), expected) << testing::PrintToString(text);
        EXPECT_EQ(graphemes(text).size(), expected) << testing::PrintToString(text);
    }
    EXPECT_THAT(graphemes("a" + flag + accented), ElementsAre("a", flag, accented));
    EXPECT_THAT(graphemes("ab"), ElementsAre("a", "b"));
}

TEST(TextTest, cutsBetweenCharactersOnly)
{
    struct Case
    {
        std::string text;
        std::size_t count;
        std::string expected;
    };
    const Case cases[] = {
        {"abc", 2, "ab"},
        {"abc", 0, ""},
        {"abc", 9, "abc"},
        {"ab" + accented, 3, "ab" + accented},
        {"e\u0301x", 1, accented}, // the accent follows outside of what ASCII alone would show
        {"a\r\nb", 2, "a\r\n"},    //
        {family + "x", 1, family}, //
        {flag + flag, 1, flag},    //
        {accented + accented, 9, accented + accented},
    };
    for (const auto& [text, count, expected] : cases) {
        EXPECT_EQ(graphemePrefix(text, count), expected) << testing::PrintToString(text) << ' ' << count;
    }
}

TEST(TextTest, hugeTextsAreCounted)
{
    std::string text;
    text.resize(10'000'000, 'x');
    EXPECT_EQ(graphemeCount(text), text.size());
    EXPECT_EQ(graphemePrefix(text, 100).size(), 100U);
    text += "é";
    EXPECT_EQ(graphemePrefix(text, 100).size(), 100U);
}

TEST(TextTest, findsControlCharacters)
{
    const std::pair<std::string, bool> cases[] = {
        {"", false},
        {"Grüße 🌍", false},
        {"a\tb", true},
        {"a\nb", true},
        {"a\x7F", true},
        {std::string("a\0b", 3), true},
        {"a\u0085", true}, // a control character above ASCII
        {"a\u200E", true}, // a mark of direction can turn a number around on the screen
        {"a\u00AD", true}, // soft hyphen
        {family, true},    // its joiner is a format character
        {"\xFF", false},   // broken bytes are no characters
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(hasControlCharacter(text), expected) << testing::PrintToString(text);
    }
}

TEST(TextTest, changesTheCaseOfASCIIOnly)
{
    EXPECT_EQ(upperCasedASCII("eur ß i é [`{@"), "EUR ß I é [`{@");
    EXPECT_EQ(lowerCasedASCII("EUR É I [`{@"), "eur É i [`{@");
}

TEST(TextTest, splitsAndReplaces)
{
    EXPECT_THAT(split("a,,b,", ','), ElementsAre("a", "", "b", ""));
    EXPECT_THAT(split("", ','), ElementsAre(""));
    EXPECT_EQ(replacing("aaa", "aa", "b"), "ba"); // from the left, what was put in is not looked at again
    EXPECT_EQ(replacing("x{a}y{a}", "{a}", "{a}{a}"), "x{a}{a}y{a}{a}");
    EXPECT_EQ(replacing("", "a", "b"), "");
    EXPECT_EQ(replacing("abc", "d", "e"), "abc");
}

} // namespace

} // namespace Quillary
