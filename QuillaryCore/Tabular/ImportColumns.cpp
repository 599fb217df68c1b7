#include "QuillaryCore/Tabular/ImportColumns.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Tabular/ColumnContents.h"
#include "QuillaryCore/Tabular/ImportText.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <utility>

namespace Quillary {

namespace {

/// A title, a date and the like may stand above the headings.
constexpr std::size_t rowsAboveHeadings = 5;

/// The rows that tell whether a first row without known headings differs from those below.
constexpr std::size_t comparedRows = 20;

bool holdsData(const CSVRow& row)
{
    return std::any_of(row.begin(), row.end(), [](std::string_view cell) { return looksLikeData(cell); });
}

std::size_t knownHeadings(const CSVRow& row)
{
    return static_cast<std::size_t>(std::count_if(row.begin(), row.end(), [](std::string_view cell) {
        return ClientFields::guess(cell) != ClientField::ignore;
    }));
}

/// Below a row without any data, most rows hold some: then it is one of headings, though in words that aren't known.
bool differsFromRowsBelow(const CSVRows& rows)
{
    const std::size_t end = std::min(rows.size(), comparedRows + 1);
    std::size_t withData = 0;
    for (std::size_t i = 1; i < end; ++i) {
        withData += holdsData(rows[i]) ? 1 : 0;
    }
    return withData > 0 && withData * 2 >= end - 1;
}

/// The row of headings. No value: there is none.
std::optional<std::size_t> headingRow(const CSVRows& rows)
{
    std::optional<std::size_t> best;
    std::size_t most = 0;
    for (std::size_t i = 0; i < std::min(rows.size(), rowsAboveHeadings); ++i) {
        // One word may be a heading by chance anywhere but in the first row.
        const std::size_t known = holdsData(rows[i]) ? 0 : knownHeadings(rows[i]);
        if (known > most && (i == 0 || known >= 2)) {
            best = i;
            most = known;
        }
    }
    if (!best && !rows.empty() && !holdsData(rows[0]) && differsFromRowsBelow(rows)) {
        best = 0;
    }
    return best;
}

std::size_t widestRow(const CSVRows& rows)
{
    std::size_t widest = 0;
    for (const CSVRow row : rows) {
        widest = std::max(widest, row.size());
    }
    return widest;
}

/// How clearly a heading means its field; 0 is the clearest.
std::size_t rank(ClientField field, std::string_view heading)
{
    const auto aliases = ClientFields::aliases(field);
    const auto place = std::ranges::find(aliases, ImportText::normalized(heading));
    return static_cast<std::size_t>(place - aliases.begin());
}

std::string listed(const ImportColumns& columns)
{
    std::string list;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        list += fmt::format("{}{}", i == 0 ? "" : ", ", columns.title(i));
    }
    return list;
}

std::string listOfFields()
{
    std::string list;
    for (std::size_t i = 0; i < clientFieldCount; ++i) {
        list += fmt::format("{}{}", i == 0 ? "" : ", ", rawValue(static_cast<ClientField>(i)));
    }
    return list;
}

std::optional<ClientField> namedField(std::string_view text)
{
    const std::string wanted = lowerCasedASCII(trimmed(text));
    for (std::size_t i = 0; i < clientFieldCount; ++i) {
        const auto field = static_cast<ClientField>(i);
        if (lowerCasedASCII(rawValue(field)) == wanted) {
            return field;
        }
    }
    const ClientField guessed = ClientFields::guess(text);
    return guessed == ClientField::ignore ? std::nullopt : std::optional(guessed);
}

} // namespace

ImportColumns ImportColumns::recognised(const CSVRows& rows)
{
    ImportColumns result;
    const std::size_t count = widestRow(rows);
    const std::optional<std::size_t> headings = headingRow(rows);
    result.m_firstRow = headings ? *headings + 1 : 0;
    result.m_headings.resize(count);
    result.m_isAssigned.resize(count);
    result.m_fields.assign(count, ClientField::ignore);
    for (std::size_t column = 0; headings && column < count; ++column) {
        result.m_headings[column] = rows[*headings].cell(column);
        result.m_fields[column] = ClientFields::guess(result.m_headings[column]);
    }
    if (std::ranges::count(result.m_fields, ClientField::ignore) == static_cast<std::ptrdiff_t>(count)) {
        result.m_fields = fieldsByContents(rows, result.m_firstRow, count);
    }
    result.arrange();
    return result;
}

void ImportColumns::arrange()
{
    m_columns.assign(clientFieldCount, {});
    for (std::size_t column = 0; column < m_fields.size(); ++column) {
        m_columns[static_cast<std::size_t>(m_fields[column])].push_back(column);
    }
    for (std::size_t i = 1; i < clientFieldCount; ++i) {
        std::ranges::stable_sort(m_columns[i], {}, [&](std::size_t column) {
            return rank(static_cast<ClientField>(i), m_headings[column]);
        });
    }
}

std::optional<std::size_t> ImportColumns::find(std::string_view column) const
{
    const std::string wanted = ImportText::normalized(column);
    for (std::size_t i = 0; i < m_headings.size(); ++i) {
        const std::string& heading = m_headings[i];
        if (!heading.empty() && (heading == column || (!wanted.empty() && ImportText::normalized(heading) == wanted))) {
            return i;
        }
    }
    std::size_t number = 0;
    const char* const end = column.data() + column.size();
    // NOLINTNEXTLINE(bugprone-suspicious-stringview-data-usage): its end goes with it
    const auto [stop, error] = std::from_chars(column.data(), end, number);
    const bool isNumber = error == std::errc() && stop == end && number >= 1 && number <= size();
    return isNumber ? std::optional(number - 1) : std::nullopt;
}

void ImportColumns::assign(std::string_view column, std::string_view field)
{
    const std::optional<std::size_t> place = find(trimmed(column));
    if (!place) {
        throw UserError(fmt::format("The file has no column “{}”. Its columns are: {}.", column, listed(*this)));
    }
    const std::optional<ClientField> wanted = namedField(field);
    if (!wanted) {
        throw UserError(fmt::format("A client has no field “{}”. The fields are: {}.", field, listOfFields()));
    }
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        if (m_fields[i] == *wanted && !m_isAssigned[i]) {
            m_fields[i] = ClientField::ignore;
        }
    }
    m_fields[*place] = *wanted;
    m_isAssigned[*place] = true;
    arrange();
}

const std::vector<std::size_t>& ImportColumns::columns(ClientField field) const
{
    return m_columns[static_cast<std::size_t>(field)];
}

std::string ImportColumns::title(std::size_t column) const
{
    return m_headings[column].empty() ? fmt::format("Column {}", column + 1) : m_headings[column];
}

} // namespace Quillary
