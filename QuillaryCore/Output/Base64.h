#pragma once

#include <cstdint>
#include <span>
#include <string>

/// Bytes as text. Source: RFC 4648, section 4 (the standard alphabet, padded).
namespace Quillary::Base64 {

/// Appends the encoded bytes.
void append(std::string& text, std::span<const std::uint8_t> bytes);

[[nodiscard]] std::string encoded(std::span<const std::uint8_t> bytes);

} // namespace Quillary::Base64
