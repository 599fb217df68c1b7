#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Quillary {

/// Text from a document, a client or a note as it may stand inside a sentence or a line of an answer: data, which can't
/// pass for anything of ours. Line breaks and control characters become spaces, runs of spaces one space; square
/// brackets, in which only our identifiers stand, become round ones; marks that turn the direction of what follows are
/// left out.
[[nodiscard]] std::string plainText(std::string_view text);

/// The same, cut after `limit` characters, with "…" where something is missing.
[[nodiscard]] std::string plainText(std::string_view text, std::size_t limit);

/// What somebody typed, or a title, quoted in a sentence: “text”, at most 60 characters of it.
[[nodiscard]] std::string inQuotes(std::string_view text);

} // namespace Quillary
