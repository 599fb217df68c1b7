#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace Quillary {

/// The first character of a text and the bytes it takes.
struct DecodedCharacter
{
    std::optional<char32_t> scalar; ///< absent: the bytes are no UTF-8
    std::size_t length = 0;         ///< of ill-formed bytes as many as belong to one U+FFFD; 0 only for empty text

    friend bool operator==(const DecodedCharacter&, const DecodedCharacter&) = default;
};

/// Reads the first character of UTF-8. Overlong forms, surrogates and values above U+10FFFF are ill-formed; a sequence
/// that breaks off is one fault up to the byte that breaks it (Unicode, "maximal subpart").
[[nodiscard]] constexpr DecodedCharacter decodeFirst(std::string_view text)
{
    if (text.empty()) {
        return {};
    }
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80) {
        return {lead, 1};
    }
    if (lead < 0xC2 || lead > 0xF4) {
        return {std::nullopt, 1};
    }
    const std::size_t length = lead < 0xE0 ? 2 : (lead < 0xF0 ? 3 : 4);
    char32_t scalar = lead & (0x7FU >> length);
    // Only the second byte has narrower bounds than the others: they rule out overlong forms and surrogates.
    unsigned char lowest = lead == 0xE0 ? 0xA0 : (lead == 0xF0 ? 0x90 : 0x80);
    unsigned char highest = lead == 0xED ? 0x9F : (lead == 0xF4 ? 0x8F : 0xBF);
    for (std::size_t index = 1; index < length; ++index) {
        const auto byte = index < text.size() ? static_cast<unsigned char>(text[index]) : 0U;
        if (byte < lowest || byte > highest) {
            return {std::nullopt, index};
        }
        scalar = (scalar << 6U) | (byte & 0x3FU);
        lowest = 0x80;
        highest = 0xBF;
    }
    return {scalar, length};
}

/// Reads the last character of UTF-8; of ill-formed bytes the last one.
[[nodiscard]] constexpr DecodedCharacter decodeLast(std::string_view text)
{
    constexpr std::size_t longest = 4;
    for (std::size_t length = 1; length <= longest && length <= text.size(); ++length) {
        const DecodedCharacter candidate = decodeFirst(text.substr(text.size() - length));
        if (candidate.scalar && candidate.length == length) {
            return candidate;
        }
    }
    return {std::nullopt, text.empty() ? std::size_t{0} : std::size_t{1}};
}

} // namespace Quillary
