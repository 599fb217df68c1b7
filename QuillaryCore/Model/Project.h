#pragma once

#include "QuillaryCore/Store/Field.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace Quillary {

/// Groups documents and time.
struct Project : Record<Project>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::optional<Instant> createdAt;
    std::string name;
    bool isArchived = false;

    static constexpr std::string_view entityName = "Project";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &Project::uuid},
                          Field{"createdAt", &Project::createdAt},
                          Field{"name", &Project::name},
                          Field{"isArchived", &Project::isArchived}};
    }

    static constexpr auto references() { return std::tuple{}; }

    friend bool operator==(const Project&, const Project&) = default;
};

} // namespace Quillary
