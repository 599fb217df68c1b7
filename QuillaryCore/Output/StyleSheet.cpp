#include "QuillaryCore/Output/StyleSheet.h"

#include "QuillaryCore/Output/HTMLText.h"

#include <fmt/format.h>

namespace Quillary::StyleSheet {

namespace {

/// What every page shares. It begins in the middle of the `:root` rule, after the height of the logo.
constexpr std::string_view baseRules = R"css(pt; }
* { box-sizing: border-box; }
html, body { margin: 0; padding: 0; background: white; }
/* Room inside the printable area, so letters on the right edge aren't clipped. */
body { padding: 0 3pt; }
body { font-family: var(--font); font-size: 9.5pt; line-height: 1.38; color: #1d1d1f;
       -webkit-print-color-adjust: exact; print-color-adjust: exact; }
.head { display: flex; align-items: flex-start; justify-content: space-between; gap: 24pt; margin-bottom: 20pt; }
.logo img { height: var(--logo-h); max-width: 230pt; object-fit: contain; display: block; }
body.logo-right .head { flex-direction: row-reverse; }
body.logo-right .seller { text-align: left; }
body.logo-center .head { flex-direction: column; align-items: center; text-align: center; gap: 10pt; }
body.logo-center .seller { text-align: center; }
.seller { text-align: right; font-size: 8.5pt; color: #555; margin-left: auto; }
body.logo-right .seller, body.logo-center .seller { margin-left: 0; }
.seller-name { font-weight: 600; color: #1d1d1f; font-size: 9.5pt; }
.parties { display: flex; justify-content: space-between; align-items: flex-start; gap: 24pt; margin-bottom: 16pt; }
.buyer { min-width: 210pt; }
.sender { font-size: 6.5pt; color: #777; border-bottom: 0.5pt solid #bbb; padding-bottom: 2pt; margin-bottom: 7pt; display: inline-block; }
.buyer-name { font-weight: 600; }
.buyer-id { margin-top: 6pt; font-size: 8.5pt; color: #555; }
.meta { text-align: right; }
h1 { font-size: 22pt; line-height: 1.1; margin: 0 0 8pt; color: var(--accent); font-weight: 700; }
.meta table { margin-left: auto; border-collapse: collapse; }
.meta td { padding: 1pt 0 1pt 14pt; text-align: right; white-space: nowrap; }
.meta td.label { color: #777; }
.subtitle { font-size: 13pt; font-weight: 600; margin: 0 0 8pt; }
.reference { color: #555; margin: 0 0 10pt; }
.text p { margin: 0 0 6pt; }
.text ul { margin: 0 0 6pt 14pt; padding: 0; }
table.lines { width: 100%; border-collapse: collapse; margin: 10pt 0 8pt; }
table.lines thead { display: table-header-group; }
table.lines th { text-align: left; font-size: 7.5pt; text-transform: uppercase; letter-spacing: .05em; color: #777;
                 font-weight: 600; padding: 6pt; border-bottom: 1pt solid #c8c8c8; }
table.lines td { padding: 5pt 6pt; vertical-align: top; border-bottom: 0.5pt solid #e4e4e4; }
table.lines tr { break-inside: avoid; page-break-inside: avoid; }
th.num, td.num { text-align: right; white-space: nowrap; }
th.desc, td.desc { width: 99%; }
.line-title { font-weight: 600; }
tr.sub .line-title { font-weight: 400; }
tr.sub td.desc { padding-left: 20pt; }
tr.sub td { color: #333; }
.details { color: #555; font-size: 8.5pt; margin-top: 2pt; }
.details p { margin: 0; }
.details ul { margin: 0 0 0 12pt; padding: 0; }
.totals-wrap { display: flex; justify-content: flex-end; break-inside: avoid; page-break-inside: avoid; }
table.totals { border-collapse: collapse; min-width: 250pt; }
table.totals td { padding: 2pt 6pt 2pt 18pt; }
table.totals td.label { color: #555; text-align: left; padding-left: 0; }
table.totals tr.total td { font-size: 13pt; font-weight: 700; color: #1d1d1f; border-top: 1pt solid #1d1d1f; padding-top: 7pt; }
table.totals tr.paid td { padding-top: 6pt; }
table.totals tr.due td { font-weight: 700; color: #1d1d1f; border-top: 0.5pt solid #bbb; padding-top: 4pt; }
.exempt { margin: 8pt 0 0; color: #555; }
.outro { margin-top: 10pt; }
.payment { display: flex; justify-content: space-between; gap: 20pt; margin-top: 14pt; padding-top: 10pt;
           border-top: 0.5pt solid #ddd; break-inside: avoid; page-break-inside: avoid; }
.payment h3 { margin: 0 0 4pt; font-size: 10pt; }
.payment p { margin: 0 0 6pt; }
table.bank { border-collapse: collapse; font-size: 9pt; }
table.bank td { padding: 1pt 12pt 1pt 0; }
table.bank td.label { color: #777; }
.qr { text-align: center; font-size: 7pt; color: #777; flex-shrink: 0; }
.qr img { width: 76pt; height: 76pt; image-rendering: pixelated; display: block; margin-bottom: 2pt; }
.foot { margin-top: 16pt; padding-top: 6pt; border-top: 0.5pt solid #ddd; font-size: 7.5pt; color: #777;
        break-inside: avoid; page-break-inside: avoid; }
.foot-note { margin-top: 2pt; }
.foot-inline { margin-top: 8pt; font-size: 7.5pt; color: #777; }
)css";

constexpr std::string_view classic = R"css(h1 { text-transform: uppercase; letter-spacing: .08em; font-size: 18pt; }
table.lines th { border-bottom-color: var(--accent); }
)css";

constexpr std::string_view modern = R"css(.head { border-top: 5pt solid var(--accent); padding-top: 14pt; }
table.lines th { background: var(--tint); color: var(--accent); border-bottom: none; }
table.lines td { border-bottom-color: #ececec; }
table.totals tr.total td { background: var(--accent); color: white; border-top: none; padding: 7pt 10pt; }
table.totals tr.total td.label { color: white; padding-left: 10pt; }
)css";

constexpr std::string_view minimal = R"css(body { color: #222; }
h1 { color: #1d1d1f; font-weight: 300; font-size: 26pt; letter-spacing: -.01em; }
.meta td.label, table.lines th, table.totals td.label { color: #9a9a9a; }
table.lines th { text-transform: none; letter-spacing: 0; font-size: 8.5pt; font-weight: 400; border-bottom: 0.5pt solid #d8d8d8; }
table.lines td { border-bottom: none; padding-top: 6pt; padding-bottom: 6pt; }
table.totals tr.total td { border-top: 0.5pt solid #bbb; font-weight: 600; }
.payment, .foot { border-top-color: #eee; }
)css";

constexpr std::string_view bold =
    R"css(.head { background: var(--accent); color: white; padding: 12pt 16pt; border-radius: 8pt; align-items: center; margin-bottom: 18pt; }
.head .seller, .head .seller-name { color: white; }
.logo { background: white; padding: 4pt 6pt; border-radius: 6pt; }
.logo img { height: calc(var(--logo-h) * 0.8); }
h1 { font-size: 24pt; font-weight: 800; }
table.lines th { color: var(--accent); border-bottom: 2pt solid var(--accent); }
table.totals tr.total td { color: var(--accent); border-top: 2pt solid var(--accent); }
)css";

/// Brings the totals' figures in line with the lines' above them.
constexpr std::string_view compactUpkeep = "table.totals td { padding-right: 5pt; }\n";

constexpr std::string_view compact = R"css(body { font-size: 8.5pt; line-height: 1.3; }
h1 { font-size: 16pt; }
.head { margin-bottom: 16pt; }
.parties { margin-bottom: 14pt; }
table.lines td { padding: 3.5pt 5pt; border-bottom: none; }
table.lines tbody tr:nth-child(even) td { background: #f5f5f7; }
table.lines th { padding: 4pt 5pt; }
table.totals td { padding: 2pt 0 2pt 14pt; }
table.totals tr.total td { font-size: 11pt; }
.details { font-size: 7.5pt; }
)css";

/// Keeps headings of figures over their figures, gives figures equal cells and the total some air, and holds any content
/// on the page: long words break instead of running off it, and a long value beside the address wraps. The head is so
/// high that the address begins 50 mm below the edge of the sheet, where it shows in the window of an envelope (DIN 5008;
/// ISO 269 DL) wherever the sheet slips to.
constexpr std::string_view upkeep = R"css(body { overflow-wrap: anywhere; }
.head { min-height: 79pt; }
.logo { flex-shrink: 0; }
.contact { margin-top: 3pt; }
.seller-name, .buyer-name { overflow-wrap: anywhere; }
.meta { max-width: 62%; }
.meta td { overflow-wrap: normal; vertical-align: top; }
.meta td:not(.label) { white-space: normal; overflow-wrap: anywhere; }
.num, .meta td, table.bank td { font-variant-numeric: tabular-nums; }
table.lines th.num { text-align: right; }
th.desc, td.desc { min-width: 110pt; }
table.totals tr.last td { padding-bottom: 6pt; }
table.bank td.label { white-space: nowrap; }
)css";

/// A letter reads as one: a paragraph in a comfortable measure, then its figures across the page under hairlines, their
/// edges where the text has its own, with the amount due in the design's own emphasis; the footer at the foot of the
/// sheet. A long heading ("Promemoria di pagamento") is set smaller, so that it stays on one line beside the address. The
/// height leaves a little out, so that rounding never makes a second page.
constexpr std::string_view letterRules =
    R"css(.letter { display: flex; flex-direction: column; min-height: calc(100vh - 2pt); }
.long-heading h1 { font-size: 18pt; }
.design-classic.long-heading h1 { font-size: 14pt; }
.design-minimal.long-heading h1 { font-size: 20pt; }
.design-compact.long-heading h1 { font-size: 16pt; }
.letter .parties { margin-bottom: 30pt; }
.letter .opening { font-size: 1.1em; line-height: 1.5; max-width: 430pt; }
.letter .totals-wrap { display: block; margin: 18pt 0 10pt; }
.letter table.totals { width: 100%; }
.letter table.totals td { padding: 6pt 0; }
.letter table.totals tr.total td { padding-top: 8pt; }
.letter table.totals tr:not(.total):not(.last) td { border-bottom: 0.5pt solid #e4e4e4; }
.letter .payment p { font-size: 1.1em; }
.letter .foot { margin-top: auto; }
.design-modern.letter table.totals td { padding: 6pt 10pt; }
.design-modern.letter table.totals tr.total td { padding: 8pt 10pt; }
)css";

/// No letter in an envelope: the head is as high as it needs to be, and the figures get the room. The total is told by a
/// line and by weight, not by colour alone.
constexpr std::string_view tableRules = R"css(.table .head { min-height: 0; align-items: center; margin-bottom: 14pt; }
.table h1 { font-size: 17pt; margin-bottom: 4pt; }
table.facts { border-collapse: collapse; font-size: 8.5pt; }
table.facts td { padding: 1pt 14pt 1pt 0; vertical-align: top; }
table.facts td.label { color: #777; white-space: nowrap; }
.table table.lines { font-size: 8.5pt; margin-top: 12pt; }
.table.wide table.lines { font-size: 7.5pt; }
.table.wide table.lines th { font-size: 6.5pt; }
.table table.lines th, .table table.lines td { padding: 4pt 0 4pt 10pt; }
.table table.lines th:first-child, .table table.lines td:first-child { padding-left: 4pt; }
.table table.lines th:last-child, .table table.lines td:last-child { padding-right: 4pt; }
.table table.lines th { vertical-align: bottom; letter-spacing: .02em; overflow-wrap: normal; }
.table table.lines th.num { white-space: normal; }
.table table.lines tr.last { break-after: avoid; page-break-after: avoid; }
.table table.lines tr.total td { font-weight: 700; color: #1d1d1f; border-top: 1pt solid #1d1d1f; border-bottom: none;
                                 padding-top: 6pt; }
.note { color: #555; font-size: 8.5pt; }
)css";

constexpr int tintPercent = 10;
constexpr int strongTintPercent = 22;
constexpr double readable = 4.5;     ///< of small text
constexpr double nearlyReadable = 3; ///< from here on a slightly deeper shade carries white text
constexpr std::string_view darkText = "#1d1d1f";

} // namespace

std::string_view base()
{
    return baseRules;
}

std::string_view additions(TemplateDesign design)
{
    switch (design) {
    case TemplateDesign::classic:
        return classic;
    case TemplateDesign::modern:
        return modern;
    case TemplateDesign::minimal:
        return minimal;
    case TemplateDesign::bold:
        return bold;
    case TemplateDesign::compact:
        return compact;
    }
    return {};
}

std::string legibility(const TemplateSettings& settings)
{
    const Color accent = settings.accent;
    std::string rules;
    const Color onPaper = accent.deepened(paperWhite, readable);
    if (onPaper != accent && settings.design != TemplateDesign::minimal) { // whose heading is not coloured
        rules += fmt::format("h1 {{ color: {}; }}\n", onPaper.hex());
    }
    if (settings.design == TemplateDesign::modern) {
        const Color onTint = accent.deepened(accent.tint(tintPercent), readable);
        if (onTint != accent) {
            rules += fmt::format("table.lines th {{ color: {}; }}\n", onTint.hex());
        }
    }
    if (settings.design == TemplateDesign::bold && onPaper != accent) {
        rules += fmt::format("table.lines th, table.totals tr.total td {{ color: {}; }}\n", onPaper.hex());
    }
    const bool isBold = settings.design == TemplateDesign::bold;
    if ((isBold || settings.design == TemplateDesign::modern) && onPaper != accent) {
        const std::string_view area = isBold ? ".head" : "table.totals tr.total td";
        const std::string_view text = isBold ? ".head, .head .seller, .head .seller-name"
                                             : "table.totals tr.total td, table.totals tr.total td.label";
        rules += contrast(accent, paperWhite) >= nearlyReadable
                     ? fmt::format("{} {{ background: {}; }}\n", area, onPaper.hex())
                     : fmt::format("{} {{ color: {}; }}\n", text, darkText);
    }
    return rules;
}

void appendLetter(std::string& html)
{
    html += letterRules;
}

void appendTable(std::string& html)
{
    html += tableRules;
}

void append(std::string& html, const TemplateSettings& settings)
{
    html += ":root { --accent: ";
    html += settings.accent.hex();
    html += "; --tint: ";
    html += settings.accent.tint(tintPercent).hex();
    html += "; --tint-strong: ";
    html += settings.accent.tint(strongTintPercent).hex();
    html += ";\n        --font: ";
    html += fontStack(settings.font);
    html += "; --logo-h: ";
    html += std::to_string(logoHeight(settings.logoSize));
    HTMLText::appendMarkup(html, baseRules);
    HTMLText::appendMarkup(html, additions(settings.design));
    HTMLText::appendMarkup(html, upkeep);
    if (settings.design == TemplateDesign::compact) {
        html += compactUpkeep;
    }
    html += legibility(settings);
}

} // namespace Quillary::StyleSheet
