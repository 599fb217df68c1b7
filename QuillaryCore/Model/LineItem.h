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

/// One line of a document; a line may have sub-lines, which refer to it as `parent`. Every line, parent or not, counts
/// with its own quantity and price.
struct LineItem : Record<LineItem>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::int32_t sortIndex = 0;
    std::string title;
    std::string details;
    std::int64_t quantityThousandths = 0;
    std::int64_t unitPriceMinorUnits = 0; ///< net, in the document's currency
    std::int32_t vatBasisPoints = 0;
    std::string unit;         ///< unit identifier, see `Units`
    std::string unitSingular; ///< the unit's words as printed, kept with the line
    std::string unitPlural;
    std::optional<UUID> catalogItemID; ///< the catalog item it came from

    Ref<Document> document;
    Ref<LineItem> parent;

    static constexpr std::string_view entityName = "LineItem";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &LineItem::uuid},
                          Field{"sortIndex", &LineItem::sortIndex},
                          Field{"title", &LineItem::title},
                          Field{"details", &LineItem::details},
                          Field{"quantityThousandths", &LineItem::quantityThousandths},
                          Field{"unitPriceMinorUnits", &LineItem::unitPriceMinorUnits},
                          Field{"vatBasisPoints", &LineItem::vatBasisPoints},
                          Field{"unit", &LineItem::unit},
                          Field{"unitSingular", &LineItem::unitSingular},
                          Field{"unitPlural", &LineItem::unitPlural},
                          Field{"catalogItemID", &LineItem::catalogItemID}};
    }

    static constexpr auto references()
    {
        return std::tuple{Reference{"document", &LineItem::document, WhenTargetGoes::erase},
                          Reference{"parent", &LineItem::parent, WhenTargetGoes::erase}};
    }

    /// A document is always read with all its lines.
    static constexpr std::string_view clusteredBy = "document";

    static constexpr auto indexes() { return std::array{Index{"LineItem_parent", "parent"}}; }

    friend bool operator==(const LineItem&, const LineItem&) = default;
};

} // namespace Quillary
