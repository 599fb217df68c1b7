#pragma once

#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/UUID.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Reports/DateRange.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

class Context;

/// The invoices and credit notes dated in a period, in one currency, drafts included: the documents whose stored sums a
/// tax report by invoice date adds up.
/// Unit: minor units of `currencyCode`. A sum outside 64 bits stops the program.
struct InvoiceList
{
    struct Row
    {
        std::optional<UUID> id; ///< the document's; absent only in damaged or foreign data
        std::string number;
        DocumentKind kind = DocumentKind::invoice;
        std::optional<Instant> date;
        std::optional<Instant> dueDate;
        std::string client; ///< the display name; empty without a client
        DisplayStatus status = DisplayStatus::draft;
        std::int64_t net = 0;
        std::int64_t gross = 0;
        std::int64_t paid = 0;
        std::int64_t open = 0; ///< what a sent invoice still owes now, late fees included; 0 for everything else

        [[nodiscard]] std::int64_t tax() const; ///< gross less net

        friend bool operator==(const Row&, const Row&) = default;
    };

    std::string currencyCode;
    std::vector<Row> rows; ///< by date

    /// The sum of the rows' amounts.
    [[nodiscard]] Row total() const;

    /// The status is that of today; `today` is any instant of it. Only reads.
    ///
    /// When the library can't be read the list is empty and the store remembers the failure (`Store::lastFailure`).
    [[nodiscard]] static InvoiceList make(Context& context,
                                          const DateRange& range,
                                          std::string_view currencyCode,
                                          Instant today,
                                          const Calendar& calendar);
};

} // namespace Quillary
