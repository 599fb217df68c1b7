#include "QuillaryCore/Tabular/CSVWriter.h"

#include "QuillaryCore/Tabular/ByteMasks.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>

namespace Quillary::CSVWriter {

namespace {

constexpr std::string_view mark = "\xEF\xBB\xBF";
constexpr std::string_view lineEnd = "\r\n";

/// A cell of this many bytes on average is room enough for most tables.
constexpr std::size_t usualCellSize = 12;

bool needsQuotes(std::string_view text, char separator)
{
    return std::ranges::any_of(
        text, [separator](char byte) { return byte == separator || byte == '"' || byte == '\n' || byte == '\r'; });
}

/// Puts what was written from `begin` on in quotes where that is needed.
void escapeFrom(std::size_t begin, std::string& out, const CSVFormat& format)
{
    if (!needsQuotes(std::string_view(out).substr(begin), format.separator)) {
        return;
    }
    const std::string plain = out.substr(begin);
    out.resize(begin);
    out += '"';
    for (const char byte : plain) {
        out.append(byte == '"' ? 2 : 1, byte);
    }
    out += '"';
}

bool readsAsFormula(std::string_view text)
{
    constexpr std::string_view beginnings = "=+-@\t\r";
    return !text.empty() && beginnings.find(text.front()) != std::string_view::npos;
}

void appendDigits(std::string& out, std::uint64_t number)
{
    const fmt::format_int digits(number);
    out.append(digits.data(), digits.size());
}

std::uint64_t powerOfTen(int exponent)
{
    std::uint64_t power = 1;
    for (; exponent > 0; --exponent) {
        power *= 10;
    }
    return power;
}

void appendDecimal(std::string& out, std::int64_t value, int digits, std::string_view separator, bool trimZeros)
{
    std::uint64_t magnitude = static_cast<std::uint64_t>(value);
    if (value < 0) {
        out += '-';
        magnitude = 0 - magnitude; // also where the smallest value has no positive counterpart
    }
    if (digits < 1) {
        appendDigits(out, magnitude);
        return;
    }
    constexpr int mostDigits = 19; // of a power of ten in 64 bits: with more, all digits are behind the separator
    const std::uint64_t power = powerOfTen(std::min(digits, mostDigits));
    appendDigits(out, digits > mostDigits ? 0 : magnitude / power);
    const std::size_t wholeEnd = out.size();
    out += separator;
    const std::size_t fractionBegin = out.size();
    const fmt::format_int fraction(digits > mostDigits ? magnitude : magnitude % power);
    out.append(static_cast<std::size_t>(digits) - fraction.size(), '0');
    out.append(fraction.data(), fraction.size());
    if (trimZeros) {
        const std::size_t last = out.find_last_not_of('0');
        out.resize(last == std::string::npos || last < fractionBegin ? wholeEnd : last + 1);
    }
}

/// At least `width` characters, the sign among them, as "%0*d" writes.
void appendPadded(std::string& out, int number, std::size_t width)
{
    const fmt::format_int digits(static_cast<unsigned>(number < 0 ? -number : number));
    const std::size_t signSize = number < 0 ? 1 : 0;
    out.append(signSize, '-');
    out.append(width - std::min(width, digits.size() + signSize), '0');
    out.append(digits.data(), digits.size());
}

/// Appends the plain text of a cell.
class CellText
{
public:
    CellText(std::string& out, const CSVFormat& format)
        : m_out(out)
        , m_format(format)
    {
    }

    void operator()(const std::string& text) const
    {
        if (readsAsFormula(text)) {
            m_out += '\'';
        }
        m_out += text;
    }

    void operator()(const Money& amount) const
    {
        const int digits = Money::fractionDigits(amount.currencyCode());
        appendDecimal(m_out, amount.minorUnits(), digits, m_format.decimalSeparator, false);
    }

    void operator()(const CSVValue::Number& number) const { appendDecimal(m_out, number.value, 0, {}, false); }

    void operator()(const CSVValue::Date& date) const
    {
        if (date) {
            appendPadded(m_out, static_cast<int>(date->year()), 4);
            m_out += '-';
            appendPadded(m_out, static_cast<int>(static_cast<unsigned>(date->month())), 2);
            m_out += '-';
            appendPadded(m_out, static_cast<int>(static_cast<unsigned>(date->day())), 2);
        }
    }

    void operator()(const CSVValue::Rate& rate) const
    {
        appendDecimal(m_out, rate.basisPoints, 2, m_format.decimalSeparator, true);
    }

private:
    std::string& m_out;
    const CSVFormat& m_format;
};

void appendCell(std::string& out, const CSVValue& value, const CSVFormat& format)
{
    const std::size_t begin = out.size();
    std::visit(CellText(out, format), value.content());
    escapeFrom(begin, out, format);
}

void appendField(std::string& out, std::string_view text, const CSVFormat& format)
{
    const std::size_t begin = out.size();
    out += text;
    escapeFrom(begin, out, format);
}

void appendTable(std::string& out,
                 std::span<const std::string> header,
                 std::span<const std::vector<CSVValue>> rows,
                 const CSVFormat& format)
{
    out.reserve(out.size() + (rows.size() + 1) * (header.size() * usualCellSize + lineEnd.size()));
    appendHeader(out, header, format);
    for (const std::vector<CSVValue>& row : rows) {
        appendRow(out, row, format);
    }
}

} // namespace

std::string
string(std::span<const std::string> header, std::span<const std::vector<CSVValue>> rows, const CSVFormat& format)
{
    std::string result;
    appendTable(result, header, rows, format);
    return result;
}

std::string
data(std::span<const std::string> header, std::span<const std::vector<CSVValue>> rows, const CSVFormat& format)
{
    std::string result(mark);
    appendTable(result, header, rows, format);
    return result;
}

void appendHeader(std::string& text, std::span<const std::string> header, const CSVFormat& format)
{
    for (std::size_t i = 0; i < header.size(); ++i) {
        if (i > 0) {
            text += format.separator;
        }
        appendField(text, header[i], format);
    }
    text += lineEnd;
}

void appendRow(std::string& text, std::span<const CSVValue> row, const CSVFormat& format)
{
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (i > 0) {
            text += format.separator;
        }
        appendCell(text, row[i], format);
    }
    text += lineEnd;
}

std::string cell(const CSVValue& value, const CSVFormat& format)
{
    std::string result;
    appendCell(result, value, format);
    return result;
}

std::string field(std::string_view text, const CSVFormat& format)
{
    std::string result;
    appendField(result, text, format);
    return result;
}

std::string decimal(std::int64_t value, int digits, std::string_view separator, bool trimZeros)
{
    std::string result;
    appendDecimal(result, value, digits, separator, trimZeros);
    return result;
}

} // namespace Quillary::CSVWriter
