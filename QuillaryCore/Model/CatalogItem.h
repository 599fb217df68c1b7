#pragma once

#include "QuillaryCore/Store/Field.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace Quillary {

/// A saved product or service.
struct CatalogItem : Record<CatalogItem>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::optional<Instant> createdAt;
    std::string name;
    std::string details;
    std::int64_t unitPriceMinorUnits = 0; ///< in `currencyCode`
    std::string currencyCode;
    std::string unit;
    std::optional<UUID> taxRateID; ///< the `TaxRate` it uses; absent for the default rate

    static constexpr std::string_view entityName = "CatalogItem";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &CatalogItem::uuid},
                          Field{"createdAt", &CatalogItem::createdAt},
                          Field{"name", &CatalogItem::name},
                          Field{"details", &CatalogItem::details},
                          Field{"unitPriceMinorUnits", &CatalogItem::unitPriceMinorUnits},
                          Field{"currencyCode", &CatalogItem::currencyCode},
                          Field{"unit", &CatalogItem::unit},
                          Field{"taxRateID", &CatalogItem::taxRateID}};
    }

    static constexpr auto references() { return std::tuple{}; }

    static constexpr auto uuidReferences()
    {
        return std::tuple{UUIDReference{"taxRateID", &CatalogItem::taxRateID, "TaxRate", WhenTargetGoes::clear}};
    }

    friend bool operator==(const CatalogItem&, const CatalogItem&) = default;
};

} // namespace Quillary
