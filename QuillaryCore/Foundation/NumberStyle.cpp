#include "QuillaryCore/Foundation/NumberStyle.h"

#include "QuillaryCore/Foundation/Precondition.h"

#include <fmt/format.h>
#include <unicode/fpositer.h>

#include <algorithm>
#include <iterator>
#include <vector>

namespace Quillary {

namespace {

// A text has at most 19 digits, 18 marks and what stands around them; styles with longer parts are left to ICU.
constexpr std::size_t longestPart = 48;
constexpr std::size_t mostDigits = 19;
constexpr std::size_t longestDigit = 4;
constexpr std::size_t longestText = mostDigits * (longestDigit + longestPart) + 2 * longestPart;

std::string utf8(const icu::UnicodeString& text)
{
    std::string result;
    return text.toUTF8String(result);
}

/// What ICU makes of a number, with the place of each of its parts.
struct Formatted
{
    struct Field
    {
        std::int32_t kind = 0;
        std::int32_t begin = 0;
        std::int32_t end = 0;
    };

    icu::UnicodeString text;
    std::vector<Field> fields;

    [[nodiscard]] std::vector<Field> all(UNumberFormatFields kind) const
    {
        std::vector<Field> result;
        std::ranges::copy_if(
            fields, std::back_inserter(result), [&](const Field& field) { return field.kind == kind; });
        std::ranges::sort(result, {}, &Field::begin);
        return result;
    }

    [[nodiscard]] std::string between(std::int32_t begin, std::int32_t end) const
    {
        return utf8(text.tempSubStringBetween(begin, end));
    }

    /// The characters between two places.
    [[nodiscard]] std::size_t count(std::int32_t begin, std::int32_t end) const
    {
        return static_cast<std::size_t>(text.countChar32(begin, end - begin));
    }
};

Formatted formatted(const icu::DecimalFormat& format, std::int64_t unscaled, int scale)
{
    Formatted result;
    icu::FieldPositionIterator positions;
    UErrorCode status = U_ZERO_ERROR;
    format.format(icu::StringPiece(fmt::format("{}E-{}", unscaled, scale)), result.text, &positions, status);
    precondition(U_SUCCESS(status) != 0, "ICU formats every number");
    icu::FieldPosition position;
    while (positions.next(position) != 0) {
        result.fields.push_back({position.getField(), position.getBeginIndex(), position.getEndIndex()});
    }
    return result;
}

/// 10^`exponent` in units of 10^-`scale`, or no value where 64 bits cannot hold it.
std::optional<std::int64_t> powerOfTen(int exponent, int scale)
{
    std::int64_t value = 1;
    for (int index = 0; index < exponent + scale; ++index) {
        if (__builtin_mul_overflow(value, 10, &value)) {
            return std::nullopt;
        }
    }
    return value;
}

} // namespace

/// Collects a text from its end to its beginning, as the digits of a number come.
class NumberStyle::Output
{
public:
    explicit Output(const NumberStyle& style)
        : m_style(style)
    {
    }

    void prepend(std::string_view part)
    {
        // Marks are short: a loop takes less time than a call for a copy of unknown length.
        for (std::size_t index = part.size(); index > 0; --index) {
            m_buffer[--m_begin] = part[index - 1];
        }
    }

    void prependDigit(std::uint64_t digit)
    {
        if (m_style.m_hasASCIIDigits) {
            m_buffer[--m_begin] = static_cast<char>('0' + digit);
        } else {
            prepend(m_style.m_digits[digit]);
        }
    }

    [[nodiscard]] std::string text() const { return {m_buffer.data() + m_begin, m_buffer.size() - m_begin}; }

private:
    const NumberStyle& m_style;
    // Not cleared: only what was written is read.
    std::array<char, longestText> m_buffer; // NOLINT(cppcoreguidelines-pro-type-member-init)
    std::size_t m_begin = longestText;
};

std::optional<NumberStyle> NumberStyle::learned(const icu::DecimalFormat& format, int scale)
{
    NumberStyle style;
    if (!style.learnAffixes(format, 1, scale, style.m_positive) ||
        !style.learnAffixes(format, -1, scale, style.m_negative) || !style.learnDigits(format, scale) ||
        !style.learnGrouping(format, scale)) {
        return std::nullopt;
    }
    // What was concluded from a few numbers has to hold for every length and every digit before it is believed.
    std::int64_t probe = 1'234'567'890'123'456'789;
    for (bool isNegative = true; probe > 0; probe /= 10, isNegative = !isNegative) {
        const std::int64_t number = isNegative ? -probe : probe;
        if (style.text(number, scale, scale) != utf8(formatted(format, number, scale).text)) {
            return std::nullopt;
        }
    }
    return style;
}

bool NumberStyle::learnAffixes(const icu::DecimalFormat& format, std::int64_t number, int scale, Affixes& affixes)
{
    const Formatted shown = formatted(format, number, scale);
    const auto wholes = shown.all(UNUM_INTEGER_FIELD);
    const auto marks = shown.all(UNUM_DECIMAL_SEPARATOR_FIELD);
    const auto fractions = shown.all(UNUM_FRACTION_FIELD);
    if (wholes.size() != 1 || marks.size() > 1 || fractions.size() != marks.size()) {
        return false;
    }
    const std::int32_t end = fractions.empty() ? wholes.front().end : fractions.front().end;
    affixes.prefix = shown.between(0, wholes.front().begin);
    affixes.suffix = shown.between(end, shown.text.length());
    if (!marks.empty()) {
        m_decimalMark = shown.between(marks.front().begin, marks.front().end);
    }
    return affixes.prefix.size() <= longestPart && affixes.suffix.size() <= longestPart &&
           m_decimalMark.size() <= longestPart;
}

bool NumberStyle::learnDigits(const icu::DecimalFormat& format, int scale)
{
    const Formatted shown = formatted(format, 0, scale);
    const auto wholes = shown.all(UNUM_INTEGER_FIELD);
    if (wholes.size() != 1 || shown.count(wholes.front().begin, wholes.front().end) != 1) {
        return false;
    }
    const UChar32 zero = shown.text.char32At(wholes.front().begin);
    for (std::size_t digit = 0; digit < m_digits.size(); ++digit) {
        m_digits[digit] = utf8(icu::UnicodeString(zero + static_cast<UChar32>(digit)));
    }
    m_hasASCIIDigits = zero == U'0';
    return true;
}

bool NumberStyle::learnGrouping(const icu::DecimalFormat& format, int scale)
{
    // From the shortest number that is grouped one learns the least length and the first group, from one with two
    // marks the further groups.
    for (int exponent = 1; exponent <= largestScale; ++exponent) {
        const auto unscaled = powerOfTen(exponent, scale);
        if (!unscaled) {
            break;
        }
        const Formatted shown = formatted(format, *unscaled, scale);
        const auto marks = shown.all(UNUM_GROUPING_SEPARATOR_FIELD);
        if (marks.empty()) {
            continue;
        }
        if (m_firstGroup == 0) {
            m_groupMark = shown.between(marks.back().begin, marks.back().end);
            m_firstGroup = shown.count(marks.back().end, shown.all(UNUM_INTEGER_FIELD).front().end);
            m_furtherGroups = m_firstGroup;
            m_leastGrouped = static_cast<std::uint64_t>(powerOfTen(exponent, 0).value_or(0));
        }
        if (marks.size() >= 2) {
            m_furtherGroups = shown.count(marks[marks.size() - 2].end, marks.back().begin);
            break;
        }
    }
    return m_groupMark.size() <= longestPart && (m_firstGroup == 0 || m_furtherGroups > 0);
}

void NumberStyle::prependWhole(Output& output, std::uint64_t whole) const
{
    const bool isGrouped = m_firstGroup != 0 && whole >= m_leastGrouped;
    std::size_t untilMark = m_firstGroup;
    do {
        if (isGrouped && untilMark == 0) {
            output.prepend(m_groupMark);
            untilMark = m_furtherGroups;
        }
        output.prependDigit(whole % 10);
        whole /= 10;
        --untilMark;
    } while (whole > 0);
}

std::string NumberStyle::text(std::int64_t unscaled, int scale, int minimumFraction) const
{
    precondition(scale >= 0 && scale <= largestScale, "a number has up to 18 fraction digits");
    const Affixes& affixes = unscaled < 0 ? m_negative : m_positive;
    const auto bits = static_cast<std::uint64_t>(unscaled);
    std::uint64_t rest = unscaled < 0 ? 0 - bits : bits;
    Output output(*this);
    output.prepend(affixes.suffix);
    bool hasFraction = false;
    for (int place = scale; place > 0; --place) {
        const std::uint64_t digit = rest % 10;
        rest /= 10;
        hasFraction = hasFraction || digit != 0 || place <= minimumFraction;
        if (hasFraction) {
            output.prependDigit(digit);
        }
    }
    if (hasFraction) {
        output.prepend(m_decimalMark);
    }
    prependWhole(output, rest);
    output.prepend(affixes.prefix);
    return output.text();
}

} // namespace Quillary
