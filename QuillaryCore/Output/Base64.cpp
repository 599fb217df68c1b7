#include "QuillaryCore/Output/Base64.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace Quillary::Base64 {

namespace {

constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// Twelve bits at a time: two characters each.
constexpr std::array<std::array<char, 2>, 4096> pairs = [] {
    std::array<std::array<char, 2>, 4096> table{};
    for (std::size_t value = 0; value < table.size(); ++value) {
        table.at(value) = {alphabet[value / 64], alphabet[value % 64]};
    }
    return table;
}();

} // namespace

void append(std::string& text, std::span<const std::uint8_t> bytes)
{
    const std::size_t start = text.size();
    text.resize(start + (bytes.size() + 2) / 3 * 4);
    char* out = text.data() + start;
    std::size_t index = 0;
    for (; index + 3 <= bytes.size(); index += 3) {
        const std::uint32_t group = static_cast<std::uint32_t>(bytes[index]) << 16U |
                                    static_cast<std::uint32_t>(bytes[index + 1]) << 8U | bytes[index + 2];
        const auto& high = pairs[group >> 12U];
        const auto& low = pairs[group & 0xFFFU];
        *out++ = high[0];
        *out++ = high[1];
        *out++ = low[0];
        *out++ = low[1];
    }
    if (index < bytes.size()) {
        const bool isPair = index + 2 == bytes.size();
        const std::uint32_t group = static_cast<std::uint32_t>(bytes[index]) << 16U |
                                    (isPair ? static_cast<std::uint32_t>(bytes[index + 1]) << 8U : 0U);
        *out++ = alphabet[group >> 18U];
        *out++ = alphabet[group >> 12U & 0x3FU];
        *out++ = isPair ? alphabet[group >> 6U & 0x3FU] : '=';
        *out++ = '=';
    }
}

std::string encoded(std::span<const std::uint8_t> bytes)
{
    std::string text;
    append(text, bytes);
    return text;
}

} // namespace Quillary::Base64
