#include "tests/Billing/ExactTotals.h"

#include <algorithm>
#include <limits>
#include <set>

namespace Quillary {

namespace {

constexpr Int128 lowest = std::numeric_limits<std::int64_t>::min();
constexpr Int128 highest = std::numeric_limits<std::int64_t>::max();

bool fits(Int128 value)
{
    return value >= lowest && value <= highest;
}

} // namespace

Int128 ExactTotals::Fraction::floor() const
{
    Int128 whole = numerator / denominator;
    while (whole * denominator > numerator) {
        --whole;
    }
    return whole;
}

Int128 ExactTotals::Fraction::nearest() const
{
    if (numerator < 0) {
        return -Fraction{-numerator, denominator}.nearest();
    }
    const Int128 whole = floor();
    return (numerator - whole * denominator) * 2 >= denominator ? whole + 1 : whole;
}

std::int64_t ExactTotals::add(Int128 left, Int128 right)
{
    m_fits = m_fits && fits(left + right);
    return fits(left + right) ? static_cast<std::int64_t>(left + right) : 0;
}

std::int64_t ExactTotals::orZero(Int128 value)
{
    return fits(value) ? static_cast<std::int64_t>(value) : 0;
}

std::map<std::int32_t, Int128>
ExactTotals::shares(std::int64_t amount, const std::map<std::int32_t, std::int64_t>& bases, std::int64_t total)
{
    // A negative amount is split as its opposite and turned round again: the rules are the same on both sides.
    const Int128 sign = amount < 0 ? -1 : 1;
    const Int128 totalSign = total < 0 ? -1 : 1;
    std::map<std::int32_t, Int128> result;
    std::vector<std::pair<Int128, std::int32_t>> rests;
    Int128 left = sign * amount;
    for (const auto& [rate, base] : bases) {
        const Fraction exact{sign * amount * base * totalSign, totalSign * total};
        result[rate] = exact.floor();
        left -= exact.floor();
        rests.emplace_back(-(exact.numerator - exact.floor() * exact.denominator), rate);
    }
    std::ranges::sort(rests); // the largest rest first, of equal ones the lower rate
    for (Int128 index = 0; index < left; ++index) {
        ++result[rests[static_cast<std::size_t>(index)].second];
    }
    for (auto& [rate, share] : result) {
        share *= sign;
        m_fits = m_fits && fits(share);
    }
    return result;
}

std::optional<Totals::Result> ExactTotals::calculate(std::span<const Totals::Line> lines,
                                                     std::span<const Totals::Discount> discounts,
                                                     std::span<const Totals::Fee> fees,
                                                     Totals::Taxation taxation)
{
    ExactTotals exact;
    const bool isTaxed = taxation == Totals::Taxation::taxed;
    Totals::Result result;
    std::map<std::int32_t, std::int64_t> bases;
    std::set<std::int32_t> priced;
    for (const Totals::Line& line : lines) {
        const Int128 amount = Fraction{Int128{line.quantityThousandths} * line.unitPriceMinorUnits, 1000}.nearest();
        result.lineAmounts.push_back(static_cast<std::int64_t>(std::clamp(amount, lowest, highest)));
        result.subtotal = exact.add(result.subtotal, result.lineAmounts.back());
        const std::int32_t rate = isTaxed ? line.vatBasisPoints : 0;
        bases[rate] = exact.add(bases[rate], result.lineAmounts.back());
        if (line.unitPriceMinorUnits != 0) {
            priced.insert(rate);
        }
    }
    for (const Totals::Discount& discount : discounts) {
        const Fraction part{Int128{result.subtotal} * discount.basisPoints, 10000};
        result.discountAmounts.push_back(discount.kind == Totals::DiscountKind::fixed ? discount.amountMinorUnits
                                                                                      : orZero(part.nearest()));
        result.totalDiscount = exact.add(result.totalDiscount, result.discountAmounts.back());
    }
    Int128 excess = Int128{result.totalDiscount} - result.subtotal;
    if (result.subtotal >= 0 && excess > 0) {
        for (std::size_t index = result.discountAmounts.size(); index-- > 0 && excess != 0;) {
            const Int128 cut = std::min<Int128>(result.discountAmounts[index], excess);
            result.discountAmounts[index] -= static_cast<std::int64_t>(cut);
            excess = exact.add(excess, -cut);
        }
        result.totalDiscount = result.subtotal;
    }
    if (result.totalDiscount != 0 && result.subtotal != 0 && exact.m_fits) {
        for (const auto& [rate, share] : exact.shares(result.totalDiscount, bases, result.subtotal)) {
            bases[rate] = exact.add(bases[rate], -share);
        }
    }
    for (const Totals::Fee& fee : fees) {
        result.totalFees = exact.add(result.totalFees, fee.amountMinorUnits);
        const std::int32_t rate = isTaxed ? fee.vatBasisPoints : 0;
        bases[rate] = exact.add(bases[rate], fee.amountMinorUnits);
    }
    for (const auto& [rate, base] : bases) {
        if (base != 0 || (isTaxed && priced.contains(rate))) {
            const std::int64_t tax = isTaxed ? orZero(Fraction{Int128{base} * rate, 10000}.nearest()) : 0;
            result.taxLines.push_back({rate, base, tax});
            result.totalTax = exact.add(result.totalTax, tax);
        }
    }
    result.net = exact.add(exact.add(result.subtotal, -Int128{result.totalDiscount}), result.totalFees);
    result.total = exact.add(result.net, result.totalTax);
    return exact.m_fits ? std::optional(result) : std::nullopt;
}

} // namespace Quillary
