#include "QuillaryCore/Tabular/CSV.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

using namespace std::string_literals;

/// The rows with their cells in brackets: "[a][b] [c]".
std::string shown(const CSVRows& rows)
{
    std::string result;
    for (const CSVRow row : rows) {
        result += result.empty() ? "" : " ";
        for (const std::string_view cell : row) {
            result.append("[").append(cell).append("]");
        }
    }
    return result;
}

std::optional<CSV::Failure::Reason> failure(const std::string& data)
{
    try {
        CSV csv(data);
    } catch (const CSV::Failure& error) {
        return error.reason();
    }
    return std::nullopt;
}

struct FileCase
{
    std::string data;
    CSV::Encoding encoding;
    std::string rows;
};

TEST(CSVTest, findsOutTheEncoding)
{
    using enum CSV::Encoding;
    const FileCase cases[] = {
        {"\xEF\xBB\xBFName,Ort\nMüller,Köln", utf8, "[Name][Ort] [Müller][Köln]"}, // the mark is no part of the cell
        {"\xEF\xBB\xBF\xEF\xBB\xBFName", utf8, "[\xEF\xBB\xBFName]"},              // only one is taken off
        {"Müller", utf8, "[Müller]"},
        {"\xFF\xFEM\0\xFC\0,\0\xAC\x20\xFC\xD8\0\xDC"s, utf16, "[Mü][€\U0004F000]"},
        {"\xFE\xFF\0M\0\xFC\0,\x20\xAC\xD8\xFC\xDC\0"s, utf16, "[Mü][€\U0004F000]"},
        {"M\xFCller,\x80 5\x96\x37", windowsLatin1, "[Müller][€ 5–7]"},
        {"Ren\x8E,\x81ngstr\x9Am,\x8D", macRoman, "[René][Ångström][ç]"}, // code page 1252 has no 81 and no 8D
    };
    for (const FileCase& file : cases) {
        const CSV csv(file.data);
        EXPECT_EQ(csv.encoding(), file.encoding) << file.rows;
        EXPECT_EQ(shown(csv.rows()), file.rows);
    }
    EXPECT_EQ(rawValue(windowsLatin1), "Windows Latin 1");
}

TEST(CSVTest, readsUTF16LongerThanItsBuffer)
{
    // A surrogate pair at every place, so that one of them meets the end of the buffer.
    for (std::size_t before = 0; before < 2; ++before) {
        std::string data = "\xFF\xFE";
        std::string expected(before, 'x');
        data += std::string(before, 'x') + std::string(before, '\0');
        for (int i = 0; i < 10'000; ++i) {
            data += "\x3D\xD8\x00\xDE"s;
            expected += "😀";
        }
        EXPECT_EQ(CSV(data).rows()[0][0], expected);
    }
}

TEST(CSVTest, refusesWhatIsNoText)
{
    using enum CSV::Failure::Reason;
    const std::pair<std::string, CSV::Failure::Reason> cases[] = {
        {"\xEF\xBB\xBF"
         "a\xFC",
         unreadable},                          // no fallback behind a mark
        {"\xFF\xFE"s + "a\0b"s, unreadable},   // half a character
        {"\xFF\xFE\x00\xD8 \0"s, unreadable},  // half a pair, in the middle
        {"\xFE\xFF\xD8\x00"s, unreadable},     // and at the end
        {"PK\x03\x04\x14\0\xFC"s, unreadable}, // a workbook
        {"N\0a\0m\0e\0"s, unreadable},         // UTF-16 without its mark
        {"\xFF\xFE\0\0N\0\0\0"s, unreadable},  // UTF-32
        {"", empty},
        {"\xEF\xBB\xBF", empty},
        {"\n \n;;\r\n\t;\n", empty},
        {"sep=;\n", empty},
    };
    for (const auto& [data, reason] : cases) {
        EXPECT_EQ(failure(data), reason) << testing::PrintToString(data);
    }
    EXPECT_EQ(CSV::Failure(empty).message(), "The file has no rows.");
    EXPECT_EQ(CSV::Failure(unreadable).message(),
              "The file isn't readable text. Save it as CSV from your spreadsheet app and try again.");
}

TEST(CSVTest, heedsALineThatNamesTheSeparator)
{
    struct Case
    {
        std::string text;
        char delimiter;
        std::string rows;
        std::size_t firstNumber = 1; ///< of the rows, as a spreadsheet counts
    };
    const Case cases[] = {
        {"sep=;\na,b,c;d", ';', "[a,b,c][d]"},
        {"SEP=|\r\n\r\n\na,b|d", '|', "[a,b][d]", 3},
        {"sep=\t\ra,b\td", '\t', "[a,b][d]"},
        {"sep=:\na;b", ';', "[sep=:] [a][b]"}, // none of ours: a row like any other
        {"sep=;;\na,b,c\nd,e,f", ',', "[sep=;;] [a][b][c] [d][e][f]"},
        {"sep=; \na,b\nd,e", ',', "[sep=;] [a][b] [d][e]"},
        {"\nsep=;\na,b\nc,d", ',', "[sep=;] [a][b] [c][d]", 2}, // not the first line
    };
    for (const Case& file : cases) {
        const CSV csv(file.text, CSV::Encoding::utf8);
        EXPECT_EQ(csv.delimiter(), file.delimiter) << file.text;
        EXPECT_EQ(shown(csv.rows()), file.rows);
        EXPECT_EQ(csv.rows().number(0), file.firstNumber) << file.text;
    }
}

TEST(CSVTest, detectsTheDelimiter)
{
    const std::pair<std::string, char> cases[] = {
        {"a;b;c\n1,5;2;3", ';'},
        {"a,b\nc,d", ','},
        {"a\tb\tc", '\t'},
        {"a|b|c", '|'},
        {"just text", ','},
        {"", ','},
        {"a;b,c", ','},                          // equals: the earlier of the list
        {"a;b,c,d", ','},                        // the same lines, more of them
        {"a,b,c;d\ne;f\ng;h,i", ';'},            // on every line
        {"a;b;c,d\ne;f,g,h", ','},               // 2·10000+1·100+2 each: equals again
        {"\"x;y;z\",b\n\"1;2;3\",c", ','},       // in quotes nothing counts
        {"\"a\n;;;;\nb\",c", ','},               // nor do the line breaks end a line
        {"\n\n  \t\t\na;b\n\t\tc;d\t\t\n", ';'}, // blanks around a line are no tabs between cells
        {"\"a;b;c", ','},                        // a quote that nothing closes
    };
    for (const auto& [text, delimiter] : cases) {
        EXPECT_EQ(CSV::detectDelimiter(text), delimiter) << text;
    }
}

TEST(CSVTest, looksAtTwentyLinesOnly)
{
    std::string text;
    for (int line = 0; line < 20; ++line) {
        text += line % 2 == 0 ? "a;b\n" : "\r\n a;b\r";
    }
    for (int line = 0; line < 100; ++line) {
        text += "c,d,e\n";
    }
    EXPECT_EQ(CSV::detectDelimiter(text), ';');
    EXPECT_EQ(CSV::detectDelimiter("x\n" + text), ';');
}

} // namespace

} // namespace Quillary
