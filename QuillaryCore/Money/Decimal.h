#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

/// An exact decimal number of any length: what was typed or sent, before it becomes an integer unit.
///
/// Invariant: `digits` holds only '0' to '9', without leading zeros (empty for zero); the value is
/// ±digits × 10^-fractionDigits. Zero has no sign.
class Decimal
{
public:
    Decimal() = default; ///< zero
    static Decimal fromInteger(std::int64_t unscaled, int fractionDigits);

    /// Reads "-?[0-9]+(\.[0-9]+)?" as a whole. No value: any other text.
    [[nodiscard]] static std::optional<Decimal> parse(std::string_view text);

    [[nodiscard]] Decimal negated() const;

    /// The value × 10^`scale`, rounded half away from zero. No value: outside 64 bits. `scale` is 0 to 30.
    [[nodiscard]] std::optional<std::int64_t> scaled(int scale) const;

    /// Plain text with a point and no grouping; every digit it was made with ("1.50").
    [[nodiscard]] std::string text() const;

    /// The same number; "1.5" equals "1.50".
    friend bool operator==(const Decimal& left, const Decimal& right);

private:
    bool m_isNegative = false;
    std::string m_digits;
    std::size_t m_fractionDigits = 0;
};

} // namespace Quillary
