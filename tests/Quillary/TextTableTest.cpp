#include "Quillary/TextTable.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

TEST(TextTableTest, countsTheColumnsThatATextTakes)
{
    const std::pair<std::string_view, std::size_t> cases[] = {
        {"", 0},
        {"abc", 3},
        {"äöü€", 4},
        {"a\u0308", 1}, // an accent of its own
        {"株式会社", 8},
        {"ｱ", 1},                  // half width
        {"Ａ", 2},                 // full width
        {"👩‍👩‍👧", 2}, // one picture of several
        {"❤️", 2},                  // a sign that is asked for as a picture
        {"נייר", 4},
        {"\xFF", 1}, // broken bytes show as one sign
    };
    for (const auto& [text, width] : cases) {
        EXPECT_EQ(displayWidth(text), width) << text;
    }
}

TEST(TextTableTest, alignsWhateverTheTextsAre)
{
    TextTable table(
        {{.heading = "Client", .widest = 9}, {.heading = "Open", .alignment = TextTable::Alignment::right}});
    table.addRow({"Müller", "5.00"});
    table.addRow({"株式会社大阪", "1,234.00"}); // the limit falls into the middle of a wide character
    table.addRow({"a\x1B[31m\nb\u202Ec", "7"}); // colours, line breaks and turned text are none here
    table.addRow({"last"});
    table.addRule();
    table.addRow({"", "1,239.00"});
    EXPECT_EQ(table.text(),
              "Client         Open\n"
              "───────────────────\n"
              "Müller         5.00\n"
              "株式会社…  1,234.00\n"
              "a [31m bc         7\n"
              "last\n"
              "───────────────────\n"
              "           1,239.00\n");
}

} // namespace

} // namespace Quillary
