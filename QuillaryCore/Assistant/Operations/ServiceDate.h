#pragma once

#include "QuillaryCore/Foundation/Instant.h"

#include <optional>
#include <string_view>

namespace Quillary {

/// The day or the days on which the work was done.
struct ServiceDate
{
    CalendarDate start;
    std::optional<CalendarDate> end; ///< the last day of a period, not before `start`; absent for a single day

    /// Reads "YYYY-MM-DD", a period "YYYY-MM-DD..YYYY-MM-DD", or one of today, yesterday, invoice_date, this_week,
    /// last_week, this_month, last_month. Weeks begin on Monday (ISO 8601). No value: any other text.
    [[nodiscard]] static std::optional<ServiceDate>
    parse(std::string_view text, CalendarDate today, CalendarDate invoiceDate);

    friend bool operator==(const ServiceDate&, const ServiceDate&) = default;
};

} // namespace Quillary
