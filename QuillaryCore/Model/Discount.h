#pragma once

#include "QuillaryCore/Store/Field.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace Quillary {

struct Document;

/// A discount on a whole document.
struct Discount : Record<Discount>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::string title;
    std::int16_t kindRaw = 0; ///< 1 is a fixed amount, anything else a percentage
    std::int32_t basisPoints = 0;
    std::int64_t amountMinorUnits = 0;
    std::int32_t sortIndex = 0;

    Ref<Document> document;

    static constexpr std::string_view entityName = "Discount";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &Discount::uuid},
                          Field{"title", &Discount::title},
                          Field{"kindRaw", &Discount::kindRaw},
                          Field{"basisPoints", &Discount::basisPoints},
                          Field{"amountMinorUnits", &Discount::amountMinorUnits},
                          Field{"sortIndex", &Discount::sortIndex}};
    }

    static constexpr auto references()
    {
        return std::tuple{Reference{"document", &Discount::document, WhenTargetGoes::erase}};
    }

    static constexpr auto indexes() { return std::array{Index{"Discount_document", "document"}}; }

    friend bool operator==(const Discount&, const Discount&) = default;
};

} // namespace Quillary
