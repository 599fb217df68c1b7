#pragma once

#include <string_view>
#include <vector>

namespace Quillary {

/// One stretch of a user's pattern in which placeholders stand in braces.
struct PatternPiece
{
    enum class Kind {
        literal,        ///< text to copy, never empty; neighbouring characters form one piece
        placeholder,    ///< `text` is what stands between "{" and the next "}", maybe nothing, maybe with another "{"
        unmatchedBrace, ///< a "{" without "}" or a "}" without "{"; always the last piece
    };

    Kind kind;
    std::string_view text; ///< points into the pattern

    friend bool operator==(const PatternPiece&, const PatternPiece&) = default;
};

/// Takes a pattern apart, from left to right and up to the first brace without a partner.
///
/// Reads character by character as a person counts them (grapheme clusters): a brace that carries a combining mark is a
/// character of its own and no brace.
[[nodiscard]] std::vector<PatternPiece> patternPieces(std::string_view pattern);

} // namespace Quillary
