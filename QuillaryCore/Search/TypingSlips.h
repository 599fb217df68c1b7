#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
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

/// A text made ready to be compared with many.
class Word
{
public:
    /// As few slips as `limit` are forgiven, at most 6.
    Word(std::string_view text, int limit);

    /// The slips between this word and a text. No value: more than are forgiven.
    [[nodiscard]] std::optional<int> slipsTo(std::string_view text) const;

private:
    std::u32string m_letters;
    std::uint64_t m_marks; ///< a bit for each of its letters
    int m_limit;
};

} // namespace Quillary::TypingSlips
