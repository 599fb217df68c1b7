#pragma once

#include "QuillaryCore/Store/Field.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace Quillary {

/// What a saved view shows beyond the fields of its own record, and in which order. Tied to it by `uuid`; a view without
/// is in the usual order.
struct SavedViewDetails : Record<SavedViewDetails>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::optional<UUID> viewID;
    std::optional<UUID> clientID;
    std::string currencyCode;
    std::string searchText;
    std::string sortColumn; ///< empty: the usual one
    bool isAscending = false;
    bool isWithoutProject = false; ///< only documents of no project
    bool isDueSoon = false;        ///< only what is due within `dueWithinDays`
    std::int16_t dueWithinDays = 0;

    static constexpr std::string_view entityName = "SavedViewDetails";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &SavedViewDetails::uuid},
                          Field{"viewID", &SavedViewDetails::viewID},
                          Field{"clientID", &SavedViewDetails::clientID},
                          Field{"currencyCode", &SavedViewDetails::currencyCode},
                          Field{"searchText", &SavedViewDetails::searchText},
                          Field{"sortColumn", &SavedViewDetails::sortColumn},
                          Field{"isAscending", &SavedViewDetails::isAscending},
                          Field{"isWithoutProject", &SavedViewDetails::isWithoutProject},
                          Field{"isDueSoon", &SavedViewDetails::isDueSoon},
                          Field{"dueWithinDays", &SavedViewDetails::dueWithinDays}};
    }

    static constexpr auto references() { return std::tuple{}; }

    static constexpr auto uuidReferences()
    {
        return std::tuple{UUIDReference{"viewID", &SavedViewDetails::viewID, "SavedView", WhenTargetGoes::erase},
                          UUIDReference{"clientID", &SavedViewDetails::clientID, "Client", WhenTargetGoes::clear}};
    }

    static constexpr auto indexes() { return std::array{Index{"SavedViewDetails_view", "viewID"}}; }

    friend bool operator==(const SavedViewDetails&, const SavedViewDetails&) = default;
};

} // namespace Quillary
