#pragma once

#include "QuillaryCore/Foundation/Locale.h"

#include <cstdint>
#include <optional>
#include <string_view>

/// Reckoning in a number field: "3*12.50", "1200/4", "10 + 2,5 × 3".
namespace Quillary::TypedSum {

/// Numbers in whatever style they are typed (`DecimalInput::parse`), joined by + - * × / ÷, the last four before the
/// first two; a number alone is one, too. The result × 10^`scale`, exact until it is rounded half away from zero.
/// `scale` is 0 to 9. No value: no number, a division by zero, or figures of more than some thirty digits.
[[nodiscard]] std::optional<std::int64_t> scaled(std::string_view text, const Locale& locale, int scale);

} // namespace Quillary::TypedSum
