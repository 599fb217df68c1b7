#include "QuillaryCore/Foundation/UTF8.h"

#include "QuillaryCore/Foundation/Text.h"

#include <gtest/gtest.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>

namespace Quillary {

namespace {

std::string icuUTF8(const icu::UnicodeString& text)
{
    std::string result;
    return text.toUTF8String(result);
}

TEST(UTF8Test, readsEveryCharacterFromBothEnds)
{
    for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
        if (scalar >= 0xD800 && scalar <= 0xDFFF) {
            continue; // surrogates are no characters
        }
        const std::string text = icuUTF8(icu::UnicodeString(static_cast<UChar32>(scalar)));
        const DecodedCharacter expected{scalar, text.size()};
        ASSERT_EQ(decodeFirst(text + "x"), expected) << std::hex << static_cast<std::uint32_t>(scalar);
        ASSERT_EQ(decodeLast("x" + text), expected) << std::hex << static_cast<std::uint32_t>(scalar);
    }
}

TEST(UTF8Test, measuresBrokenBytes)
{
    struct Case
    {
        std::string_view bytes;
        std::size_t length;
    };
    const Case cases[] = {
        {"", 0},                 // nothing to read
        {"\x80", 1},             // a continuation alone
        {"\xC3", 1},             // breaks off at the end
        {"\xC3(", 1},            // breaks off before another character
        {"\xC0\xAF", 1},         // an overlong slash
        {"\xE0\x80\xAF", 1},     // overlong in three bytes
        {"\xE2\x82", 2},         // two bytes of the euro sign are one fault
        {"\xED\xA0\x80", 1},     // a surrogate
        {"\xF0\x9F\x98", 3},     // three bytes of an emoji
        {"\xF4\x90\x80\x80", 1}, // above U+10FFFF
        {"\xFF", 1},             //
    };
    for (const auto& [bytes, length] : cases) {
        EXPECT_EQ(decodeFirst(bytes), (DecodedCharacter{std::nullopt, length})) << testing::PrintToString(bytes);
        if (length == bytes.size()) {
            EXPECT_FALSE(decodeLast(bytes).scalar) << testing::PrintToString(bytes);
        }
        EXPECT_EQ(isValidUTF8(bytes), bytes.empty()) << testing::PrintToString(bytes);
    }
    EXPECT_FALSE(isValidUTF8(std::string_view("a\0b", 3)));
    EXPECT_TRUE(isValidUTF8("Grüße, 世界 🌍"));
}

TEST(UTF8Test, repairsAsICUDoes)
{
    std::mt19937 random(20250307); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same texts in every run
    constexpr std::string_view bytes = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\xED\xA0\xF4\x90\xC0\x80\xFF";
    for (int round = 0; round < 20000; ++round) {
        std::string text(random() % 12, ' ');
        std::ranges::generate(text, [&] { return bytes[random() % bytes.size()]; });
        const auto expected = icuUTF8(icu::UnicodeString::fromUTF8(text));
        ASSERT_EQ(repairedUTF8(text), expected) << testing::PrintToString(text);
        ASSERT_EQ(isValidUTF8(text), text == expected) << testing::PrintToString(text);
    }
    EXPECT_EQ(repairedUTF8(std::string_view("a\0b", 3)), "a\uFFFDb");
}

} // namespace

} // namespace Quillary
