#pragma once

#include "QuillaryCore/Foundation/CheckedInteger.h"

namespace Quillary {

/// `amount` × `part` ÷ `whole`, rounded half away from zero. `whole` is not 0; the product fits 128 bits, as that of any
/// two 64-bit figures does.
[[nodiscard]] constexpr Int128 proportion(Int128 amount, Int128 part, Int128 whole)
{
    const Int128 product = amount * part;
    const bool isNegative = (product < 0) != (whole < 0);
    const Int128 size = product < 0 ? -product : product;
    const Int128 divisor = whole < 0 ? -whole : whole;
    const Int128 rounded = (size + divisor / 2) / divisor;
    return isNegative ? -rounded : rounded;
}

} // namespace Quillary
