#include "Quillary/TextTable.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UTF8.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace Quillary {

namespace {

constexpr std::string_view gap = "  ";
constexpr std::string_view ruleCharacter = "─";
constexpr std::string_view ellipsis = "…";
constexpr char32_t replacementCharacter = 0xFFFD;
constexpr char32_t pictureSelector = 0xFE0F; ///< asks for the coloured form of the character before it

bool isWide(char32_t scalar)
{
    const auto width =
        static_cast<UEastAsianWidth>(u_getIntPropertyValue(static_cast<UChar32>(scalar), UCHAR_EAST_ASIAN_WIDTH));
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH || scalar == pictureSelector;
}

bool isWithoutWidth(char32_t scalar)
{
    const std::int8_t type = u_charType(static_cast<UChar32>(scalar));
    return type == U_NON_SPACING_MARK || type == U_ENCLOSING_MARK || type == U_FORMAT_CHAR;
}

/// The width of one character as a person counts them: that of its widest part.
std::size_t clusterWidth(std::string_view cluster)
{
    std::size_t width = 0;
    while (!cluster.empty()) {
        const DecodedCharacter character = decodeFirst(cluster);
        const char32_t scalar = character.scalar.value_or(replacementCharacter);
        width = std::max<std::size_t>(width, isWide(scalar) ? 2 : (isWithoutWidth(scalar) ? 0 : 1));
        cluster.remove_prefix(character.length);
    }
    return width;
}

/// On one line, and without what steers a terminal or turns its writing direction.
std::string plainCell(std::string_view text)
{
    if (!hasControlCharacter(text)) {
        return std::string(text);
    }
    std::string result;
    for (const std::string_view cluster : graphemes(text)) {
        // Inside a character (a family of pictures, letters that must not join) they do no harm.
        const DecodedCharacter first = decodeFirst(cluster);
        const auto type = u_charType(static_cast<UChar32>(first.scalar.value_or(replacementCharacter)));
        if (type == U_CONTROL_CHAR) {
            result += ' ';
        } else if (type != U_FORMAT_CHAR) {
            result += cluster;
        }
    }
    return result;
}

std::string shortened(std::string text, std::size_t widest)
{
    if (displayWidth(text) <= widest) {
        return text;
    }
    std::string result;
    std::size_t width = 1; // of the ellipsis
    for (const std::string_view cluster : graphemes(text)) {
        width += clusterWidth(cluster);
        if (width > widest) {
            break;
        }
        result += cluster;
    }
    return result.append(ellipsis);
}

void append(std::string& line, std::string_view cell, std::size_t width, TextTable::Alignment alignment)
{
    const std::string padding(width - displayWidth(cell), ' ');
    if (alignment == TextTable::Alignment::right) {
        line.append(padding).append(cell);
    } else {
        line.append(cell).append(padding);
    }
}

std::string ruleLine(std::size_t width)
{
    std::string line;
    for (std::size_t i = 0; i < width; ++i) {
        line += ruleCharacter;
    }
    return line;
}

} // namespace

std::size_t displayWidth(std::string_view text)
{
    if (std::ranges::all_of(text, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; })) {
        return text.size();
    }
    std::size_t width = 0;
    for (const std::string_view cluster : graphemes(text)) {
        width += clusterWidth(cluster);
    }
    return width;
}

TextTable::TextTable(std::vector<Column> columns)
    : m_columns(std::move(columns))
{
    std::vector<std::string> headings;
    headings.reserve(m_columns.size());
    for (const Column& column : m_columns) {
        headings.push_back(column.heading);
    }
    addRow(std::move(headings));
    addRule();
}

void TextTable::addRow(std::vector<std::string> cells)
{
    precondition(cells.size() <= m_columns.size(), "a row has no more cells than the table has columns");
    cells.resize(m_columns.size());
    for (std::size_t i = 0; i < cells.size(); ++i) {
        cells[i] = shortened(plainCell(cells[i]), m_columns[i].widest);
    }
    m_rows.push_back({.cells = std::move(cells)});
}

void TextTable::addRule()
{
    m_rows.push_back({.cells = {}, .isRule = true});
}

std::vector<std::size_t> TextTable::widths() const
{
    std::vector<std::size_t> result(m_columns.size(), 0);
    for (const Row& row : m_rows) {
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            result[i] = std::max(result[i], displayWidth(row.cells[i]));
        }
    }
    return result;
}

std::string TextTable::text() const
{
    const std::vector<std::size_t> columnWidths = widths();
    const std::size_t gaps = gap.size() * (std::max<std::size_t>(m_columns.size(), 1) - 1);
    const std::string rule = ruleLine(std::accumulate(columnWidths.begin(), columnWidths.end(), gaps));
    std::string result;
    for (const Row& row : m_rows) {
        std::string line = row.isRule ? rule : "";
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            line += i == 0 ? "" : gap;
            append(line, row.cells[i], columnWidths[i], m_columns[i].alignment);
        }
        line.erase(line.find_last_not_of(' ') + 1);
        result.append(line).append("\n");
    }
    return result;
}

} // namespace Quillary
