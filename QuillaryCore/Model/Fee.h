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

/// A fee or surcharge on a whole document.
struct Fee : Record<Fee>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::string title;
    std::int64_t amountMinorUnits = 0;
    std::int32_t vatBasisPoints = 0;
    std::int32_t sortIndex = 0;

    Ref<Document> document;

    static constexpr std::string_view entityName = "Fee";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &Fee::uuid},
                          Field{"title", &Fee::title},
                          Field{"amountMinorUnits", &Fee::amountMinorUnits},
                          Field{"vatBasisPoints", &Fee::vatBasisPoints},
                          Field{"sortIndex", &Fee::sortIndex}};
    }

    static constexpr auto references()
    {
        return std::tuple{Reference{"document", &Fee::document, WhenTargetGoes::erase}};
    }

    static constexpr auto indexes() { return std::array{Index{"Fee_document", "document"}}; }

    friend bool operator==(const Fee&, const Fee&) = default;
};

} // namespace Quillary
