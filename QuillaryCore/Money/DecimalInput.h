#pragma once

#include "QuillaryCore/Foundation/Locale.h"
#include "QuillaryCore/Money/Decimal.h"

#include <cstdint>
#include <optional>
#include <string_view>

/// The one tolerant reader of typed numbers.
namespace Quillary::DecimalInput {

/// Reads a number in whatever style it was typed: "1.234,56", "1,234.56", "CHF 1’234.56", "-12,50 €". The locale only
/// decides whether a lone separator before three digits groups or divides. Digits, separators and minus signs of other
/// scripts are read too, so that what `Money::editingText` writes is read back in every locale.
/// No value: no number.
[[nodiscard]] std::optional<Decimal> parse(std::string_view text, const Locale& locale);

/// `decimal` × 10^`scale`, rounded half away from zero. No value: outside 64 bits.
[[nodiscard]] std::optional<std::int64_t> scaled(const Decimal& decimal, int scale);

} // namespace Quillary::DecimalInput
