#include "QuillaryCore/Money/TypedSum.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Money/DecimalInput.h"

#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace Quillary::TypedSum {

namespace {

/// A typed number has at most this many fraction digits that count.
constexpr int operandScale = 9;
constexpr std::int64_t operandUnit = 1'000'000'000;

Int128 greatestDivisor(Int128 left, Int128 right)
{
    left = left < 0 ? -left : left;
    while (right != 0) {
        left = std::exchange(right, left % right);
    }
    return left;
}

/// A fraction in lowest terms; `below` is above zero.
struct Fraction
{
    Int128 above = 0;
    Int128 below = 1;
};

std::optional<Fraction> reduced(Int128 above, Int128 below)
{
    // The lowest number has no opposite.
    if (below == 0 || above == std::numeric_limits<Int128>::min() || below == std::numeric_limits<Int128>::min()) {
        return std::nullopt;
    }
    const Int128 divisor = greatestDivisor(above, below < 0 ? -below : below);
    const Int128 sign = below < 0 ? -1 : 1;
    return Fraction{.above = sign * (above / divisor), .below = sign * (below / divisor)};
}

std::optional<Fraction> product(const Fraction& left, const Fraction& right)
{
    Int128 above = 0;
    Int128 below = 0;
    if (__builtin_mul_overflow(left.above, right.above, &above) ||
        __builtin_mul_overflow(left.below, right.below, &below)) {
        return std::nullopt;
    }
    return reduced(above, below);
}

std::optional<Fraction> quotient(const Fraction& left, const Fraction& right)
{
    if (right.above == 0) {
        return std::nullopt;
    }
    return product(left,
                   right.above < 0 ? Fraction{.above = -right.below, .below = -right.above}
                                   : Fraction{.above = right.below, .below = right.above});
}

std::optional<Fraction> sum(const Fraction& left, const Fraction& right)
{
    Int128 first = 0;
    Int128 second = 0;
    Int128 above = 0;
    Int128 below = 0;
    if (__builtin_mul_overflow(left.above, right.below, &first) ||
        __builtin_mul_overflow(right.above, left.below, &second) || __builtin_add_overflow(first, second, &above) ||
        __builtin_mul_overflow(left.below, right.below, &below)) {
        return std::nullopt;
    }
    return reduced(above, below);
}

/// The operator that a text begins with; 0: none. `length` is how many bytes it takes.
char operatorAt(std::string_view text, std::size_t& length)
{
    constexpr std::pair<std::string_view, char> signs[] = {
        {"+", '+'}, {"*", '*'}, {"×", '*'}, {"/", '/'}, {"÷", '/'}, {"-", '-'}, {"−", '-'}};
    for (const auto& [sign, meaning] : signs) {
        if (text.starts_with(sign)) {
            length = sign.size();
            return meaning;
        }
    }
    return 0;
}

struct Term
{
    char sign; ///< the operator before it; '+' for the first
    std::string_view number;
};

/// A minus that no number stands before belongs to the number after it.
std::vector<Term> terms(std::string_view text)
{
    std::vector<Term> terms;
    char sign = '+';
    std::size_t begin = 0;
    for (std::size_t place = 0; place < text.size();) {
        std::size_t length = 1;
        const char found = operatorAt(text.substr(place), length);
        const std::string_view before = trimmed(text.substr(begin, place - begin));
        if (found != 0 && (found != '-' || !before.empty())) {
            terms.push_back({sign, before});
            sign = found;
            begin = place + length;
        }
        place += length;
    }
    terms.push_back({sign, trimmed(text.substr(begin))});
    return terms;
}

std::optional<Fraction> operand(std::string_view text, const Locale& locale)
{
    const auto number = DecimalInput::parse(text, locale);
    const auto units = number ? number->scaled(operandScale) : std::nullopt;
    return units ? reduced(*units, operandUnit) : std::nullopt;
}

/// Products first: a sum of them is kept beside the product that is being made.
std::optional<Fraction> value(const std::vector<Term>& terms, const Locale& locale)
{
    Fraction total;
    Fraction current;
    for (const auto& [sign, text] : terms) {
        const std::optional<Fraction> number = operand(text, locale);
        if (!number) {
            return std::nullopt;
        }
        std::optional<Fraction> next;
        if (sign == '*' || sign == '/') {
            next = sign == '*' ? product(current, *number) : quotient(current, *number);
        } else {
            const std::optional<Fraction> added = sum(total, current);
            if (!added) {
                return std::nullopt;
            }
            total = *added;
            next = sign == '-' ? Fraction{.above = -number->above, .below = number->below} : *number;
        }
        if (!next) {
            return std::nullopt;
        }
        current = *next;
    }
    return sum(total, current);
}

std::optional<std::int64_t> rounded(const Fraction& value, int scale)
{
    Int128 above = value.above;
    for (int digit = 0; digit < scale; ++digit) {
        if (__builtin_mul_overflow(above, Int128{10}, &above)) {
            return std::nullopt;
        }
    }
    const bool isNegative = above < 0;
    const Int128 size = isNegative ? -above : above;
    Int128 whole = size / value.below;
    whole += size % value.below >= value.below - size % value.below ? 1 : 0;
    if (whole > std::numeric_limits<std::int64_t>::max()) {
        return std::nullopt;
    }
    const auto result = static_cast<std::int64_t>(whole);
    return isNegative ? -result : result;
}

} // namespace

std::optional<std::int64_t> scaled(std::string_view text, const Locale& locale, int scale)
{
    const std::vector<Term> parts = terms(trimmed(text));
    if (parts.size() == 1) {
        const auto number = DecimalInput::parse(text, locale); // any number of digits, and a minus behind it
        return number ? number->scaled(scale) : std::nullopt;
    }
    const std::optional<Fraction> result = value(parts, locale);
    return result ? rounded(*result, scale) : std::nullopt;
}

} // namespace Quillary::TypedSum
