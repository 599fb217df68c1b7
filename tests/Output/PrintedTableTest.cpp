#include "QuillaryCore/Output/PrintedTable.h"

#include "QuillaryCore/Model/Business.h"
#include "tests/Output/HTMLTree.h"

#include <gtest/gtest.h>

#include <string>

namespace Quillary {
namespace {

/// A table on which every text that comes from a person, or from a translation, is `text`.
PrintedTable tableFullOf(const std::string& text)
{
    Business business;
    business.name = text;
    PrintedTable table = PrintedTable::of(business);
    table.languageCode = "en";
    table.senderDetails = {text};
    table.heading = text;
    table.facts = {{text, text}, {"left out", ""}};
    table.columns = {{text, false}, {text, true}};
    table.rows = {{text, text}, {text, text}, {text, text}};
    table.hasTotal = true;
    table.note = text;
    return table;
}

TEST(PrintedTableTest, keepsEveryTextInItsPlace)
{
    const std::string hostile = R"(</td></table><script>alert("1")</script> & 'x')";
    const auto page = parseHTML(TableHTML::render(tableFullOf(hostile)));
    const auto plain = parseHTML(TableHTML::render(tableFullOf("plain")));
    EXPECT_EQ(page->outline(), plain->outline());
    EXPECT_EQ(page->first("seller-name").text, hostile);
    EXPECT_EQ(page->first("note").text, hostile);
    EXPECT_EQ(page->withClass("label").size(), 1U); // a fact without a value isn't told
    const auto figures = page->withClass("num");
    ASSERT_EQ(figures.size(), 4U); // its heading stands over them
    EXPECT_EQ(figures.front()->name, "th");
    EXPECT_EQ(figures.back()->text, hostile);
    ASSERT_EQ(page->withClass("total").size(), 1U);
    EXPECT_EQ(page->first("total").children.size(), 2U);
}

TEST(PrintedTableTest, liesAcrossTheSheetWhereTheColumnsNeedIt)
{
    PrintedTable table;
    table.columns.resize(7);
    EXPECT_LT(table.geometry().width, table.geometry().height);
    table.columns.resize(8);
    EXPECT_GT(table.geometry().width, table.geometry().height);
}

TEST(PrintedTableTest, breaksOnlyLongTexts)
{
    PrintedTable table;
    table.columns.resize(2);
    table.rows = {{"Überfällig, zu spät!", "20"}, {"7 Oct 2026", std::string(21, 'm')}}; // 20 characters, 21
    const std::string html = TableHTML::render(table);
    EXPECT_NE(html.find("td:nth-child(1) { white-space: nowrap; }"), std::string::npos);
    EXPECT_NE(html.find("td:nth-child(2) { min-width: 70pt; }"), std::string::npos);
}

} // namespace
} // namespace Quillary
