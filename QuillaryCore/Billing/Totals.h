#pragma once

#include "QuillaryCore/Foundation/CheckedInteger.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

/// A document's figures. Everything that shows or sums money reads them from here, so that all of it agrees to the
/// minor unit. Plain integers without currency: amounts in minor units, quantities in thousandths, rates in basis
/// points.
///
/// Prices are net; tax is added on top, once per rate on the summed base of that rate, after the document's discounts
/// have been spread over the rates. Divisions are exact and round half away from zero.
namespace Quillary::Totals {

struct Line
{
    std::int64_t quantityThousandths = 0;
    std::int64_t unitPriceMinorUnits = 0;
    std::int32_t vatBasisPoints = 0;

    friend bool operator==(const Line&, const Line&) = default;
};

enum class DiscountKind { percentage, fixed };

/// Of a stored discount: 1 is fixed, anything else a percentage.
[[nodiscard]] constexpr DiscountKind discountKindFromRaw(std::int16_t raw)
{
    return raw == 1 ? DiscountKind::fixed : DiscountKind::percentage;
}

struct Discount
{
    DiscountKind kind = DiscountKind::percentage;
    std::int32_t basisPoints = 0;      ///< of a percentage
    std::int64_t amountMinorUnits = 0; ///< of a fixed discount; positive lowers the total

    friend bool operator==(const Discount&, const Discount&) = default;
};

struct Fee
{
    std::int64_t amountMinorUnits = 0;
    std::int32_t vatBasisPoints = 0;

    friend bool operator==(const Fee&, const Fee&) = default;
};

/// The tax of one rate.
struct TaxLine
{
    std::int32_t basisPoints = 0;
    std::int64_t base = 0; ///< the net amount taxed at this rate, after discounts, fees included
    std::int64_t tax = 0;

    friend bool operator==(const TaxLine&, const TaxLine&) = default;
};

struct Result
{
    std::vector<std::int64_t> lineAmounts; ///< one per line, in its order
    std::int64_t subtotal = 0;
    std::vector<std::int64_t> discountAmounts; ///< one per discount, in its order, after capping
    std::int64_t totalDiscount = 0;
    std::int64_t totalFees = 0;
    std::int64_t net = 0;
    std::vector<TaxLine> taxLines; ///< ascending by rate
    std::int64_t totalTax = 0;
    std::int64_t total = 0;

    friend bool operator==(const Result&, const Result&) = default;
};

enum class Taxation { taxed, exempt };

/// Quantity × price, rounded half away from zero to a minor unit. Outside 64 bits the nearest end of their range:
/// a line alone must never stop the program while it is being typed.
[[nodiscard]] std::int64_t amount(std::int64_t quantityThousandths, std::int64_t unitPriceMinorUnits);

/// All figures of a document. Percentage discounts are each taken of the subtotal; discounts above a subtotal of at
/// least zero are cut from the last towards the first; a tax or percentage discount outside 64 bits counts as 0.
/// A sum outside 64 bits stops the program: `calculateIfRepresentable` asks first.
[[nodiscard]] Result calculate(std::span<const Line> lines,
                               std::span<const Discount> discounts,
                               std::span<const Fee> fees,
                               Taxation taxation);

/// `calculate` into a result whose lists are used again: for loops over many documents.
void calculate(std::span<const Line> lines,
               std::span<const Discount> discounts,
               std::span<const Fee> fees,
               Taxation taxation,
               Result& result);

/// `calculate` for figures that nobody has checked yet. No value: a sum leaves 64 bits.
[[nodiscard]] std::optional<Result> calculateIfRepresentable(std::span<const Line> lines,
                                                             std::span<const Discount> discounts,
                                                             std::span<const Fee> fees,
                                                             Taxation taxation);

/// An amount that belongs to a rate: a base before, a share after.
struct RateAmount
{
    std::int32_t basisPoints = 0;
    std::int64_t amount = 0;

    friend bool operator==(const RateAmount&, const RateAmount&) = default;
};

/// Splits `amount` in proportion to the bases (whose sum is `total`) by largest remainder: the shares add up to it
/// exactly. Equal remainders favour the lower rate. One share per base, in the same order; none when `total` is 0.
[[nodiscard]] std::vector<RateAmount> share(std::int64_t amount, std::span<const RateAmount> bases, std::int64_t total);

} // namespace Quillary::Totals
