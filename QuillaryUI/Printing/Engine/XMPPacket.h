#pragma once

#include "QuillaryCore/Foundation/Instant.h"

#include <string>
#include <string_view>

/// The metadata packet of a PDF. Source: ISO 16684-1 (XMP).
namespace Quillary::XMPPacket {

struct Properties
{
    std::string title; ///< cleaned
    std::string languageCode;
    Instant createdAt;
};

/// A text without what XML and a title bar can't hold: control characters become blanks, invalid UTF-8 becomes U+FFFD,
/// and after 500 characters an ellipsis ends it.
[[nodiscard]] std::string cleaned(std::string_view text);

[[nodiscard]] std::string write(const Properties& properties);

} // namespace Quillary::XMPPacket
