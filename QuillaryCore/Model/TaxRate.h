#pragma once

#include "QuillaryCore/Store/Field.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace Quillary {

/// A tax rate that the user can pick.
struct TaxRate : Record<TaxRate>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::string name;
    std::int32_t basisPoints = 0;
    bool isDefault = false; ///< at most one rate is
    std::int32_t sortIndex = 0;

    static constexpr std::string_view entityName = "TaxRate";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &TaxRate::uuid},
                          Field{"name", &TaxRate::name},
                          Field{"basisPoints", &TaxRate::basisPoints},
                          Field{"isDefault", &TaxRate::isDefault},
                          Field{"sortIndex", &TaxRate::sortIndex}};
    }

    static constexpr auto references() { return std::tuple{}; }

    friend bool operator==(const TaxRate&, const TaxRate&) = default;
};

} // namespace Quillary
