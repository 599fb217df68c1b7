#pragma once

#include "QuillaryCore/Foundation/Precondition.h"

#include <concepts>
#include <cstdint>
#include <optional>
#include <utility>

namespace Quillary {

/// A 128-bit integer for products and quotients of 64-bit amounts.
__extension__ using Int128 = __int128;

/// `value` in a narrower integer type. No value when it does not fit.
template <std::integral To, class From>
[[nodiscard]] constexpr std::optional<To> narrowed(From value)
{
    const auto result = static_cast<To>(value);
    if (static_cast<From>(result) != value || ((result < To{}) != (value < From{}))) {
        return std::nullopt;
    }
    return result;
}

/// Sum, difference and negation in 64 bits; an overflow stops the program: such an amount would be wrong money.
[[nodiscard]] inline std::int64_t checkedAdd(std::int64_t left, std::int64_t right)
{
    std::int64_t result = 0;
    precondition(!__builtin_add_overflow(left, right, &result), "a sum of amounts fits 64 bits");
    return result;
}

[[nodiscard]] inline std::int64_t checkedSubtract(std::int64_t left, std::int64_t right)
{
    std::int64_t result = 0;
    precondition(!__builtin_sub_overflow(left, right, &result), "a difference of amounts fits 64 bits");
    return result;
}

[[nodiscard]] inline std::int64_t checkedMultiply(std::int64_t left, std::int64_t right)
{
    std::int64_t result = 0;
    precondition(!__builtin_mul_overflow(left, right, &result), "a product of amounts fits 64 bits");
    return result;
}

} // namespace Quillary
