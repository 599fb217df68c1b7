#include "QuillaryCore/Output/PrintedTable.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Output/Base64.h"
#include "QuillaryCore/Output/HTMLText.h"
#include "QuillaryCore/Output/PrintedParties.h"
#include "QuillaryCore/Output/StyleSheet.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

constexpr std::size_t mostUpright = 7;   ///< columns
constexpr std::size_t longestWhole = 20; ///< characters of a text that stays on one line: a date, a number, a status

std::size_t characters(std::string_view text)
{
    return std::size_t(std::ranges::count_if(text, [](char byte) { return (byte & 0xC0) != 0x80; }));
}

/// Writes one table from top to bottom.
class TableWriter
{
public:
    TableWriter(const PrintedTable& table, std::string& html)
        : m_table(table)
        , m_html(html)
    {
    }

    void write()
    {
        writeOpening();
        writeHead();
        put("<h1>", m_table.heading, "</h1>\n");
        writeFacts();
        m_html += "<table class=\"lines\">\n<thead><tr>";
        for (std::size_t column = 0; column < m_table.columns.size(); ++column) {
            cell("th", column, m_table.columns[column].title);
        }
        m_html += "</tr></thead>\n<tbody>\n";
        for (std::size_t row = 0; row < m_table.rows.size(); ++row) {
            writeRow(row);
        }
        m_html += "</tbody>\n</table>\n";
        put("<p class=\"note\">", m_table.note, "</p>\n");
        m_html += "</body>\n</html>\n";
    }

private:
    void writeOpening()
    {
        m_html += "<!DOCTYPE html>\n<html lang=\"";
        HTMLText::append(m_html, m_table.languageCode);
        m_html += "\">\n<head>\n<meta charset=\"utf-8\">\n<title>";
        HTMLText::append(m_html, m_table.heading);
        m_html += "</title>\n<style>\n";
        StyleSheet::append(m_html, m_table.settings);
        StyleSheet::appendTable(m_html);
        for (std::size_t column = 0; column < m_table.columns.size(); ++column) {
            writeBreaking(column);
        }
        m_html += "</style>\n</head>\n<body class=\"table ";
        m_html += m_table.isWide() ? "wide " : "";
        m_html += "design-";
        m_html += storedText(m_table.settings.design);
        switch (m_table.settings.logoPosition) {
        case LogoPosition::left:
            break;
        case LogoPosition::center:
            m_html += " logo-center";
            break;
        case LogoPosition::right:
            m_html += " logo-right";
            break;
        }
        m_html += "\">\n";
    }

    /// A long text may break anywhere, or it would widen the page. That must not leave a short one in the same row a
    /// letter wide: a column of short texts keeps them whole, one of longer ones some room.
    void writeBreaking(std::size_t column)
    {
        const bool isShort = std::ranges::all_of(
            m_table.rows, [column](const auto& row) { return characters(row.at(column)) <= longestWhole; });
        fmt::format_to(std::back_inserter(m_html),
                       ".table table.lines td:nth-child({}) {{ {}; }}\n",
                       column + 1,
                       isShort ? "white-space: nowrap" : "min-width: 70pt");
    }

    void writeHead()
    {
        m_html += "<header class=\"head\">\n";
        if (!m_table.logo.empty()) {
            m_html += "<div class=\"logo\"><img src=\"data:image/png;base64,";
            Base64::append(m_html, m_table.logo);
            m_html += "\" alt=\"\"></div>\n";
        }
        m_html += "<div class=\"seller\">\n";
        put("<div class=\"seller-name\">", m_table.sender, "</div>\n");
        for (const std::string& line : m_table.senderDetails) {
            put("<div>", line, "</div>\n");
        }
        m_html += "</div>\n</header>\n";
    }

    void writeFacts()
    {
        m_html += "<table class=\"facts\">\n";
        for (const auto& [label, value] : m_table.facts) {
            if (!value.empty()) {
                put("<tr><td class=\"label\">", label, "</td>");
                put("<td>", value, "</td></tr>\n");
            }
        }
        m_html += "</table>\n";
    }

    void writeRow(std::size_t row)
    {
        const bool isTotal = m_table.hasTotal && row + 1 == m_table.rows.size();
        const bool isBeforeTotal = m_table.hasTotal && row + 2 == m_table.rows.size();
        m_html += isTotal ? "<tr class=\"total\">" : isBeforeTotal ? "<tr class=\"last\">" : "<tr>";
        for (std::size_t column = 0; column < m_table.columns.size(); ++column) {
            cell("td", column, m_table.rows[row].at(column));
        }
        m_html += "</tr>\n";
    }

    void cell(std::string_view element, std::size_t column, std::string_view text)
    {
        m_html += '<';
        m_html += element;
        m_html += m_table.columns[column].isNumber ? " class=\"num\">" : ">";
        HTMLText::appendIsolated(m_html, text);
        m_html += "</";
        m_html += element;
        m_html += '>';
    }

    void put(std::string_view opening, std::string_view text, std::string_view closing)
    {
        if (!text.empty()) {
            m_html += opening;
            HTMLText::appendIsolated(m_html, text);
            m_html += closing;
        }
    }

    const PrintedTable& m_table;
    std::string& m_html;
};

/// Room for a page that is written without moving.
std::size_t expectedSize(const PrintedTable& table)
{
    constexpr std::size_t perCell = 40;
    constexpr std::size_t everythingElse = 12'000; // most of it the style sheet
    return everythingElse + table.logo.size() / 3 * 4 + table.rows.size() * table.columns.size() * perCell;
}

} // namespace

PrintedTable PrintedTable::of(const Business& business)
{
    PrintedTable table;
    table.settings = TemplateSettings::of(business);
    table.logo = PrintedParties::logo(business);
    table.sender = trimmed(business.name);
    return table;
}

bool PrintedTable::isWide() const
{
    return columns.size() > mostUpright;
}

PageGeometry PrintedTable::geometry() const
{
    PageGeometry geometry = pageGeometry(settings.paperSize);
    if (isWide()) {
        std::swap(geometry.width, geometry.height);
    }
    return geometry;
}

std::string TableHTML::render(const PrintedTable& table)
{
    std::string html;
    html.reserve(expectedSize(table));
    TableWriter(table, html).write();
    return html;
}

} // namespace Quillary
