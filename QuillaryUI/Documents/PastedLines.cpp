#include "QuillaryUI/Documents/PastedLines.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Units.h"
#include "QuillaryCore/Tabular/CSV.h"
#include "QuillaryUI/Documents/LinesModel.h"
#include "QuillaryUI/Documents/TypedNumber.h"
#include "QuillaryUI/Look/Formats.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace Quillary::PastedLines {

namespace {

constexpr std::size_t longestPosition = 4;

struct Row
{
    JSON line = JSON::object({});
    std::size_t numbers = 0;
};

/// Only what begins or ends as a number does: "A4" and "2nd floor" are words.
bool isNumber(std::string_view cell, const Reading& reading)
{
    const auto isDigit = [](char character) {
        return character >= '0' && character <= '9';
    };
    const bool hasLetters = std::ranges::count_if(cell, [](char character) {
                                return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
                            }) > 3; // more than a currency's code
    return std::ranges::any_of(cell, isDigit) && !hasLetters &&
           TypedNumber::amount(text(cell), reading.currencyCode, reading.locale).has_value();
}

bool isPosition(std::string_view cell)
{
    return !cell.empty() && cell.size() <= longestPosition &&
           cell.find_first_not_of("0123456789.") == std::string_view::npos;
}

void take(Row& row, int column, std::string_view cell, const Reading& reading)
{
    constexpr std::pair<int, const char*> names[] = {
        {LinesModel::quantity, "quantity"}, {LinesModel::price, "unit_price"}, {LinesModel::tax, "tax_rate"}};
    for (const auto& [known, name] : names) {
        if (known == column) {
            if (auto plain = TypedNumber::cell(text(cell), column, reading.currencyCode, reading.locale)) {
                row.line.set(name, *std::move(plain));
            }
        }
    }
}

Row read(const CSVRow& cells, const Reading& reading)
{
    Row row;
    const bool hasPosition = cells.size() > 1 && isPosition(cells[0]) && !isNumber(cells[1], reading);
    std::vector<std::string_view> numbers;
    std::string title;
    std::string details;
    for (std::size_t index = hasPosition ? 1 : 0; index < cells.size(); ++index) {
        const std::string_view cell = cells[index];
        if (cell.empty()) {
            continue;
        }
        if (cell.ends_with('%')) {
            take(row, LinesModel::tax, cell, reading);
        } else if (isNumber(cell, reading)) {
            numbers.push_back(cell);
        } else if (title.empty()) {
            title = cell;
        } else if (row.line.find("unit") == nullptr && reading.units.named(cell)) {
            row.line.set("unit", std::string(cell));
        } else {
            details.append(details.empty() ? "" : "\n").append(cell);
        }
    }
    row.numbers = numbers.size();
    if (numbers.size() == 1) {
        take(row, LinesModel::price, numbers.front(), reading);
    } else if (numbers.size() > 1) {
        take(row, LinesModel::quantity, numbers[0], reading);
        take(row, LinesModel::price, numbers[1], reading);
    }
    row.line.set("title", std::move(title));
    if (!details.empty()) {
        row.line.set("details", std::move(details));
    }
    return row;
}

} // namespace

JSON::Array lines(std::string text, const Reading& reading)
{
    const CSVRows table = CSV::parse(std::move(text), '\t');
    std::vector<Row> rows;
    for (const CSVRow& cells : table) {
        rows.push_back(read(cells, reading));
    }
    const bool hasNumbers = std::ranges::any_of(rows, [](const Row& row) { return row.numbers > 0; });
    const bool hasHead = hasNumbers && rows.front().numbers == 0;
    JSON::Array result;
    for (std::size_t index = hasHead ? 1 : 0; index < rows.size(); ++index) {
        result.push_back(std::move(rows[index].line));
    }
    return result;
}

} // namespace Quillary::PastedLines
