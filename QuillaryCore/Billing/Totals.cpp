#include "QuillaryCore/Billing/Totals.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <tuple>
#include <utility>

namespace Quillary::Totals {

namespace {

constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();

/// numerator ÷ divisor, rounded half away from zero. The divisor is even and above 0: counting half divisors first leaves
/// nothing to compare and nothing that could overflow.
template <std::int64_t divisor, class Integer>
constexpr Integer roundedQuotient(Integer numerator)
{
    return (numerator / (divisor / 2) + (numerator < 0 ? -1 : 1)) / 2;
}

/// amount × basis points ÷ 10000, rounded half away from zero; 0 outside 64 bits.
std::int64_t percentage(std::int64_t amount, std::int32_t basisPoints)
{
    std::int64_t product = 0;
    if (!__builtin_mul_overflow(amount, std::int64_t{basisPoints}, &product)) [[likely]] {
        return roundedQuotient<10000>(product);
    }
    return narrowed<std::int64_t>(roundedQuotient<10000>(Int128{amount} * basisPoints)).value_or(0);
}

// These two have no default values, because clearing lists of them costs more than the figures.

/// One rate of a document.
struct Part
{
    std::int64_t base; ///< what is taxed
    std::int32_t basisPoints;
    bool hasPrice; ///< some line at this rate has a price
};

/// One rate of a split.
struct Portion
{
    std::int64_t base;
    std::int32_t basisPoints;
    std::uint32_t position;
    std::int64_t share;
    Int128 remainder; ///< what rounding took from the share, in parts of the split's total
};

/// product ÷ total, the fraction cut off on the side that leaves a rest with the sign of the amount: towards zero,
/// unless a base has the other sign than the total. So every rest counts in the same direction, and the shares miss the
/// amount by less than one unit each. Both numbers can be negated.
template <class Integer>
std::pair<Integer, Integer> cutQuotient(Integer product, Integer total, bool amountIsNegative)
{
    if (total < 0) {
        product = -product;
        total = -total;
    }
    Integer quotient = product / total;
    Integer rest = product % total;
    if (rest < 0 && !amountIsNegative) {
        --quotient;
        rest += total;
    } else if (rest > 0 && amountIsNegative) {
        ++quotient;
        rest -= total;
    }
    return {quotient, rest < 0 ? -rest : rest};
}

/// False: the share leaves 64 bits.
bool cutShare(Portion& portion, std::int64_t amount, std::int64_t total)
{
    std::int64_t product = 0;
    if (!__builtin_mul_overflow(amount, portion.base, &product) && product != lowest && total != lowest) [[likely]] {
        std::tie(portion.share, portion.remainder) = cutQuotient(product, total, amount < 0);
        return true;
    }
    // The factors are at most 2^63 in size, so their product can be negated in 128 bits.
    const auto [quotient, remainder] = cutQuotient<Int128>(Int128{amount} * portion.base, total, amount < 0);
    const std::optional<std::int64_t> share = narrowed<std::int64_t>(quotient);
    portion.share = share.value_or(0);
    portion.remainder = remainder;
    return share.has_value();
}

/// Splits `amount` over the portions by largest remainder; `total` is not 0. The portions end in their old order.
/// False: a share leaves 64 bits.
bool split(std::span<Portion> portions, std::int64_t amount, std::int64_t total)
{
    Int128 leftover = amount;
    std::uint32_t position = 0;
    for (Portion& portion : portions) {
        if (!cutShare(portion, amount, total)) {
            return false;
        }
        portion.position = position++;
        leftover -= portion.share;
    }
    if (leftover == 0) {
        return true;
    }
    std::ranges::sort(portions, [](const Portion& left, const Portion& right) {
        return std::tuple(-left.remainder, left.basisPoints, left.position) <
               std::tuple(-right.remainder, right.basisPoints, right.position);
    });
    const std::int64_t unit = leftover < 0 ? -1 : 1;
    bool fits = true;
    for (Portion& portion : portions) {
        if (leftover == 0) {
            break;
        }
        fits &= !__builtin_add_overflow(portion.share, unit, &portion.share);
        leftover -= unit;
    }
    std::ranges::sort(portions, {}, &Portion::position);
    return fits;
}

/// How many rates stay on the stack; a document has a handful.
constexpr std::size_t usualRateCount = 8;

/// The rates of a document, ascending.
class Rates
{
public:
    Rates() = default;
    Rates(const Rates&) = delete;
    Rates& operator=(const Rates&) = delete;
    ~Rates() = default;

    Part& at(std::int32_t basisPoints)
    {
        for (Part* part = m_parts; part != m_parts + m_count; ++part) {
            if (part->basisPoints == basisPoints) {
                return *part;
            }
            if (part->basisPoints > basisPoints) {
                return insert(part, basisPoints);
            }
        }
        return insert(m_parts + m_count, basisPoints);
    }

    std::span<Part> parts() { return {m_parts, m_count}; }

private:
    Part& insert(const Part* place, std::int32_t basisPoints)
    {
        const auto index = place - m_parts;
        if (m_count == m_few.size()) {
            m_many.assign(m_few.begin(), m_few.end());
        }
        if (m_count >= m_few.size()) {
            m_many.emplace_back();
            m_parts = m_many.data();
        }
        ++m_count;
        std::shift_right(m_parts + index, m_parts + m_count, 1);
        m_parts[index] = {0, basisPoints, false};
        return m_parts[index];
    }

    std::array<Part, usualRateCount> m_few;
    std::vector<Part> m_many; ///< all of them, once the array is full
    Part* m_parts = m_few.data();
    std::size_t m_count = 0;
};

/// One run of the rules, in their order.
class Calculation
{
public:
    Calculation(Taxation taxation, Result& result)
        : m_isExempt(taxation == Taxation::exempt)
        , m_result(result)
    {
    }

    /// False: a sum left 64 bits, and the result means nothing.
    bool run(std::span<const Line> lines, std::span<const Discount> discounts, std::span<const Fee> fees)
    {
        addLines(lines);
        addDiscounts(discounts);
        capDiscounts();
        spreadDiscount();
        addFees(fees);
        addTaxes();
        m_result.net = sum(difference(m_result.subtotal, m_result.totalDiscount), m_result.totalFees);
        m_result.total = sum(m_result.net, m_result.totalTax);
        return m_fits;
    }

private:
    std::int64_t sum(std::int64_t left, std::int64_t right)
    {
        std::int64_t result = 0;
        m_fits &= !__builtin_add_overflow(left, right, &result);
        return result;
    }

    std::int64_t difference(std::int64_t left, std::int64_t right)
    {
        std::int64_t result = 0;
        m_fits &= !__builtin_sub_overflow(left, right, &result);
        return result;
    }

    Part& rate(std::int32_t basisPoints) { return m_rates.at(m_isExempt ? 0 : basisPoints); }

    void addLines(std::span<const Line> lines)
    {
        m_result.lineAmounts.resize(lines.size());
        std::int64_t* lineAmount = m_result.lineAmounts.data();
        std::int64_t subtotal = 0;
        bool overflows = false;
        for (const Line& line : lines) {
            *lineAmount = amount(line.quantityThousandths, line.unitPriceMinorUnits);
            overflows |= __builtin_add_overflow(subtotal, *lineAmount, &subtotal);
            Part& part = rate(line.vatBasisPoints);
            overflows |= __builtin_add_overflow(part.base, *lineAmount, &part.base);
            part.hasPrice |= line.unitPriceMinorUnits != 0;
            ++lineAmount;
        }
        m_result.subtotal = subtotal;
        m_fits = !overflows;
    }

    void addDiscounts(std::span<const Discount> discounts)
    {
        m_result.discountAmounts.resize(discounts.size());
        m_result.totalDiscount = 0;
        for (std::size_t index = 0; index < discounts.size(); ++index) {
            const Discount& discount = discounts[index];
            const std::int64_t discountAmount = discount.kind == DiscountKind::fixed
                                                    ? discount.amountMinorUnits
                                                    : percentage(m_result.subtotal, discount.basisPoints);
            m_result.discountAmounts[index] = discountAmount;
            m_result.totalDiscount = sum(m_result.totalDiscount, discountAmount);
        }
    }

    void capDiscounts()
    {
        if (!m_fits || m_result.subtotal < 0 || m_result.totalDiscount <= m_result.subtotal) {
            return;
        }
        std::int64_t excess = m_result.totalDiscount - m_result.subtotal;
        for (auto discount = m_result.discountAmounts.rbegin();
             discount != m_result.discountAmounts.rend() && excess != 0 && m_fits;
             ++discount) {
            // A negative discount is taken back whole, which leaves more for those before it.
            const std::int64_t cut = std::min(*discount, excess);
            *discount -= cut;
            excess = difference(excess, cut);
        }
        m_result.totalDiscount = m_result.subtotal;
    }

    void spreadDiscount()
    {
        if (m_result.totalDiscount == 0 || m_result.subtotal == 0 || !m_fits) {
            return;
        }
        const std::span<Part> parts = m_rates.parts();
        std::array<Portion, usualRateCount> few;
        std::vector<Portion> many;
        std::span<Portion> portions(few.data(), std::min(parts.size(), few.size()));
        if (parts.size() > few.size()) {
            many.resize(parts.size());
            portions = many;
        }
        std::ranges::transform(
            parts, portions.begin(), [](const Part& part) { return Portion{part.base, part.basisPoints, 0, 0, 0}; });
        m_fits &= split(portions, m_result.totalDiscount, m_result.subtotal);
        for (std::size_t index = 0; index < parts.size(); ++index) {
            parts[index].base = difference(parts[index].base, portions[index].share);
        }
    }

    void addFees(std::span<const Fee> fees)
    {
        m_result.totalFees = 0;
        for (const Fee& fee : fees) {
            m_result.totalFees = sum(m_result.totalFees, fee.amountMinorUnits);
            Part& part = rate(fee.vatBasisPoints);
            part.base = sum(part.base, fee.amountMinorUnits);
        }
    }

    void addTaxes()
    {
        m_result.taxLines.clear();
        m_result.taxLines.reserve(m_rates.parts().size());
        m_result.totalTax = 0;
        for (const Part& part : m_rates.parts()) {
            // A rate whose lines cancel each other out still shows.
            if (part.base == 0 && (m_isExempt || !part.hasPrice)) {
                continue;
            }
            const std::int64_t tax = m_isExempt ? 0 : percentage(part.base, part.basisPoints);
            m_result.taxLines.push_back({part.basisPoints, part.base, tax});
            m_result.totalTax = sum(m_result.totalTax, tax);
        }
    }

    bool m_isExempt;
    bool m_fits = true;
    Rates m_rates;
    Result& m_result;
};

} // namespace

std::int64_t amount(std::int64_t quantityThousandths, std::int64_t unitPriceMinorUnits)
{
    std::int64_t product = 0;
    if (!__builtin_mul_overflow(quantityThousandths, unitPriceMinorUnits, &product)) [[likely]] {
        return roundedQuotient<1000>(product);
    }
    const Int128 exact = roundedQuotient<1000>(Int128{quantityThousandths} * unitPriceMinorUnits);
    return static_cast<std::int64_t>(std::clamp<Int128>(exact, lowest, highest));
}

void calculate(std::span<const Line> lines,
               std::span<const Discount> discounts,
               std::span<const Fee> fees,
               Taxation taxation,
               Result& result)
{
    precondition(Calculation(taxation, result).run(lines, discounts, fees), "the figures of a document fit 64 bits");
}

Result calculate(std::span<const Line> lines,
                 std::span<const Discount> discounts,
                 std::span<const Fee> fees,
                 Taxation taxation)
{
    Result result;
    calculate(lines, discounts, fees, taxation, result);
    return result;
}

std::optional<Result> calculateIfRepresentable(std::span<const Line> lines,
                                               std::span<const Discount> discounts,
                                               std::span<const Fee> fees,
                                               Taxation taxation)
{
    Result result;
    if (!Calculation(taxation, result).run(lines, discounts, fees)) {
        return std::nullopt;
    }
    return result;
}

std::vector<RateAmount> share(std::int64_t amount, std::span<const RateAmount> bases, std::int64_t total)
{
    if (total == 0) {
        return {};
    }
    std::vector<Portion> portions;
    portions.reserve(bases.size());
    for (const RateAmount& base : bases) {
        portions.push_back({base.amount, base.basisPoints, 0, 0, 0});
    }
    precondition(split(portions, amount, total), "the shares of an amount fit 64 bits");
    std::vector<RateAmount> shares;
    shares.reserve(portions.size());
    for (const Portion& portion : portions) {
        shares.push_back({portion.basisPoints, portion.share});
    }
    return shares;
}

} // namespace Quillary::Totals
