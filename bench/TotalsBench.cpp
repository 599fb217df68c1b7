#include "QuillaryCore/Billing/Totals.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <random>

namespace Quillary {

namespace {

using Totals::Discount;
using Totals::DiscountKind;
using Totals::Fee;
using Totals::Line;
using Totals::Result;
using Totals::Taxation;

struct Sample
{
    std::vector<Line> lines;
    std::vector<Discount> discounts;
    std::vector<Fee> fees;
};

/// Documents as small businesses write them: 3 to 10 lines, mostly one or two rates, a discount on every fourth, a fee
/// on every eighth.
std::vector<Sample> samples()
{
    std::mt19937 random(1);
    const auto pick = [&](int least, int most) {
        return std::uniform_int_distribution(least, most)(random);
    };
    const std::array<std::int32_t, 4> rates = {1900, 1900, 1900, 700};
    std::vector<Sample> result(1024);
    for (Sample& sample : result) {
        for (int line = pick(3, 10); line > 0; --line) {
            const std::int64_t quantity = pick(0, 1) == 0 ? 1000 * pick(1, 20) : 250 * pick(1, 100);
            sample.lines.push_back({quantity, pick(100, 500'000), rates[static_cast<std::size_t>(pick(0, 3))]});
        }
        if (pick(0, 3) == 0) {
            sample.discounts.push_back({.kind = DiscountKind::percentage, .basisPoints = 500 * pick(1, 4)});
        }
        if (pick(0, 7) == 0) {
            sample.fees.push_back({990, 1900});
        }
    }
    return result;
}

/// Rounded half away from zero.
template <std::int64_t divisor>
std::int64_t quotient(std::int64_t numerator)
{
    return (numerator / (divisor / 2) + (numerator < 0 ? -1 : 1)) / 2;
}

void add(std::int64_t& sum, std::int64_t value)
{
    if (__builtin_add_overflow(sum, value, &sum)) [[unlikely]] {
        std::abort();
    }
}

std::int64_t product(std::int64_t left, std::int64_t right)
{
    std::int64_t result = 0;
    if (__builtin_mul_overflow(left, right, &result)) [[unlikely]] {
        std::abort();
    }
    return result;
}

/// All figures of a document, in lists that never grow.
struct BareResult
{
    std::array<std::int64_t, 16> lineAmounts;
    std::array<std::int64_t, 4> rates;
    std::array<std::int64_t, 4> bases;
    std::array<std::int64_t, 4> taxes;
    std::size_t rateCount;
    std::int64_t subtotal;
    std::int64_t discount;
    std::int64_t net;
    std::int64_t total;
};

std::int64_t& baseOf(BareResult& result, std::int32_t rate)
{
    for (std::size_t index = 0; index < result.rateCount; ++index) {
        if (result.rates[index] == rate) {
            return result.bases[index];
        }
    }
    result.rates[result.rateCount] = rate;
    result.bases[result.rateCount] = 0;
    return result.bases[result.rateCount++];
}

/// The floor: the same figures, checked in 64 bits, for at most four rates and one discount. It can't saturate, widen or
/// grow, and knows no exemption, capping, negative share or rate order.
void bareLoop(const Sample& sample, BareResult& result)
{
    result.rateCount = 0;
    result.subtotal = 0;
    std::size_t position = 0;
    for (const Line& line : sample.lines) {
        const std::int64_t amount = quotient<1000>(product(line.quantityThousandths, line.unitPriceMinorUnits));
        result.lineAmounts[position++] = amount;
        add(result.subtotal, amount);
        add(baseOf(result, line.vatBasisPoints), amount);
    }
    result.discount = 0;
    for (const Discount& discount : sample.discounts) {
        result.discount = quotient<10000>(product(result.subtotal, discount.basisPoints));
        std::int64_t left = result.discount;
        std::array<std::int64_t, 4> remainders{};
        for (std::size_t index = 0; index < result.rateCount; ++index) {
            const std::int64_t part = product(result.discount, result.bases[index]);
            remainders[index] = part % result.subtotal;
            result.bases[index] -= part / result.subtotal;
            left -= part / result.subtotal;
        }
        while (left-- > 0) {
            const auto largest = std::ranges::max_element(remainders);
            *largest = -1;
            --result.bases[static_cast<std::size_t>(largest - remainders.begin())];
        }
    }
    result.net = result.subtotal - result.discount;
    for (const Fee& fee : sample.fees) {
        add(result.net, fee.amountMinorUnits);
        add(baseOf(result, fee.vatBasisPoints), fee.amountMinorUnits);
    }
    result.total = result.net;
    for (std::size_t index = 0; index < result.rateCount; ++index) {
        result.taxes[index] = quotient<10000>(product(result.bases[index], result.rates[index]));
        add(result.total, result.taxes[index]);
    }
}

void totalsFloor(benchmark::State& state)
{
    const std::vector<Sample> documents = samples();
    std::size_t index = 0;
    BareResult result{};
    for ([[maybe_unused]] const auto iteration : state) {
        bareLoop(documents[index++ % documents.size()], result);
        benchmark::DoNotOptimize(result);
    }
}

void totalsCalculate(benchmark::State& state)
{
    const std::vector<Sample> documents = samples();
    std::size_t index = 0;
    Result result;
    for ([[maybe_unused]] const auto iteration : state) {
        const Sample& sample = documents[index++ % documents.size()];
        Totals::calculate(sample.lines, sample.discounts, sample.fees, Taxation::taxed, result);
        benchmark::DoNotOptimize(result);
    }
}

void totalsCalculateIntoNewResult(benchmark::State& state)
{
    const std::vector<Sample> documents = samples();
    std::size_t index = 0;
    for ([[maybe_unused]] const auto iteration : state) {
        const Sample& sample = documents[index++ % documents.size()];
        benchmark::DoNotOptimize(Totals::calculate(sample.lines, sample.discounts, sample.fees, Taxation::taxed));
    }
}

BENCHMARK(totalsFloor);
BENCHMARK(totalsCalculate);
BENCHMARK(totalsCalculateIntoNewResult);

} // namespace

} // namespace Quillary
