#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace Quillary {

/// The same figure in another currency, where no rate of exchange is known: 90.00 EUR becomes 90 JPY.
/// Unit: minor units of `from`, then of `to`.
/// No value: the figure has more decimals than the currency, or does not fit.
[[nodiscard]] std::optional<std::int64_t>
sameFigure(std::int64_t minorUnits, std::string_view from, std::string_view to);

} // namespace Quillary
