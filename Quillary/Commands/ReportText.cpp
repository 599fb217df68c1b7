#include "Quillary/Commands/ReportText.h"

#include "Quillary/TextTable.h"
#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Reports/AgingReport.h"

#include <fmt/format.h>

#include <array>
#include <cstddef>
#include <utility>
#include <variant>
#include <vector>

namespace Quillary::ReportText {

namespace {

constexpr std::size_t widestText = 40;
constexpr int barWidth = 40;
constexpr int basisPointDigits = 2;

/// Writes one cell as the locale does.
struct CellText
{
    const Locale& locale;

    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(const Money& amount) const { return amount.formatted(locale); }
    std::string operator()(const CSVValue::Number& number) const { return locale.formatDecimal(number.value, 0, 0); }
    std::string operator()(const CSVValue::Date& date) const { return date ? locale.formatDate(*date) : ""; }
    std::string operator()(const CSVValue::Rate& rate) const
    {
        return locale.formatDecimal(rate.basisPoints, basisPointDigits, 0);
    }
};

bool isNumeric(const CSVValue& value)
{
    return !std::holds_alternative<std::string>(value.content()) &&
           !std::holds_alternative<CSVValue::Date>(value.content());
}

bool isNumericColumn(const ReportTable& table, std::size_t column)
{
    // Texts in such a column are few: a rate that is missing.
    for (const std::vector<CSVValue>& row : table.rows) {
        if (isNumeric(row[column])) {
            return true;
        }
        if (const auto* text = std::get_if<std::string>(&row[column].content()); text == nullptr || !text->empty()) {
            return false;
        }
    }
    return false;
}

std::vector<TextTable::Column> columns(const ReportTable& table, std::string_view currencyCode)
{
    const std::string currency = fmt::format(" ({})", currencyCode);
    std::vector<TextTable::Column> columns;
    for (std::size_t index = 0; index < table.header.size(); ++index) {
        std::string heading = table.header[index];
        if (heading.ends_with(currency)) {
            heading.resize(heading.size() - currency.size());
        }
        const bool isNumber = isNumericColumn(table, index);
        columns.push_back({.heading = std::move(heading),
                           .alignment = isNumber ? TextTable::Alignment::right : TextTable::Alignment::left,
                           .widest = isNumber ? TextTable::Column{}.widest : widestText});
    }
    return columns;
}

/// `part` ÷ `whole` in units of which `units` make up the whole, cut off. Both are at least 0.
std::int64_t partOf(std::int64_t part, std::int64_t whole, std::int64_t units)
{
    return whole == 0 ? 0 : static_cast<std::int64_t>(Int128{part} * units / whole);
}

} // namespace

std::string table(const ReportTable& table, LastRow lastRow, std::string_view currencyCode, const Locale& locale)
{
    TextTable text(columns(table, currencyCode));
    const CellText cellText{locale};
    for (std::size_t index = 0; index < table.rows.size(); ++index) {
        if (lastRow == LastRow::isTotal && index > 0 && index + 1 == table.rows.size()) {
            text.addRule();
        }
        std::vector<std::string> cells;
        cells.reserve(table.header.size());
        for (const CSVValue& value : table.rows[index]) {
            cells.push_back(std::visit(cellText, value.content()));
        }
        text.addRow(std::move(cells));
    }
    return text.text();
}

std::string agingBars(const AgingReport& report, const Locale& locale)
{
    const std::int64_t whole = report.total();
    if (whole == 0) {
        return {};
    }
    constexpr std::int64_t wholePercent = 100;
    TextTable text({{.heading = "Due since"},
                    {.heading = "Open", .alignment = TextTable::Alignment::right},
                    {.heading = "%", .alignment = TextTable::Alignment::right},
                    {.heading = ""}});
    const AgingReport::Amounts totals = report.totals();
    for (const AgingReport::Bucket bucket : AgingReport::allBuckets) {
        const std::int64_t amount = totals.at(static_cast<std::size_t>(bucket));
        const std::int64_t percent = (partOf(amount, whole, 2 * wholePercent) + 1) / 2; // rounded
        text.addRow({std::string(AgingReport::title(bucket)),
                     Money(amount, report.currencyCode).formatted(locale),
                     locale.formatDecimal(percent, 0, 0),
                     bar(amount, whole, barWidth)});
    }
    return text.text();
}

std::string bar(std::int64_t part, std::int64_t whole, int width)
{
    constexpr std::array<std::string_view, 8> ends = {"", "▏", "▎", "▍", "▌", "▋", "▊", "▉"};
    constexpr std::int64_t eighths = ends.size();
    std::int64_t length = partOf(part, whole, width * eighths);
    if (part > 0 && length == 0) {
        length = 1; // something is never nothing
    }
    std::string text;
    for (std::int64_t column = 0; column < length / eighths; ++column) {
        text += "█";
    }
    return text.append(ends.at(static_cast<std::size_t>(length % eighths)));
}

} // namespace Quillary::ReportText
