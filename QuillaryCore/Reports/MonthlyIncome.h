#pragma once

#include "QuillaryCore/Foundation/Calendar.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Quillary {

class Context;

/// What came in month by month in one year and one currency: the payments of invoices by their dates, less the credit
/// notes that were refunded. Tax is part of it, as it is of the money.
/// Unit: minor units of `currencyCode`. A sum outside 64 bits stops the program.
struct MonthlyIncome
{
    static constexpr std::size_t monthCount = 12;

    std::string currencyCode;
    std::array<std::int64_t, monthCount> months{}; ///< January first

    [[nodiscard]] std::int64_t total() const;

    /// Months are those of `calendar`. Only reads, and only what was paid in that year.
    ///
    /// When the library can't be read every month is 0 and the store remembers the failure (`Store::lastFailure`).
    [[nodiscard]] static MonthlyIncome
    make(Context& context, std::chrono::year year, const Calendar& calendar, std::string_view currencyCode);
};

} // namespace Quillary
