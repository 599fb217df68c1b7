#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace Quillary {

struct Document;

/// Which service period the invoices of a template state, as stored in `Document::billingPeriodRaw`; `id` is that
/// number.
enum class BillingPeriod : std::int16_t {
    none = 0,
    current = 1,
    previous = 2,
};

inline constexpr std::array allBillingPeriods = {BillingPeriod::none, BillingPeriod::current, BillingPeriod::previous};

[[nodiscard]] constexpr std::int16_t id(BillingPeriod period)
{
    return static_cast<std::int16_t>(period);
}

/// The choice of a template; an unreadable one is none.
[[nodiscard]] BillingPeriod billingPeriod(const Document& recurring);

/// "No service period", "The period starting on the invoice date", "The period before the invoice date"
[[nodiscard]] std::string_view title(BillingPeriod period);

} // namespace Quillary
