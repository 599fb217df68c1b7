#pragma once

#include "QuillaryCore/Assistant/Tools/AssistantEnvironment.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Quillary {

/// How much money is where, in one currency: amounts of different currencies are never added.
/// Unit: minor units of the currency.
struct MoneyOverview
{
    /// A document that waits for money or for the user.
    struct Item
    {
        std::int64_t document = 0;   ///< the key
        std::int64_t amount = 0;     ///< what is still due; of a draft its total
        std::optional<Instant> date; ///< when it is or was due; of a draft its own date
    };

    static constexpr int soonDays = 7;

    std::string currencyCode;
    std::vector<Item> open;        ///< invoices sent and not settled, the overdue ones included, the oldest due first
    std::vector<Item> drafts;      ///< invoices and credit notes, the oldest first
    std::vector<Item> creditNotes; ///< sent and not refunded yet; their amounts are negative
    std::int64_t openTotal = 0;
    std::int64_t overdueTotal = 0;
    std::int64_t draftTotal = 0;
    std::int64_t creditTotal = 0;
    std::int64_t dueSoonTotal = 0;
    std::size_t overdueCount = 0;         ///< the first so many of `open`
    std::size_t dueSoonCount = 0;         ///< so many behind them: due today or within `soonDays`
    std::int64_t unbilledThousandths = 0; ///< hours, each project's cut off as on its line
    std::int64_t unbilledSeconds = 0;     ///< the same time to the second
    std::int64_t unbilledValue = 0;

    /// The business's currency first, then by code. A currency in which nothing waits is left out.
    [[nodiscard]] static std::vector<MoneyOverview> of(const AssistantEnvironment& environment);
};

} // namespace Quillary
