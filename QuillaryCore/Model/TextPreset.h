#pragma once

#include "QuillaryCore/Store/Field.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace Quillary {

/// A saved intro or outro text.
struct TextPreset : Record<TextPreset>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::int16_t kindRaw = 0; ///< 0 an intro, 1 an outro
    std::string title;
    std::string text;
    std::int32_t sortIndex = 0;

    static constexpr std::string_view entityName = "TextPreset";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &TextPreset::uuid},
                          Field{"kindRaw", &TextPreset::kindRaw},
                          Field{"title", &TextPreset::title},
                          Field{"text", &TextPreset::text},
                          Field{"sortIndex", &TextPreset::sortIndex}};
    }

    static constexpr auto references() { return std::tuple{}; }

    friend bool operator==(const TextPreset&, const TextPreset&) = default;
};

} // namespace Quillary
