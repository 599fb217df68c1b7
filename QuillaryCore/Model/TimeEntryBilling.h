#pragma once

#include "QuillaryCore/Store/Field.h"

#include <array>
#include <optional>
#include <string_view>
#include <tuple>

namespace Quillary {

/// Which line billed a time entry: a fact that the entry's own record has no field for, tied to both by `uuid`. When it
/// goes, as it does with its line, the entry can be billed again.
struct TimeEntryBilling : Record<TimeEntryBilling>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::optional<UUID> entryID;
    std::optional<UUID> lineID;

    static constexpr std::string_view entityName = "TimeEntryBilling";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &TimeEntryBilling::uuid},
                          Field{"entryID", &TimeEntryBilling::entryID},
                          Field{"lineID", &TimeEntryBilling::lineID}};
    }

    static constexpr auto references() { return std::tuple{}; }

    static constexpr auto uuidReferences()
    {
        return std::tuple{
            UUIDReference{"entryID", &TimeEntryBilling::entryID, "TimeEntry", WhenTargetGoes::erase, "invoiceID"},
            UUIDReference{"lineID", &TimeEntryBilling::lineID, "LineItem", WhenTargetGoes::erase}};
    }

    static constexpr auto indexes()
    {
        return std::array{Index{"TimeEntryBilling_entry", "entryID"}, Index{"TimeEntryBilling_line", "lineID"}};
    }

    friend bool operator==(const TimeEntryBilling&, const TimeEntryBilling&) = default;
};

} // namespace Quillary
