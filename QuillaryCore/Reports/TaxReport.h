#pragma once

#include "QuillaryCore/Foundation/UUID.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Reports/DateRange.h"
#include "QuillaryCore/Reports/ReportBasis.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

class Context;

/// How much net revenue and how much tax fell at each tax rate within a period, and which documents make it up: what a
/// VAT, GST or sales tax return is filled in from.
/// Unit: minor units of `currencyCode`. A sum outside 64 bits stops the program.
struct TaxReport
{
    /// One tax rate.
    struct Row
    {
        std::int32_t id = -1;                    ///< the rate, or -1 for the row without one
        std::optional<std::int32_t> basisPoints; ///< absent for the row that collects untaxed amounts
        std::int64_t net = 0;
        std::int64_t tax = 0;

        [[nodiscard]] std::int64_t gross() const;

        friend bool operator==(const Row&, const Row&) = default;
    };

    /// What one document contributed.
    struct Entry
    {
        std::optional<UUID> id; ///< the document's; absent only in damaged or foreign data
        std::string number;
        DocumentKind kind = DocumentKind::invoice;
        /// The document's date; by payment date that of an invoice's last payment in the period, or the day on which a
        /// credit note was refunded.
        std::optional<Instant> date;
        std::string client; ///< the display name; empty without a client
        std::int64_t net = 0;
        std::int64_t tax = 0;

        [[nodiscard]] std::int64_t gross() const;

        friend bool operator==(const Entry&, const Entry&) = default;
    };

    std::string currencyCode;
    ReportBasis basis = ReportBasis::invoiced;
    std::vector<Row> rows;      ///< the highest rate first, the row without a rate last
    std::vector<Entry> entries; ///< by the documents' dates

    /// The sum of the rows, with the `id` 0 and no rate.
    [[nodiscard]] Row total() const;

    /// Invoices and credit notes of one currency. By invoice date each counts wholly within the period of its date. By
    /// payment date an invoice counts in the proportion of what was paid within the period to its stored total, rounded
    /// rate by rate, and a credit note wholly when it was refunded. Only reads.
    ///
    /// When the library can't be read the report is empty and the store remembers the failure (`Store::lastFailure`).
    [[nodiscard]] static TaxReport
    make(Context& context, const DateRange& range, ReportBasis basis, std::string_view currencyCode);
};

} // namespace Quillary
