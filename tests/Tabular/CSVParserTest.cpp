#include "QuillaryCore/Tabular/CSVParser.h"

#include "QuillaryCore/Tabular/ByteMasks.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

namespace {

using Table = std::vector<std::vector<std::string>>;

Table tableOf(const CSVRows& rows)
{
    Table result;
    for (const CSVRow row : rows) {
        result.emplace_back(row.begin(), row.end());
    }
    return result;
}

std::vector<std::size_t> numbersOf(const CSVRows& rows)
{
    std::vector<std::size_t> result;
    result.reserve(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        result.push_back(rows.number(i));
    }
    return result;
}

/// The rules once more, one character after the other and with a copy of each cell: slow, and close to how one would tell
/// them.
class SlowReader
{
public:
    explicit SlowReader(char delimiter)
        : m_delimiter(delimiter)
    {
    }

    Table read(const std::string& text)
    {
        for (std::size_t i = 0; i < text.size(); ++i) {
            const char next = i + 1 < text.size() ? text[i + 1] : '\0';
            if (m_isQuoted && text[i] == '"' && next == '"') {
                m_field += '"';
                ++i;
            } else if (m_isQuoted) {
                readQuoted(text[i]);
            } else if (text[i] == '"' && m_field.find_first_not_of(" \t") == std::string::npos) {
                m_field.clear();
                m_isQuoted = true;
            } else if (text[i] == m_delimiter) {
                endField();
            } else if (text[i] == '\r' || text[i] == '\n') {
                i += text[i] == '\r' && next == '\n' ? 1 : 0;
                endRow();
            } else {
                m_field += text[i];
            }
        }
        if (!m_field.empty() || !m_row.empty()) {
            endRow();
        }
        return m_table;
    }

    [[nodiscard]] const std::vector<std::size_t>& numbers() const { return m_numbers; }

private:
    void readQuoted(char byte)
    {
        if (byte == '"') {
            m_isQuoted = false;
        } else {
            m_field += byte;
        }
    }

    void endField()
    {
        const std::size_t begin = m_field.find_first_not_of(" \t");
        const std::size_t end = m_field.find_last_not_of(" \t") + 1;
        m_row.push_back(begin == std::string::npos ? "" : m_field.substr(begin, end - begin));
        m_field.clear();
    }

    void endRow()
    {
        endField();
        ++m_rowNumber;
        for (const std::string& cell : m_row) {
            if (!cell.empty()) {
                m_table.push_back(m_row);
                m_numbers.push_back(m_rowNumber);
                break;
            }
        }
        m_row.clear();
    }

    char m_delimiter;
    std::string m_field;
    std::vector<std::string> m_row;
    Table m_table;
    std::vector<std::size_t> m_numbers;
    std::size_t m_rowNumber = 0;
    bool m_isQuoted = false;
};

struct ParseCase
{
    std::string text;
    Table expected;
};

TEST(CSVParserTest, readsCellsAsTheyAreMeant)
{
    const ParseCase cases[] = {
        {"a,b\nc\n", {{"a", "b"}, {"c"}}},           // rows may differ in length
        {"a,\r\n,b", {{"a", ""}, {"", "b"}}},        // the last line needs no end
        {"a\rb\r\rc", {{"a"}, {"b"}, {"c"}}},        // old line breaks
        {"a\n\n,,\n \t ,\nb", {{"a"}, {"b"}}},       // nothing in a row
        {"\"x\r\n\"\"y\"\"\"", {{"x\r\n\"y\""}}},    // doubled quotes, one at the very end
        {"  \"a b\"  ,c", {{"a b", "c"}}},           // blanks around quotes
        {"\" a\t\",b", {{"a", "b"}}},                // and inside them
        {"\"\na\n\",b", {{"\na\n", "b"}}},           // a line break is no blank
        {"\"ab\"cd,e", {{"abcd", "e"}}},             // behind a closing quote
        {"\"ab\" c\"d\",e", {{"ab c\"d\"", "e"}}},   // where quotes are ordinary again
        {"5\" pipe,12\"\n", {{"5\" pipe", "12\""}}}, // inches
        {"\"  \" \"a,b\",c", {{"a,b", "c"}}},        // nothing but blanks before a second quote
        {"\"\",\"\"\n\"\",a", {{"", "a"}}},          // empty quotes are empty
        {"a,\"b,c\nd", {{"a", "b,c\nd"}}},           // a quote that nothing closes
        {"\"a\"\"", {{"a\""}}},                      // nor here
        {"\"", {}},
        {"", {}},
        {" ", {}},
        {"ä,\"ö\"\"ü\"\"\"\n€", {{"ä", "ö\"ü\""}, {"€"}}},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(tableOf(parseCSV(text, ',')), expected) << text;
    }
    EXPECT_EQ(tableOf(parseCSV("a\t\"b\tc\"\t d", '\t')), (Table{{"a", "b\tc", "d"}}));
}

TEST(CSVParserTest, agreesWithASlowReader)
{
    // Few different characters, so that every pair of them meets, and lengths around the size of a block.
    constexpr std::string_view alphabet = "a\"\"\"b ,,\t\n\r;";
    std::mt19937 random(1);
    for (int round = 0; round < 20'000; ++round) {
        std::string text(std::uniform_int_distribution<std::size_t>(0, 150)(random), 'x');
        for (char& byte : text) {
            byte = alphabet[std::uniform_int_distribution<std::size_t>(0, alphabet.size() - 1)(random)];
        }
        const char delimiter = round % 2 == 0 ? ',' : '\t';
        SlowReader reader(delimiter);
        const CSVRows rows = parseCSV(text, delimiter);
        ASSERT_EQ(tableOf(rows), reader.read(text)) << text;
        ASSERT_EQ(numbersOf(rows), reader.numbers()) << text;
    }
}

TEST(CSVParserTest, keepsItsCellsWhenCopiedAndMoved)
{
    CSVRows rows = parseCSV("a,b", ','); // short enough to lie within the string itself
    const CSVRows copy = rows;
    const CSVRows moved = std::move(rows);
    EXPECT_EQ(tableOf(copy), tableOf(moved));
    EXPECT_EQ(moved[0].cell(1), "b");
    EXPECT_EQ(moved[0].cell(2), "");
}

TEST(ByteMasksTest, findsTheSameBytesWithAndWithoutVectorInstructions)
{
    std::mt19937 random(1);
    const ByteMasks masks({',', '"', '\0', '\xFF'});
    for (int round = 0; round < 1000; ++round) {
        std::array<char, ByteMasks::blockSize> block{};
        std::uint64_t expected = 0;
        for (std::size_t i = 0; i < block.size(); ++i) {
            constexpr std::string_view bytes(",\"\0\xFF-\x01!\x80#\xFE", 10); // neighbours of what is looked for
            const std::size_t pick = std::uniform_int_distribution<std::size_t>(0, bytes.size() - 1)(random);
            block.at(i) = bytes[pick];
            expected |= std::uint64_t{pick < 4 ? 1U : 0U} << i;
        }
        ASSERT_EQ(masks.mask(block.data()), expected);
        ASSERT_EQ(masks.portableMask(block.data()), expected);
    }
}

} // namespace

} // namespace Quillary
