#pragma once

#include <cstdint>

namespace Quillary {

struct Business;

/// What a payment reminder charges, as stored in `Business::lateFeeKindRaw`.
enum class LateFeeKind : std::int16_t {
    none = 0,
    fixed = 1,      ///< `Business::lateFeeMinorUnits`, in the business currency
    percentage = 2, ///< `Business::lateFeeBasisPoints` of the amount due
};

/// Any stored number but 1 and 2 is none.
[[nodiscard]] LateFeeKind lateFeeKindFromRaw(std::int16_t raw);

[[nodiscard]] LateFeeKind lateFeeKind(const Business& business);

} // namespace Quillary
