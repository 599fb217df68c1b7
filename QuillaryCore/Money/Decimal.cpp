#include "QuillaryCore/Money/Decimal.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Foundation/Precondition.h"

#include <algorithm>
#include <limits>

namespace Quillary {

namespace {

constexpr std::size_t mostDigitsOf64Bits = 19;

bool isDigits(std::string_view text)
{
    return !text.empty() && std::ranges::all_of(text, [](char byte) { return byte >= '0' && byte <= '9'; });
}

/// The digits without the zeros in front of them.
std::string_view significant(std::string_view digits)
{
    return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

} // namespace

Decimal Decimal::fromInteger(std::int64_t unscaled, int fractionDigits)
{
    precondition(fractionDigits >= 0, "fraction digits are counted");
    Decimal result;
    result.m_isNegative = unscaled < 0;
    result.m_fractionDigits = static_cast<std::size_t>(fractionDigits);
    if (unscaled != 0) {
        result.m_digits = std::to_string(unscaled);
        result.m_digits.erase(0, result.m_isNegative ? 1 : 0);
    }
    return result;
}

std::optional<Decimal> Decimal::parse(std::string_view text)
{
    Decimal result;
    const bool hasMinus = text.starts_with('-');
    text.remove_prefix(hasMinus ? 1 : 0);
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::string_view whole = text.substr(0, point);
    const std::string_view fraction = text.substr(std::min(point + 1, text.size()));
    if (!isDigits(whole) || (point < text.size() && !isDigits(fraction))) {
        return std::nullopt;
    }
    result.m_digits.reserve(text.size());
    result.m_digits = significant(whole);
    result.m_digits += result.m_digits.empty() ? significant(fraction) : fraction;
    result.m_fractionDigits = fraction.size();
    result.m_isNegative = hasMinus && !result.m_digits.empty();
    return result;
}

Decimal Decimal::negated() const
{
    Decimal result = *this;
    result.m_isNegative = !m_isNegative && !m_digits.empty();
    return result;
}

std::optional<std::int64_t> Decimal::scaled(int scale) const
{
    precondition(scale >= 0 && scale <= 30, "a unit has at most 30 decimal digits");
    const auto wanted = static_cast<std::size_t>(scale);
    std::string_view kept = m_digits;
    std::size_t zeros = 0;
    bool roundsUp = false;
    if (m_fractionDigits > wanted) {
        const std::size_t dropped = m_fractionDigits - wanted;
        roundsUp = dropped <= kept.size() && kept[kept.size() - dropped] >= '5';
        kept = kept.substr(0, kept.size() - std::min(dropped, kept.size()));
    } else if (!kept.empty()) {
        zeros = wanted - m_fractionDigits;
    }
    if (kept.size() + zeros > mostDigitsOf64Bits) {
        return std::nullopt;
    }
    Int128 value = 0;
    for (const char digit : kept) {
        value = value * 10 + (digit - '0');
    }
    for (std::size_t index = 0; index < zeros; ++index) {
        value *= 10;
    }
    value += roundsUp ? 1 : 0;
    return narrowed<std::int64_t>(m_isNegative ? -value : value);
}

std::string Decimal::text() const
{
    std::string digits = m_digits;
    if (digits.size() <= m_fractionDigits) {
        digits.insert(0, m_fractionDigits + 1 - digits.size(), '0');
    }
    if (m_fractionDigits > 0) {
        digits.insert(digits.size() - m_fractionDigits, 1, '.');
    }
    return m_isNegative ? "-" + digits : digits;
}

bool operator==(const Decimal& left, const Decimal& right)
{
    const Decimal& longer = left.m_fractionDigits >= right.m_fractionDigits ? left : right;
    const Decimal& shorter = left.m_fractionDigits >= right.m_fractionDigits ? right : left;
    if (left.m_digits.empty() || right.m_digits.empty()) {
        return left.m_digits.empty() && right.m_digits.empty();
    }
    const std::size_t zeros = longer.m_fractionDigits - shorter.m_fractionDigits;
    const std::string_view digits = longer.m_digits;
    return left.m_isNegative == right.m_isNegative && digits.size() == shorter.m_digits.size() + zeros &&
           digits.starts_with(shorter.m_digits) &&
           digits.find_first_not_of('0', shorter.m_digits.size()) == std::string_view::npos;
}

} // namespace Quillary
