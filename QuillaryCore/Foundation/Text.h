#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

// Core text is UTF-8. Functions that look at characters treat broken bytes as U+FFFD and never fail.

/// Without white space (Unicode White_Space, line breaks included) at both ends.
[[nodiscard]] std::string_view trimmed(std::string_view text);

/// The number of characters as a person counts them: extended grapheme clusters (UAX #29).
[[nodiscard]] std::size_t graphemeCount(std::string_view text);

/// The first `count` grapheme clusters.
[[nodiscard]] std::string_view graphemePrefix(std::string_view text, std::size_t count);

/// Splits into grapheme clusters; the views point into `text`.
[[nodiscard]] std::vector<std::string_view> graphemes(std::string_view text);

/// True when a scalar belongs to the control characters (general categories Cc and Cf).
[[nodiscard]] bool hasControlCharacter(std::string_view text);

/// True for well-formed UTF-8 without NUL.
[[nodiscard]] bool isValidUTF8(std::string_view bytes);

/// The text with ill-formed sequences and NUL replaced by U+FFFD.
[[nodiscard]] std::string repairedUTF8(std::string_view bytes);

/// The text as it is compared in searches: without case, accents and width ("Schröder" and "SCHRODER" are one). Letters
/// that Unicode does not take apart become what is typed for them ("Łódź" is "lodz", "Æ" is "ae"), typographic dashes
/// and apostrophes the plain ones. Vowels that a script writes as marks stay.
[[nodiscard]] std::string folded(std::string_view text);

[[nodiscard]] std::string upperCasedASCII(std::string_view text);
[[nodiscard]] std::string lowerCasedASCII(std::string_view text);

/// The pieces between occurrences of `separator`, empty ones included; the views point into `text`.
[[nodiscard]] std::vector<std::string_view> split(std::string_view text, char separator);

/// `text` with every occurrence of `pattern` replaced. `pattern` is not empty.
[[nodiscard]] std::string replacing(std::string_view text, std::string_view pattern, std::string_view replacement);

} // namespace Quillary
