#pragma once

#include "QuillaryCore/Tabular/CSV.h"

#include <optional>
#include <string>

namespace Quillary {

/// A text in UTF-8 and what it was before.
struct DecodedText
{
    std::string text;
    CSV::Encoding encoding = CSV::Encoding::utf8;
};

/// The text of a file's bytes. The mark of UTF-8 or UTF-16 decides where there is one; then UTF-8 is tried, Windows code
/// page 1252 and Mac OS Roman.
///
/// No value: bytes that break the promise of their mark, or no text at all. No text holds the character zero: bytes in
/// which it occurs are a picture, a workbook, or UTF-16 without its mark.
[[nodiscard]] std::optional<DecodedText> decodedText(std::string data);

} // namespace Quillary
