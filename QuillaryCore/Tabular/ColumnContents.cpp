#include "QuillaryCore/Tabular/ColumnContents.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Countries.h"
#include "QuillaryCore/Model/Validation.h"
#include "QuillaryCore/Tabular/ImportText.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <utility>

namespace Quillary {

namespace {

constexpr std::size_t sampleRows = 50;

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

std::size_t digitCount(std::string_view text)
{
    return static_cast<std::size_t>(std::ranges::count_if(text, isDigit));
}

bool isWebsite(std::string_view cell)
{
    const std::string start = lowerCasedASCII(cell.substr(0, 8));
    return start.starts_with("http://") || start.starts_with("https://") || start.starts_with("www.");
}

bool isPhone(std::string_view cell)
{
    return digitCount(cell) >= 6 && cell.find_first_not_of("0123456789 +()/.-") == std::string_view::npos &&
           (cell.starts_with('+') || cell.starts_with('0') || cell.starts_with('('));
}

bool isPostalCode(std::string_view cell)
{
    return cell.size() >= 4 && cell.size() <= 6 && std::ranges::all_of(cell, isDigit);
}

bool isVATID(std::string_view cell)
{
    const std::string id = Validation::compactVATID(cell);
    return id.size() >= 8 && digitCount(id) >= 4 && ImportText::countryCode(id.substr(0, 2)) &&
           Validation::isValidVATID(id);
}

bool isCountry(std::string_view cell)
{
    return cell.size() >= 2 && ImportText::countryCode(cell).has_value();
}

bool isCurrency(std::string_view cell)
{
    return ImportText::currencyCode(cell).has_value();
}

bool isKind(std::string_view cell)
{
    return ImportText::kind(cell).has_value();
}

/// "Hauptstraße 12", "12 Main Street".
bool isStreet(std::string_view cell)
{
    const std::size_t digits = digitCount(cell);
    return cell.find(' ') != std::string_view::npos && digits >= 1 && digits * 2 < cell.size();
}

bool hasNoDigits(std::string_view cell)
{
    return digitCount(cell) == 0;
}

using Check = bool (*)(std::string_view cell);

/// What tells a field, the surest first.
constexpr std::pair<ClientField, Check> checks[] = {
    {ClientField::email, Validation::isValidEmail},
    {ClientField::website, isWebsite},
    {ClientField::vatID, isVATID},
    {ClientField::postalCode, isPostalCode},
    {ClientField::phone, isPhone},
    {ClientField::kind, isKind},
    {ClientField::country, isCountry},
    {ClientField::currency, isCurrency},
    {ClientField::street, isStreet},
};

class Samples
{
public:
    Samples(const CSVRows& rows, std::size_t firstRow, std::size_t columnCount)
        : m_cells(columnCount)
    {
        for (std::size_t i = firstRow; i < std::min(rows.size(), firstRow + sampleRows); ++i) {
            for (std::size_t column = 0; column < columnCount; ++column) {
                if (const std::string_view cell = rows[i].cell(column); !cell.empty()) {
                    m_cells[column].push_back(cell);
                }
            }
        }
    }

    /// Nearly all that is there: a few cells are always filled in wrongly.
    [[nodiscard]] bool are(std::size_t column, Check check) const
    {
        const auto& cells = m_cells[column];
        const auto passed = static_cast<std::size_t>(std::ranges::count_if(cells, check));
        return !cells.empty() && passed * 5 >= cells.size() * 4;
    }

    /// Numbers that no two rows share.
    [[nodiscard]] bool areOwnNumbers(std::size_t column) const
    {
        const auto& cells = m_cells[column];
        const std::set<std::string_view> different(cells.begin(), cells.end());
        return different.size() == cells.size() && are(column, [](std::string_view cell) {
                   return cell.size() <= 10 && digitCount(cell) * 2 >= cell.size() && !isPhone(cell);
               });
    }

private:
    std::vector<std::vector<std::string_view>> m_cells;
};

} // namespace

bool looksLikeData(std::string_view cell)
{
    return Validation::isValidEmail(cell) || isWebsite(cell) || isPhone(cell) ||
           (digitCount(cell) > 0 && cell.find_first_not_of("0123456789.,-+/ ") == std::string_view::npos);
}

std::vector<ClientField> fieldsByContents(const CSVRows& rows, std::size_t firstRow, std::size_t columnCount)
{
    const Samples samples(rows, firstRow, columnCount);
    std::vector<ClientField> fields(columnCount, ClientField::ignore);
    std::set<ClientField> taken;
    const auto take = [&](std::size_t column, ClientField field) {
        if (fields[column] == ClientField::ignore && taken.insert(field).second) {
            fields[column] = field;
        }
    };
    if (columnCount > 1 && samples.areOwnNumbers(0)) { // a list that begins with numbers counts its clients
        take(0, ClientField::number);
    }
    for (const auto& [field, check] : checks) {
        for (std::size_t column = 0; column < columnCount; ++column) {
            if (samples.are(column, check)) {
                take(column, field);
            }
        }
    }
    for (std::size_t column = 1; column < columnCount; ++column) {
        if (fields[column - 1] == ClientField::postalCode && samples.are(column, hasNoDigits)) {
            take(column, ClientField::city);
        }
    }
    for (std::size_t column = 0; column < columnCount; ++column) {
        if (samples.are(column, hasNoDigits)) {
            take(column, ClientField::name);
        }
    }
    return fields;
}

} // namespace Quillary
