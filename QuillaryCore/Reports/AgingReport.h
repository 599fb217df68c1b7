#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/UUID.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

class Context;

/// How much each client still owes on sent invoices and how late it is, the largest debts first: one currency, one day.
/// Unit: minor units of `currencyCode`. A sum outside 64 bits stops the program.
struct AgingReport
{
    /// How late money is.
    enum class Bucket {
        notDueYet = 0, ///< also without a due date
        upTo30Days = 1,
        upTo60Days = 2,
        upTo90Days = 3,
        over90Days = 4,
    };

    /// In the order of the columns everywhere.
    static constexpr std::array allBuckets = {
        Bucket::notDueYet, Bucket::upTo30Days, Bucket::upTo60Days, Bucket::upTo90Days, Bucket::over90Days};

    [[nodiscard]] static Bucket bucket(int daysOverdue);

    /// "Not due yet", "1–30 days"
    [[nodiscard]] static std::string_view title(Bucket bucket);

    /// One amount for each bucket.
    using Amounts = std::array<std::int64_t, allBuckets.size()>;

    /// One client.
    struct Row
    {
        std::optional<UUID> id; ///< the client's; absent for the invoices without a client
        std::string client;     ///< the display name, or "No client"
        Amounts amounts{};
        int invoices = 0;

        [[nodiscard]] std::int64_t total() const;

        friend bool operator==(const Row&, const Row&) = default;
    };

    std::string currencyCode;
    std::vector<Row> rows; ///< the largest total first; equal ones by client, as plain text

    [[nodiscard]] Amounts totals() const;
    [[nodiscard]] std::int64_t total() const;

    /// Days are those of `calendar`; `today` is any instant of today. Only reads, and only the open invoices.
    ///
    /// When the library can't be read the report is empty and the store remembers the failure (`Store::lastFailure`).
    [[nodiscard]] static AgingReport
    make(Context& context, Instant today, const Calendar& calendar, std::string_view currencyCode);
};

} // namespace Quillary
