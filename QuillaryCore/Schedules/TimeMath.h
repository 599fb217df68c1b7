#pragma once

#include <array>
#include <cstdint>
#include <string>

/// Durations and what they are worth. Unit: whole seconds, amounts in minor units. A negative duration counts as none.
namespace Quillary::TimeMath {

/// The rounding steps that are offered. Unit: minutes; 0 is no rounding.
inline constexpr std::array<std::int64_t, 7> roundingChoices = {0, 5, 6, 10, 15, 30, 60};

/// The smallest multiple of `minutes` that is not less: a second over a step is a whole further step. Below 1 minute
/// nothing is rounded.
[[nodiscard]] std::int64_t roundUp(std::int64_t seconds, std::int64_t minutes);

/// What a duration costs, halves of a minor unit rounded up. An amount outside 64 bits stops the program.
[[nodiscard]] std::int64_t amount(std::int64_t seconds, std::int64_t hourlyRate);

/// Thousandths of an hour, cut off.
[[nodiscard]] std::int64_t thousandthsOfHours(std::int64_t seconds);

/// "1:30"
[[nodiscard]] std::string hoursAndMinutes(std::int64_t seconds);

/// "1:30:05"
[[nodiscard]] std::string clock(std::int64_t seconds);

} // namespace Quillary::TimeMath
