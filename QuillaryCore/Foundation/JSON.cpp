#include "QuillaryCore/Foundation/JSON.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/UTF8.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace Quillary {

namespace {

void appendEscape(std::string& out, unsigned char byte)
{
    constexpr std::string_view hexDigits = "0123456789abcdef";
    switch (byte) {
    case '"':
        out += "\\\"";
        break;
    case '\\':
        out += "\\\\";
        break;
    case '\n':
        out += "\\n";
        break;
    case '\r':
        out += "\\r";
        break;
    case '\t':
        out += "\\t";
        break;
    default:
        out += "\\u00";
        out += hexDigits[byte >> 4U];
        out += hexDigits[byte & 0x0FU];
    }
}

/// The bytes that stand in a JSON string as they are, without a look at what follows them.
constexpr std::array<bool, 256> isPlain = [] {
    std::array<bool, 256> result{};
    for (std::size_t byte = 0x20; byte < 0x80; ++byte) {
        result[byte] = byte != '"' && byte != '\\';
    }
    return result;
}();

/// Copies by runs. Bytes that are no UTF-8 become U+FFFD: one broken text of ours must not make a line unreadable.
void appendQuoted(std::string& out, std::string_view text)
{
    out += '"';
    std::size_t runBegin = 0;
    std::size_t position = 0;
    const auto flushRun = [&] {
        out += text.substr(runBegin, position - runBegin);
    };
    while (position < text.size()) {
        const auto byte = static_cast<unsigned char>(text[position]);
        if (isPlain[byte]) {
            ++position;
            continue;
        }
        const auto character = decodeFirst(text.substr(position));
        if (!character.scalar || byte < 0x80) {
            flushRun();
            runBegin = position + character.length;
        }
        if (!character.scalar) {
            out += "\xEF\xBF\xBD";
        } else if (byte < 0x80) {
            appendEscape(out, byte);
        }
        position += character.length;
    }
    flushRun();
    out += '"';
}

/// The layout of a dump: nothing between the parts, or line breaks and two spaces a level.
class Writer
{
public:
    Writer(std::string& out, bool isIndented)
        : m_out(out)
        , m_isIndented(isIndented)
    {
    }

    void write(const JSON& value)
    {
        if (value.isNull()) {
            m_out += "null";
        } else if (const bool* boolean = value.boolean()) {
            m_out += *boolean ? "true" : "false";
        } else if (const auto* number = value.number()) {
            m_out += number->literal;
        } else if (const auto* string = value.string()) {
            appendQuoted(m_out, *string);
        } else if (const auto* array = value.array()) {
            write(*array);
        } else if (const auto* object = value.object()) {
            write(*object);
        }
    }

private:
    void write(const JSON::Array& array)
    {
        m_out += '[';
        ++m_level;
        for (std::size_t index = 0; index < array.size(); ++index) {
            beginPart(index == 0);
            write(array[index]);
        }
        end(array.empty(), ']');
    }

    void write(const JSON::Object& object)
    {
        m_out += '{';
        ++m_level;
        for (std::size_t index = 0; index < object.size(); ++index) {
            beginPart(index == 0);
            appendQuoted(m_out, object[index].first);
            m_out += m_isIndented ? ": " : ":";
            write(object[index].second);
        }
        end(object.empty(), '}');
    }

    void beginPart(bool isFirst)
    {
        if (!isFirst) {
            m_out += ',';
        }
        breakLine();
    }

    void end(bool isEmpty, char bracket)
    {
        --m_level;
        if (!isEmpty) {
            breakLine();
        }
        m_out += bracket;
    }

    void breakLine()
    {
        if (m_isIndented) {
            m_out += '\n';
            m_out.append(2 * m_level, ' ');
        }
    }

    std::string& m_out;
    bool m_isIndented;
    std::size_t m_level = 0;
};

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// A number's text taken apart: ±digits × 10^exponent, where `pointPosition` digits stand before the point.
struct NumberParts
{
    bool isNegative = false;
    std::string digits;
    std::int64_t pointPosition = 0;
};

std::optional<NumberParts> parts(std::string_view literal)
{
    constexpr int largestExponent = 400;
    NumberParts result;
    result.isNegative = literal.starts_with('-');
    literal.remove_prefix(result.isNegative ? 1 : 0);
    const std::size_t mark = std::min(literal.find_first_of("eE"), literal.size());
    int exponent = 0;
    if (mark < literal.size()) {
        std::string_view text = literal.substr(mark + 1);
        text.remove_prefix(text.starts_with('+') ? 1 : 0);
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), exponent);
        if (error != std::errc() || end != text.data() + text.size() || exponent > largestExponent ||
            exponent < -largestExponent) {
            return std::nullopt;
        }
    }
    const std::string_view mantissa = literal.substr(0, mark);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    std::ranges::copy_if(mantissa, std::back_inserter(result.digits), isDigit);
    result.pointPosition = static_cast<std::int64_t>(point) + exponent;
    return result;
}

/// Writes the parts without exponent. Zeros that the exponent moved to the front go.
std::string plainNumber(NumberParts parts)
{
    if (parts.pointPosition <= 0) {
        parts.digits.insert(0, static_cast<std::size_t>(1 - parts.pointPosition), '0');
        parts.pointPosition = 1;
    }
    const auto point = static_cast<std::size_t>(parts.pointPosition);
    if (parts.digits.size() < point) {
        parts.digits.resize(point, '0');
    }
    std::string whole = parts.digits.substr(0, point);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size() - 1));
    std::string result = parts.isNegative ? "-" + whole : whole;
    if (point < parts.digits.size()) {
        result += '.';
        result += std::string_view(parts.digits).substr(point);
    }
    return result;
}

} // namespace

std::optional<std::string> JSON::decimalText() const
{
    const Number* value = number();
    if (value == nullptr) {
        return std::nullopt;
    }
    if (value->literal.find_first_of("eE") == std::string::npos) {
        return value->literal;
    }
    auto split = parts(value->literal);
    if (!split) {
        return std::nullopt;
    }
    return plainNumber(std::move(*split));
}

std::optional<std::int64_t> JSON::integer() const
{
    const auto text = decimalText();
    if (!text) {
        return std::nullopt;
    }
    const std::size_t point = std::min(text->find('.'), text->size());
    if (text->find_first_not_of('0', std::min(point + 1, text->size())) != std::string::npos) {
        return std::nullopt;
    }
    std::int64_t result = 0;
    const char* end = text->data() + point;
    const auto [parsedEnd, error] = std::from_chars(text->data(), end, result);
    if (error != std::errc() || parsedEnd != end) {
        return std::nullopt;
    }
    return result;
}

std::optional<std::string> JSON::text() const
{
    if (const std::string* value = string()) {
        return *value;
    }
    return decimalText();
}

const JSON* JSON::find(std::string_view key) const
{
    const Object* members = object();
    if (members == nullptr) {
        return nullptr;
    }
    const auto found = std::ranges::find(*members, key, &Member::first);
    return found == members->end() ? nullptr : &found->second;
}

void JSON::set(std::string_view key, JSON value)
{
    if (isNull()) {
        m_value = Object();
    }
    Object* members = object();
    precondition(members != nullptr, "members are set in objects");
    const auto found = std::ranges::find(*members, key, &Member::first);
    if (found != members->end()) {
        found->second = std::move(value);
    } else {
        members->emplace_back(std::string(key), std::move(value));
    }
}

void JSON::appendTo(std::string& out) const
{
    Writer(out, false).write(*this);
}

std::string JSON::dump() const
{
    std::string result;
    appendTo(result);
    return result;
}

std::string JSON::pretty() const
{
    std::string result;
    Writer(result, true).write(*this);
    return result;
}

} // namespace Quillary
