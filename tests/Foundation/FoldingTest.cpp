#include "QuillaryCore/Foundation/Text.h"

#include <gtest/gtest.h>
#include <unicode/unistr.h>

#include <string>
#include <string_view>

namespace Quillary {

namespace {

TEST(FoldingTest, makesOneOfWhatLooksAlikeToASearcher)
{
    const std::string_view cases[][2] = {
        {"SCHRÖDER", "schroder"},
        {"Schro\u0308der", "schroder"}, // the accent as a character of its own
        {"Straße STRASSE ẞ", "strasse strasse ss"},
        {"Łódź", "lodz"},              // letters that Unicode does not take apart
        {"Ærøskøbing", "aeroskobing"}, //
        {"Đorđe Þór Œuvre", "dorde thor oeuvre"},
        {"İstanbul Diyarbakır", "istanbul diyarbakir"}, // both letters i of Turkish
        {"Ｑｕｉｌｌａｒｙ ﬁ", "quillary fi"},          // full width and ligature
        {"Ελλάς ΕΛΛΆΣ", "ελλασ ελλασ"},                 // the final sigma is a sigma
        {"Йод ЁЛКА", "иод елка"},                       //
        {"שָׁלוֹם", "שלום"},                               // vowel points
        {"O’Neill O'Neill", "o'neill o'neill"},
        {"A–Z A‑Z", "a-z a-z"},           // dashes of word processors
        {"Co\u00ADop \u200Ex", "coop x"}, // characters without ink
        {"ไทยดี", "ไทยดี"},                 // vowels written as marks belong to the word
        {"हिन्दी", "हिन्दी"},               //
        {"100 €", "100 €"},
        {"", ""},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(folded(text), folded(expected)) << text;
    }
    EXPECT_EQ(folded("SCHRÖDER & Łódź"), "schroder & lodz");
}

TEST(FoldingTest, keepsApartWhatDiffers)
{
    EXPECT_NE(folded("か"), folded("が")); // other syllables, not accents
    EXPECT_NE(folded("ดี"), folded("ดู"));
}

TEST(FoldingTest, lettersFoldTheSameInEveryCompany)
{
    // Latin text takes a short way; beside a Japanese letter each of its letters goes the long one.
    for (char32_t scalar = 1; scalar < 0x260; ++scalar) {
        std::string letter;
        icu::UnicodeString(static_cast<UChar32>(scalar)).toUTF8String(letter);
        EXPECT_EQ(folded(letter + "か"), folded(letter) + "か") << letter;
        EXPECT_EQ(folded(letter + "é"), folded(letter) + "e") << letter;
    }
}

TEST(FoldingTest, foldingTwiceChangesNothing)
{
    for (const std::string_view text : {"ŒUVRE ß ﬃ İı", "Ǆ ǰ ŉ ΐ", "각 が Å", "x\xFFy"}) {
        EXPECT_EQ(folded(folded(text)), folded(text)) << text;
    }
}

} // namespace

} // namespace Quillary
