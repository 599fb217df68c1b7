#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Small slips in typing: a letter left out, put in, exchanged for another, or two neighbours swapped.
namespace Quillary::TypingSlips {

/// How many slips are forgiven in a word: none in short ones, one in 4 to 7 letters, two above.
[[nodiscard]] int allowed(std::size_t letters);

/// The slips between two texts. More than `limit`: `limit` + 1.
[[nodiscard]] int between(std::u32string_view left, std::u32string_view right, int limit);

/// Texts of which at least one stands unchanged in whatever differs from `word` by at most `slips` (1 or 2) slips. A
/// search for them is fast, and what it doesn't find needs no comparison.
[[nodiscard]] std::vector<std::string> probes(std::u32string_view word, int slips);

[[nodiscard]] std::u32string letters(std::string_view text);

} // namespace Quillary::TypingSlips
