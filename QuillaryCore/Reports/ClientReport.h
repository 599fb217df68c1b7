#pragma once

#include "QuillaryCore/Foundation/UUID.h"
#include "QuillaryCore/Reports/DateRange.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

class Context;

/// What each client was invoiced and what came in within a period, and what is open now: one currency.
/// Unit: minor units of `currencyCode`. A sum outside 64 bits stops the program.
struct ClientReport
{
    /// One client.
    struct Row
    {
        std::optional<UUID> id;     ///< the client's; absent for documents without a client
        std::string client;         ///< the display name, or "No client"
        std::int64_t documents = 0; ///< invoices and credit notes dated in the period, without drafts
        std::int64_t net = 0;       ///< their stored net amounts
        std::int64_t gross = 0;     ///< their stored totals
        std::int64_t paid = 0;      ///< paid within the period, also on older invoices
        std::int64_t open = 0;      ///< what all sent invoices still owe now, whatever their date

        friend bool operator==(const Row&, const Row&) = default;
    };

    std::string currencyCode;
    std::vector<Row> rows; ///< the largest gross first; equal ones by client, as plain text; none without any figure

    /// The sum of the rows; its client is "Total".
    [[nodiscard]] Row total() const;

    /// Only reads. When the library can't be read the report is empty and the store remembers the failure
    /// (`Store::lastFailure`).
    [[nodiscard]] static ClientReport make(Context& context, const DateRange& range, std::string_view currencyCode);
};

} // namespace Quillary
