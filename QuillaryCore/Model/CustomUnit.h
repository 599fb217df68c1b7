#pragma once

#include "QuillaryCore/Store/Field.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace Quillary {

/// A unit defined by the user.
struct CustomUnit : Record<CustomUnit>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::string singular;
    std::string plural;
    std::string code; ///< UN/ECE Recommendation 20, when known
    std::int32_t sortIndex = 0;

    static constexpr std::string_view entityName = "CustomUnit";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &CustomUnit::uuid},
                          Field{"singular", &CustomUnit::singular},
                          Field{"plural", &CustomUnit::plural},
                          Field{"code", &CustomUnit::code},
                          Field{"sortIndex", &CustomUnit::sortIndex}};
    }

    static constexpr auto references() { return std::tuple{}; }

    friend bool operator==(const CustomUnit&, const CustomUnit&) = default;
};

} // namespace Quillary
