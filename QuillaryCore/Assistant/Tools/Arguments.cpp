#include "QuillaryCore/Assistant/Tools/Arguments.h"

#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Money/Quantity.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace Quillary {

namespace {

constexpr std::int32_t wholeInBasisPoints = 10000;
constexpr int quantityDigits = 3;
constexpr int rateDigits = 2;
constexpr int firstYear = 1900;
constexpr int lastYear = 2199;
/// Longer than any number with a meaning; keeps a text of megabytes from being quoted and computed with.
constexpr std::size_t longestNumber = 60;
/// Unit: bytes. Of one character as people count them; only hostile text has longer ones.
constexpr std::size_t longestCharacter = 32;

/// A line break or another character that no printed text holds, at the front of a text.
struct Control
{
    std::size_t length = 0; ///< Unit: bytes; 0 where the text begins with an ordinary character
    bool isBreak = false;
};

/// Finds the control characters (general category Cc), Unicode's own line breaks, and the marks that turn the direction
/// of what follows, by which a name could be shown as another. Joiners stay: emoji and Persian need them.
Control controlAtFront(std::string_view text)
{
    const auto byte = [text](std::size_t index) {
        return index < text.size() ? static_cast<unsigned char>(text[index]) : 0U;
    };
    const unsigned first = byte(0);
    if (first == '\r' || first == '\n') {
        return {.length = first == '\r' && byte(1) == '\n' ? 2U : 1U, .isBreak = true};
    }
    if (first < 0x20 || first == 0x7F) {
        return {.length = 1};
    }
    if (first == 0xC2 && byte(1) >= 0x80 && byte(1) <= 0x9F) {
        return {.length = 2, .isBreak = byte(1) == 0x85};
    }
    if (first == 0xE2 && byte(1) == 0x80 && byte(2) >= 0xA8 && byte(2) <= 0xAE) {
        return {.length = 3, .isBreak = byte(2) <= 0xA9};
    }
    if (first == 0xE2 && byte(1) == 0x81 && byte(2) >= 0xA6 && byte(2) <= 0xA9) {
        return {.length = 3};
    }
    return {};
}

std::string withoutControls(std::string_view text, LineBreaks lineBreaks)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t index = 0; index < text.size();) {
        const Control control = controlAtFront(text.substr(index));
        if (control.length == 0) {
            result += text[index];
        } else {
            result += lineBreaks == LineBreaks::kept && control.isBreak ? '\n' : ' ';
        }
        index += std::max<std::size_t>(control.length, 1);
    }
    return result;
}

bool isWithin(std::int64_t value, std::int64_t limit)
{
    return value >= -limit && value <= limit;
}

} // namespace

std::optional<CalendarDate> documentDate(std::string_view text)
{
    const std::optional<CalendarDate> date = parseISODate(text);
    if (!date || date->year() < std::chrono::year(firstYear) || date->year() > std::chrono::year(lastYear)) {
        return std::nullopt;
    }
    return date;
}

Arguments::Arguments(const JSON& object, std::string where)
    : m_object(&object)
    , m_where(std::move(where))
{
}

const JSON* Arguments::find(std::string_view name) const
{
    const JSON* value = m_object->find(name);
    return value == nullptr || value->isNull() ? nullptr : value;
}

bool Arguments::has(std::string_view name) const
{
    return find(name) != nullptr;
}

void Arguments::refuse(std::string_view name, std::string_view rest) const
{
    throw AssistantError(m_where.empty() ? fmt::format("“{}” {}", name, rest)
                                         : fmt::format("“{}: {}” {}", m_where, name, rest));
}

std::optional<std::string> Arguments::text(std::string_view name, std::size_t limit, LineBreaks lineBreaks) const
{
    const JSON* value = find(name);
    if (value == nullptr) {
        return std::nullopt;
    }
    const std::string raw = value->text().value_or("");
    // A byte count decides first, so that megabytes of text are refused without being walked through.
    const bool isHuge = raw.size() > limit * longestCharacter;
    const std::string clean = isHuge ? std::string() : withoutControls(repairedUTF8(raw), lineBreaks);
    const std::string_view text = trimmed(clean);
    if (isHuge || graphemeCount(text) > limit) {
        refuse(name, fmt::format("is too long: at most {} characters.", limit));
    }
    return std::string(text);
}

std::optional<std::string> Arguments::line(std::string_view name, std::size_t limit) const
{
    return text(name, limit, LineBreaks::removed);
}

std::optional<std::string> Arguments::paragraphs(std::string_view name, std::size_t limit) const
{
    return text(name, limit, LineBreaks::kept);
}

std::optional<bool> Arguments::flag(std::string_view name) const
{
    const JSON* value = find(name);
    if (value == nullptr) {
        return std::nullopt;
    }
    if (value->boolean() == nullptr) {
        refuse(name, "must be true or false.");
    }
    return *value->boolean();
}

std::optional<Decimal> Arguments::decimal(std::string_view name) const
{
    const JSON* value = find(name);
    if (value == nullptr) {
        return std::nullopt;
    }
    const std::optional<std::string> text = value->number() != nullptr ? value->decimalText() : value->text();
    if (!text || text->size() > longestNumber) {
        refuse(name, "must be a plain number such as 12.5.");
    }
    std::optional<Decimal> number = Decimal::parse(trimmed(*text));
    if (!number) {
        refuse(name, "must be a plain number such as 12.5.");
    }
    return number;
}

std::optional<std::int64_t> Arguments::wholeNumber(std::string_view name, std::int64_t least, std::int64_t most) const
{
    const std::optional<Decimal> number = decimal(name);
    if (!number) {
        return std::nullopt;
    }
    const std::optional<std::int64_t> whole = number->scaled(0);
    if (!whole || *number != Decimal::fromInteger(*whole, 0) || *whole < least || *whole > most) {
        refuse(name, fmt::format("must be a whole number from {} to {}.", least, most));
    }
    return whole;
}

std::optional<std::int64_t> Arguments::amount(
    std::string_view name, std::string_view what, std::string_view currencyCode, Sign sign, std::int64_t limit) const
{
    const std::optional<Decimal> number = decimal(name);
    if (!number) {
        return std::nullopt;
    }
    const std::optional<std::int64_t> minorUnits = number->scaled(Money::fractionDigits(currencyCode));
    if (!minorUnits || !isWithin(*minorUnits, limit)) {
        refuse(
            name,
            fmt::format(
                "is too large for a {}: at most {} {}.", what, Money(limit, currencyCode).plainText(), currencyCode));
    }
    if (sign == Sign::notNegative && *minorUnits < 0) {
        refuse(name, fmt::format("can't be negative: a {} is 0 or more.", what));
    }
    return minorUnits;
}

std::optional<std::int64_t> Arguments::quantity(std::string_view name, std::int64_t limit) const
{
    const std::optional<Decimal> number = decimal(name);
    if (!number) {
        return std::nullopt;
    }
    const std::optional<std::int64_t> thousandths = number->scaled(quantityDigits);
    if (!thousandths || !isWithin(*thousandths, limit)) {
        refuse(name, fmt::format("is too large: a quantity is at most {}.", Quantity::plainText(limit)));
    }
    return thousandths;
}

std::optional<std::int32_t> Arguments::rate(std::string_view name) const
{
    const std::optional<Decimal> number = decimal(name);
    if (!number) {
        return std::nullopt;
    }
    const std::optional<std::int64_t> scaled = number->scaled(rateDigits);
    if (!scaled || *scaled < 0 || *scaled > wholeInBasisPoints ||
        *number != Decimal::fromInteger(*scaled, rateDigits)) {
        refuse(name, "must be a percentage from 0 to 100 with at most two decimals, such as 19 or 5.5.");
    }
    return narrowed<std::int32_t>(*scaled);
}

std::optional<CalendarDate> Arguments::date(std::string_view name) const
{
    const JSON* value = find(name);
    if (value == nullptr) {
        return std::nullopt;
    }
    const std::optional<CalendarDate> date = documentDate(trimmed(value->text().value_or("")));
    if (!date) {
        refuse(name, "must be a date such as 2026-03-31.");
    }
    return date;
}

std::vector<Arguments> Arguments::objects(std::string_view name) const
{
    std::vector<Arguments> result;
    const JSON* value = find(name);
    if (value == nullptr || value->array() == nullptr) {
        return result;
    }
    for (const JSON& item : *value->array()) {
        result.emplace_back(item, fmt::format("{} {}", name, result.size() + 1));
    }
    return result;
}

std::vector<std::int64_t> Arguments::wholeNumbers(std::string_view name, std::int64_t least, std::int64_t most) const
{
    std::vector<std::int64_t> result;
    const JSON* value = find(name);
    if (value == nullptr || value->array() == nullptr) {
        return result;
    }
    if (value->array()->size() > Limits::linesPerDocument) {
        refuse(name, fmt::format("has too many entries: at most {}.", Limits::linesPerDocument));
    }
    for (const JSON& item : *value->array()) {
        const JSON holder = JSON::object({{std::string(name), item}});
        result.push_back(Arguments(holder, m_where).wholeNumber(name, least, most).value_or(least));
    }
    return result;
}

} // namespace Quillary
