#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

/// An opaque colour of the screen and the printer (sRGB, eight bits a channel).
struct Color
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    /// Reads "#RRGGBB" or "RRGGBB", letters in either case. No value: any other text.
    [[nodiscard]] static std::optional<Color> parse(std::string_view text);

    /// "#RRGGBB" with upper-case letters.
    [[nodiscard]] std::string hex() const;

    /// The colour thinned with white until only `percent` of it is left, 0 to 100.
    [[nodiscard]] Color tint(int percent) const;

    /// The same hue, deepened step by step until it reads on `ground` with at least `contrast`. Black at the latest, which
    /// is enough for 4.5 on any ground that white can't be read on.
    [[nodiscard]] Color deepened(const Color& ground, double contrast) const;

    friend bool operator==(const Color&, const Color&) = default;
};

/// The contrast of two colours, 1 to 21. Source: WCAG 2.2, "contrast ratio"; small text needs 4.5.
[[nodiscard]] double contrast(const Color& left, const Color& right);

inline constexpr Color paperWhite{255, 255, 255};

} // namespace Quillary
