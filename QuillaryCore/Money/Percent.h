#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Rates. Unit: basis points, 10000 = 100 %.
namespace Quillary::Percent {

/// Reads "19", "7.5 %", "7,25": up to three digits, then up to two after a point or comma.
/// No value: any other text, or more than 100 %.
[[nodiscard]] std::optional<std::int32_t> basisPoints(std::string_view text);

/// "19%", "7.5%", "5.25%": always a point, no locale.
[[nodiscard]] std::string format(std::int32_t basisPoints);

} // namespace Quillary::Percent
