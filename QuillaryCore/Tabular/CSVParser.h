#pragma once

#include "QuillaryCore/Tabular/CSVRows.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

namespace Quillary {

/// The longest text that can be taken apart. Unit: bytes.
inline constexpr std::size_t longestCSVText = std::numeric_limits<std::uint32_t>::max();

/// Takes a CSV text (RFC 4180, read tolerantly) apart at `delimiter`; rows without content are left out.
///
/// Never fails: stray quotes are characters of their cells, and a quote that nothing closes runs to the end of the text.
/// `blankRows` stood above the text and count where rows are numbered. `text` is not longer than `longestCSVText`; `delimiter` is ASCII, and neither a quote nor a line break.
[[nodiscard]] CSVRows parseCSV(std::string text, char delimiter, std::uint32_t blankRows = 0);

} // namespace Quillary
