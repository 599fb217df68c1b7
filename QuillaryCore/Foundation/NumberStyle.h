#pragma once

#include <unicode/decimfmt.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

/// How one ICU number format writes: its digits, marks and what stands around them, learned by looking at its output.
///
/// Writing by hand takes a twentieth of the time of asking ICU. For private use by `Locale`: needs ICU's headers.
class NumberStyle
{
public:
    /// Looks at what `format`, which shows exactly `scale` fraction digits, makes of some numbers.
    /// No value: it does something that this class does not know; then ICU has to be asked every time.
    static std::optional<NumberStyle> learned(const icu::DecimalFormat& format, int scale);

    /// `unscaled` × 10^-`scale`; zeros at the end go until `minimumFraction` fraction digits are left.
    /// `scale` is 0 to `largestScale`.
    [[nodiscard]] std::string text(std::int64_t unscaled, int scale, int minimumFraction) const;

    static constexpr int largestScale = 18;

private:
    struct Affixes
    {
        std::string prefix;
        std::string suffix;
    };

    class Output;

    bool learnAffixes(const icu::DecimalFormat& format, std::int64_t number, int scale, Affixes& affixes);
    bool learnGrouping(const icu::DecimalFormat& format, int scale);
    bool learnDigits(const icu::DecimalFormat& format, int scale);
    void prependWhole(Output& output, std::uint64_t whole) const;

    Affixes m_positive;
    Affixes m_negative;
    std::string m_decimalMark;
    std::string m_groupMark;
    std::array<std::string, 10> m_digits;
    bool m_hasASCIIDigits = false;
    std::size_t m_firstGroup = 0;     ///< digits right of the last group mark; 0 when nothing is grouped
    std::size_t m_furtherGroups = 0;  ///< digits between two group marks
    std::uint64_t m_leastGrouped = 0; ///< the smallest whole number that is grouped
};

} // namespace Quillary
