#pragma once

#include "QuillaryCore/Store/Field.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace Quillary {

/// The last counter handed out in one numbering series. Several rows may carry one key; the largest value counts.
struct NumberSequence : Record<NumberSequence>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::string key;
    std::int64_t lastValue = 0; ///< 0 means none yet

    static constexpr std::string_view entityName = "NumberSequence";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &NumberSequence::uuid},
                          Field{"key", &NumberSequence::key},
                          Field{"lastValue", &NumberSequence::lastValue}};
    }

    static constexpr auto references() { return std::tuple{}; }

    static constexpr auto indexes() { return std::array{Index{"NumberSequence_key", "key"}}; }

    friend bool operator==(const NumberSequence&, const NumberSequence&) = default;
};

} // namespace Quillary
