#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

/// The text of the QR code in a PNG picture, as a phone would read it; the reader shares nothing with our writer.
/// No value: the bytes are no PNG, or there is no readable code in it.
[[nodiscard]] std::optional<std::string> readQRCode(std::string_view png);

} // namespace Quillary
