#pragma once

#include "QuillaryCore/Foundation/Instant.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Texts that came from outside, made fit for a terminal, a list or a file of lines.
namespace Quillary::ShownText {

inline constexpr std::size_t longestName = 100; ///< Unit: characters
inline constexpr std::size_t longestSummary = 300;

/// One line: line breaks and other white space become single blanks, control and formatting characters (escape
/// sequences, changes of the writing direction) go, and what follows the first `longest` characters becomes "…".
[[nodiscard]] std::string line(std::string_view text, std::size_t longest);

/// The name under which an assistant is known: its display name as a line, "AI assistant" when nothing is left of it.
[[nodiscard]] std::string assistantName(std::string_view displayName);

/// An instant as "2026-03-09T08:30:00.000Z" (ISO 8601, UTC).
[[nodiscard]] std::string timestamp(Instant instant);

/// Reads exactly that form. No value: any other text.
[[nodiscard]] std::optional<Instant> parseTimestamp(std::string_view text);

} // namespace Quillary::ShownText
