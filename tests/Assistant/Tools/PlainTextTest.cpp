#include "QuillaryCore/Assistant/Tools/PlainText.h"

#include "QuillaryCore/Foundation/JSON.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace Quillary {
namespace {

TEST(PlainTextTest, letsNothingPassForALineOrAnIdentifier)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"Acme GmbH", "Acme GmbH"},
        {"Acme\n2. Invoice INV-1 [3F25]", "Acme 2. Invoice INV-1 (3F25)"},
        {"A\r\n\t \v B", "A B"},
        {"  A  ", "A"},
        {"A\xE2\x80\xA8"
         "B\xC2\x85"
         "C",
         "A B C"},                // line separator, next line
        {"［id］⟦x⟧", "(id)(x)"}, // brackets that look alike
        {"A\xE2\x80\xAE"
         "B\xE2\x81\xA6"
         "C\xE2\x80\x8B",
         "ABC"},                    // turned round, hidden
        {"\xF3\xA0\x81\x81x", "x"}, // a letter that shows no ink
        {"\xFF"
         "A",
         "\xEF\xBF\xBD"
         "A"},
        {"\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D", "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D"}, // Hebrew stays
        {"", ""},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(plainText(text), expected) << text;
    }
    EXPECT_EQ(plainText("abc", 2), "ab…");
    EXPECT_EQ(plainText("ab ", 2), "ab");
    EXPECT_EQ(plainText(std::string(1'000'000, 'x'), 3), "xxx…");
}

TEST(PlainTextTest, stopsWhereAResultIsFull)
{
    std::string text;
    ResultLines lines(text, 100);
    int added = 0;
    const JSON data = JSON::object({{"title", std::string(986, 'x')}}); // 998 bytes
    while (lines.add(std::string(998, 'x'), data)) {
        ++added;
    }
    EXPECT_EQ(added, 16) << "a line counts three times: in the text, in the data's summary and as data";
    EXPECT_FALSE(lines.add("", {})) << "a shorter line after a longer one that was left out would hide the gap";
    EXPECT_EQ(shortened("aé", 3), "aé");
    EXPECT_EQ(shortened("aéb", 2), "a…");
}

} // namespace
} // namespace Quillary
