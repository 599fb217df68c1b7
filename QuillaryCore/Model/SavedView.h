#pragma once

#include "QuillaryCore/Store/Field.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace Quillary {

/// A saved filter of the document list.
struct SavedView : Record<SavedView>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::string name;
    std::int16_t listKindRaw = 0;
    std::string status;
    std::string period;
    std::string tag;
    std::optional<UUID> projectID;
    std::int32_t sortIndex = 0;

    static constexpr std::string_view entityName = "SavedView";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &SavedView::uuid},
                          Field{"name", &SavedView::name},
                          Field{"listKindRaw", &SavedView::listKindRaw},
                          Field{"status", &SavedView::status},
                          Field{"period", &SavedView::period},
                          Field{"tag", &SavedView::tag},
                          Field{"projectID", &SavedView::projectID},
                          Field{"sortIndex", &SavedView::sortIndex}};
    }

    static constexpr auto references() { return std::tuple{}; }

    static constexpr auto uuidReferences()
    {
        return std::tuple{UUIDReference{"projectID", &SavedView::projectID, "Project", WhenTargetGoes::clear}};
    }

    friend bool operator==(const SavedView&, const SavedView&) = default;
};

} // namespace Quillary
