#include "QuillaryCore/Money/DecimalInput.h"

#include "QuillaryCore/Foundation/UTF8.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <string>

namespace Quillary::DecimalInput {

namespace {

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

bool isSeparator(char byte)
{
    return byte == '.' || byte == ',';
}

/// The ASCII form of a character of a number. No value: it stays as it is.
///
/// The minus sign and the digits and marks of the Arabic
/// and Indian scripts are what `Money::editingText` writes in the locales that use them, so they are read back.
std::optional<char> plainForm(UChar32 scalar)
{
    constexpr UChar32 minusSign = 0x2212;
    constexpr UChar32 arabicDecimalSeparator = 0x066B;
    if (scalar == minusSign) {
        return '-';
    }
    if (scalar == arabicDecimalSeparator) {
        return '.';
    }
    if (u_charType(scalar) == U_DECIMAL_DIGIT_NUMBER) {
        return static_cast<char>('0' + u_charDigitValue(scalar));
    }
    return std::nullopt;
}

/// White space and apostrophes group digits and say nothing else, nor do the group marks of the Arabic and Adlam scripts
/// and the invisible marks of direction that stand around a minus sign.
bool isDropped(UChar32 scalar)
{
    constexpr UChar32 rightSingleQuotationMark = 0x2019;
    constexpr UChar32 arabicThousandsSeparator = 0x066C;
    constexpr UChar32 reversedComma = 0x2E41;
    return scalar == '\'' || scalar == rightSingleQuotationMark || scalar == arabicThousandsSeparator ||
           scalar == reversedComma || u_isUWhiteSpace(scalar) != 0 || u_charType(scalar) == U_FORMAT_CHAR;
}

std::string withoutGroupingSigns(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const auto character = decodeFirst(text);
        const auto scalar = static_cast<UChar32>(character.scalar.value_or(0xFFFD));
        if (const auto plain = plainForm(scalar)) {
            result += *plain;
        } else if (!isDropped(scalar)) {
            result += text.substr(0, character.length);
        }
        text.remove_prefix(character.length);
    }
    return result;
}

/// From the first character that can begin a number to the last that can end one.
std::string_view numberWithin(std::string_view text)
{
    const auto first =
        std::ranges::find_if(text, [](char byte) { return isDigit(byte) || isSeparator(byte) || byte == '-'; });
    text.remove_prefix(static_cast<std::size_t>(first - text.begin()));
    while (!text.empty() && !isDigit(text.back()) && !isSeparator(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

std::string without(std::string_view text, char mark)
{
    std::string result(text);
    std::erase(result, mark);
    return result;
}

/// A lone separator groups only where the locale groups with it and exactly one group of three follows.
bool isGroupingMark(std::string_view text, std::size_t position, const Locale& locale)
{
    const std::string_view mark = text.substr(position, 1);
    return mark == locale.groupingSeparator() && mark != locale.decimalSeparator() && text.size() - position - 1 == 3 &&
           position >= 1 && position <= 3;
}

/// Digits with at most one point, from digits with any points and commas.
std::optional<std::string> withDecimalPoint(std::string_view text, const Locale& locale)
{
    const auto points = std::ranges::count(text, '.');
    const auto commas = std::ranges::count(text, ',');
    if (points >= 1 && commas >= 1) {
        const char decimalMark = text[text.find_last_of(".,")];
        if ((decimalMark == '.' ? points : commas) > 1) {
            return std::nullopt;
        }
        std::string result = without(text, decimalMark == '.' ? ',' : '.');
        std::ranges::replace(result, decimalMark, '.');
        return result;
    }
    if (points + commas >= 2) {
        return without(text, points > 0 ? '.' : ',');
    }
    std::string result(text);
    if (points + commas == 1) {
        const std::size_t position = text.find_first_of(".,");
        if (isGroupingMark(text, position, locale)) {
            result.erase(position, 1);
        } else {
            result[position] = '.';
        }
    }
    return result;
}

} // namespace

std::optional<Decimal> parse(std::string_view text, const Locale& locale)
{
    const std::string kept = withoutGroupingSigns(text);
    std::string_view number = numberWithin(kept);
    const bool isNegative = number.starts_with('-');
    number.remove_prefix(isNegative ? 1 : 0);
    if (number.empty() || !std::ranges::all_of(number, [](char byte) { return isDigit(byte) || isSeparator(byte); })) {
        return std::nullopt;
    }
    auto plain = withDecimalPoint(number, locale);
    if (!plain) {
        return std::nullopt;
    }
    if (plain->ends_with('.')) { // first, so that a point alone leaves nothing to read
        plain->pop_back();
    }
    if (plain->starts_with('.')) {
        plain->insert(0, 1, '0');
    }
    const auto decimal = Decimal::parse(*plain);
    return decimal && isNegative ? decimal->negated() : decimal;
}

std::optional<std::int64_t> scaled(const Decimal& decimal, int scale)
{
    return decimal.scaled(scale);
}

} // namespace Quillary::DecimalInput
