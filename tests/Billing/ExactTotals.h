#pragma once

#include "QuillaryCore/Billing/Totals.h"

#include <map>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace Quillary {

/// A document's figures worked out the slow way, as a check on the quick one: every amount a fraction, every rate in a
/// map, every sum in 128 bits. No value: a running sum leaves 64 bits.
class ExactTotals
{
public:
    static std::optional<Totals::Result> calculate(std::span<const Totals::Line> lines,
                                                   std::span<const Totals::Discount> discounts,
                                                   std::span<const Totals::Fee> fees,
                                                   Totals::Taxation taxation);

private:
    struct Fraction
    {
        Int128 numerator;
        Int128 denominator; ///< above 0

        [[nodiscard]] Int128 floor() const;
        [[nodiscard]] Int128 nearest() const; ///< a tie goes away from zero
    };

    std::int64_t add(Int128 left, Int128 right);
    static std::int64_t orZero(Int128 value);
    std::map<std::int32_t, Int128>
    shares(std::int64_t amount, const std::map<std::int32_t, std::int64_t>& bases, std::int64_t total);

    bool m_fits = true;
};

} // namespace Quillary
