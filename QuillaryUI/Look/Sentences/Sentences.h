#pragma once

#include <array>
#include <cstddef>
#include <span>

/// What the core says to a person, area by area. Each sentence is in the translators' file, and `CoreText::sentence`
/// finds the one that fits; their order means nothing.
namespace Quillary::CoreText {

/// What was filled in at a place.
enum class Value {
    own,      ///< a person's words, a path, a code: it stays
    word,     ///< one of the core's words: "credit note"
    sentence, ///< a sentence or a name of the core's own: "Invoice INV-7"
    list,     ///< several of them: "“Mark as Paid”, “Back to Draft”", "1, 2 and 5"
    figure,   ///< a number as the core writes it, perhaps with its currency: "1000000.00 EUR"
    date,     ///< "2026-03-31"
    country,  ///< its English name: "the Netherlands"
};

inline constexpr std::size_t mostPlaces = 6;

struct SentencePattern
{
    const char* english;                    ///< UTF-8; what is filled in stands at %1, %2 …
    std::array<Value, mostPlaces> values{}; ///< of %1, %2 …
};

[[nodiscard]] std::span<const SentencePattern> documentSentences();
[[nodiscard]] std::span<const SentencePattern> fieldSentences();
[[nodiscard]] std::span<const SentencePattern> librarySentences();
[[nodiscard]] std::span<const SentencePattern> reviewSentences();

} // namespace Quillary::CoreText
