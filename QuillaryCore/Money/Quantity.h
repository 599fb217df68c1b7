#pragma once

#include "QuillaryCore/Foundation/Locale.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Quantities. Unit: thousandths, 1000 = 1.
namespace Quillary::Quantity {

/// Reads a typed quantity (`DecimalInput::parse`), rounded half away from zero. No value: no number, or outside 64 bits.
[[nodiscard]] std::optional<std::int64_t> parse(std::string_view text, const Locale& locale);

/// The locale's number with up to three fraction digits; trailing zeros are dropped.
[[nodiscard]] std::string format(std::int64_t thousandths, const Locale& locale);

/// A plain machine number with a point and no grouping: 2500 gives "2.5".
[[nodiscard]] std::string plainText(std::int64_t thousandths);

} // namespace Quillary::Quantity
