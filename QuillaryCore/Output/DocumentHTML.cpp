#include "QuillaryCore/Output/DocumentHTML.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Output/Base64.h"
#include "QuillaryCore/Output/DocumentStrings.h"
#include "QuillaryCore/Output/HTMLText.h"
#include "QuillaryCore/Output/MarkdownLight.h"
#include "QuillaryCore/Output/PrintedDocument.h"
#include "QuillaryCore/Output/StyleSheet.h"

#include <cstddef>
#include <string_view>

namespace Quillary {

namespace {

using Key = DocumentStrings::Key;
using Emphasis = PrintedDocument::Emphasis;

constexpr std::size_t longHeading = 20; ///< of a letter. Unit: characters

std::string_view totalsRow(Emphasis emphasis)
{
    switch (emphasis) {
    case Emphasis::figure:
        return "<tr>";
    case Emphasis::total:
        return "<tr class=\"total\">";
    case Emphasis::paid:
        return "<tr class=\"paid\">";
    case Emphasis::due:
        return "<tr class=\"due\">";
    }
    return {};
}

/// Writes one page from top to bottom.
class PageWriter
{
public:
    PageWriter(const PrintedDocument& document, std::string& html)
        : m_document(document)
        , m_strings(document.language)
        , m_html(html)
    {
    }

    void writePage();

private:
    void writeOpening();
    void writeHead();
    void writeParties();
    void writeTitles();
    void writeLines();
    void writeLine(const PrintedLines::Line& line);
    void writeTotals();
    void writePayment();
    void writeFooter();

    void put(std::string_view markup)
    {
        constexpr std::size_t longestInlined = 32;
        if (markup.size() <= longestInlined) {
            m_html += markup;
        } else {
            HTMLText::appendMarkup(m_html, markup);
        }
    }

    /// `opening`, the text, `closing`; nothing when there is no text.
    void put(std::string_view opening, std::string_view text, std::string_view closing)
    {
        if (!text.empty()) {
            put(opening);
            HTMLText::appendIsolated(m_html, text);
            put(closing);
        }
    }

    /// Also for an empty text.
    void cell(std::string_view opening, std::string_view text, std::string_view closing = {})
    {
        put(opening);
        HTMLText::appendIsolated(m_html, text);
        put(closing);
    }

    void putBlocks(std::string_view opening, std::string_view text)
    {
        if (!text.empty()) {
            put(opening);
            MarkdownLight::append(m_html, text);
            put("</div>\n");
        }
    }

    void putEach(std::span<const std::string> texts)
    {
        for (const std::string& text : texts) {
            put("<div>", text, "</div>\n");
        }
    }

    void putRows(std::span<const PrintedDocument::Row> rows)
    {
        for (const PrintedDocument::Row& row : rows) {
            cell("<tr><td class=\"label\">", row.label, "</td>");
            cell("<td>", row.value, "</td></tr>\n");
        }
    }

    void putImage(std::span<const std::uint8_t> png)
    {
        put("<img src=\"data:image/png;base64,");
        Base64::append(m_html, png);
        put("\" alt=\"\">");
    }

    const PrintedDocument& m_document;
    DocumentStrings m_strings;
    std::string& m_html;
};

void PageWriter::writePage()
{
    writeOpening();
    writeHead();
    writeParties();
    writeTitles();
    put("<div class=\"text opening\"><p>", m_document.opening, "</p></div>\n");
    putBlocks("<div class=\"text intro\">", m_document.intro);
    writeLines();
    writeTotals();
    put("<p class=\"exempt\">", m_document.exemptNote, "</p>\n");
    putBlocks("<div class=\"text outro\">", m_document.outro);
    writePayment();
    writeFooter();
    put("</body>\n</html>\n");
}

void PageWriter::writeOpening()
{
    put("<!DOCTYPE html>\n<html lang=\"");
    put(code(m_document.language));
    put("\">\n<head>\n<meta charset=\"utf-8\">\n<title>");
    HTMLText::append(m_html, m_document.pageTitle);
    put("</title>\n<style>\n");
    StyleSheet::append(m_html, m_document.settings);
    if (m_document.form == PrintedDocument::Form::letter) {
        StyleSheet::appendLetter(m_html);
    }
    put("</style>\n</head>\n<body class=\"design-");
    put(storedText(m_document.settings.design));
    switch (m_document.settings.logoPosition) {
    case LogoPosition::left:
        break;
    case LogoPosition::center:
        put(" logo-center");
        break;
    case LogoPosition::right:
        put(" logo-right");
        break;
    }
    if (m_document.form == PrintedDocument::Form::letter) {
        put(" letter");
        if (graphemeCount(m_document.heading) >= longHeading) {
            put(" long-heading");
        }
    }
    put("\">\n");
}

void PageWriter::writeHead()
{
    put("<header class=\"head\">\n");
    if (!m_document.logo.empty()) {
        put("<div class=\"logo\">");
        putImage(m_document.logo);
        put("</div>\n");
    }
    put("<div class=\"seller\">\n");
    put("<div class=\"seller-name\">", m_document.sellerName, "</div>\n");
    putEach(m_document.sellerAddress);
    if (!m_document.sellerContact.empty()) {
        put("<div class=\"contact\">\n");
        putEach(m_document.sellerContact);
        put("</div>\n");
    }
    put("</div>\n</header>\n");
}

void PageWriter::writeParties()
{
    put("<section class=\"parties\">\n<div class=\"buyer\">\n");
    put("<div class=\"sender\">", m_document.sender, "</div>\n");
    put("<div class=\"buyer-name\">", m_document.buyerName, "</div>\n");
    putEach(m_document.buyerAddress);
    if (!m_document.buyerIdentifiers.empty()) {
        put("<div class=\"buyer-id\">\n");
        putEach(m_document.buyerIdentifiers);
        put("</div>\n");
    }
    put("</div>\n<div class=\"meta\">\n");
    put("<h1>", m_document.heading, "</h1>\n");
    if (!m_document.meta.empty()) {
        put("<table>\n");
        putRows(m_document.meta);
        put("</table>\n");
    }
    put("</div>\n</section>\n");
}

void PageWriter::writeTitles()
{
    put("<h2 class=\"subtitle\">", m_document.subtitle, "</h2>\n");
    put("<p class=\"reference\">", m_document.reference, "</p>\n");
}

void PageWriter::writeLines()
{
    if (m_document.lines.empty()) {
        return;
    }
    put("<table class=\"lines\">\n<thead><tr>");
    put("<th class=\"desc\">", m_strings.text(Key::description), "</th>");
    put("<th class=\"num\">", m_strings.text(Key::quantity), "</th>");
    put("<th class=\"num\">", m_strings.text(Key::unitPrice), "</th>");
    if (m_document.hasTaxRateColumn) {
        put("<th class=\"num\">%</th>");
    }
    put("<th class=\"num\">", m_strings.text(Key::amount), "</th>");
    put("</tr></thead>\n<tbody>\n");
    for (std::size_t index = 0; index < m_document.lines.size(); ++index) {
        writeLine(m_document.lines[index]);
    }
    put("</tbody>\n</table>\n");
}

void PageWriter::writeLine(const PrintedLines::Line& line)
{
    constexpr std::string_view nextFigure = "</td><td class=\"num\">";
    put(line.isSubLine ? "<tr class=\"sub\"><td class=\"desc\"><div class=\"line-title\">"
                       : "<tr><td class=\"desc\"><div class=\"line-title\">");
    HTMLText::appendIsolated(m_html, line.title);
    put("</div>");
    putBlocks("<div class=\"details\">", line.details);
    cell(nextFigure, line.quantity);
    cell(nextFigure, line.unitPrice);
    if (m_document.hasTaxRateColumn) {
        cell(nextFigure, line.taxRate);
    }
    cell(nextFigure, line.amount);
    put("</td></tr>\n");
}

void PageWriter::writeTotals()
{
    if (m_document.totals.empty()) {
        return;
    }
    put("<div class=\"totals-wrap\">\n<table class=\"totals\">\n");
    for (std::size_t index = 0; index < m_document.totals.size(); ++index) {
        const PrintedDocument::TotalsRow& row = m_document.totals[index];
        const bool isBeforeTotal =
            index + 1 < m_document.totals.size() && m_document.totals[index + 1].emphasis == Emphasis::total;
        put(isBeforeTotal ? "<tr class=\"last\">" : totalsRow(row.emphasis));
        cell("<td class=\"label\">", row.label, "</td>");
        cell("<td class=\"num\">", row.value, "</td></tr>\n");
    }
    put("</table>\n</div>\n");
}

void PageWriter::writePayment()
{
    if (!m_document.payment) {
        return;
    }
    const PrintedDocument::Payment& payment = *m_document.payment;
    put("<section class=\"payment\">\n<div class=\"pay-text\">\n");
    put("<h3>", m_strings.text(Key::payment), "</h3>\n");
    put("<p>", payment.sentence, "</p>\n");
    if (!payment.bank.empty()) {
        put("<table class=\"bank\">\n");
        putRows(payment.bank);
        put("</table>\n");
    }
    put("</div>\n");
    if (!payment.qrCode.empty()) {
        put("<div class=\"qr\">");
        putImage(payment.qrCode);
        put(m_strings.text(Key::scanToPay));
        put("</div>\n");
    }
    put("</section>\n");
}

void PageWriter::writeFooter()
{
    if (m_document.footerLines.empty() && m_document.footNote.empty()) {
        return;
    }
    put("<footer class=\"foot\">\n");
    putEach(m_document.footerLines);
    put("<div class=\"foot-note\">", m_document.footNote, "</div>\n");
    put("</footer>\n");
}

/// Room for a page that is written without moving: what is known to be long, and the usual markup around the rest.
std::size_t expectedSize(const PrintedDocument& document)
{
    constexpr std::size_t perLine = 260;
    constexpr std::size_t everythingElse = 14'000; // of it 8,000 the style sheet
    std::size_t size = everythingElse + document.intro.size() + document.outro.size() + document.logo.size() / 3 * 4;
    if (document.payment) {
        size += document.payment->qrCode.size() / 3 * 4;
    }
    return size + perLine * document.lines.size() + document.lines.textSize();
}

} // namespace

std::string DocumentHTML::render(const PrintedDocument& document)
{
    std::string html;
    html.reserve(expectedSize(document));
    PageWriter(document, html).writePage();
    return html;
}

} // namespace Quillary
