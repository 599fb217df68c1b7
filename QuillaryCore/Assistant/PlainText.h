#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Quillary {

/// No result is longer. Unit: bytes of text.
inline constexpr std::size_t longestResult = 50'000;

/// Text from a document, a client or a note as it may stand inside a line of a result: data, which can't pass for
/// anything of ours. Line breaks and control characters become spaces, runs of spaces one space; square brackets, in
/// which only our identifiers stand, become round ones; marks that turn the direction of what follows are left out.
[[nodiscard]] std::string plainText(std::string_view text);

/// The same, cut after `limit` characters, with "…" where something is missing.
[[nodiscard]] std::string plainText(std::string_view text, std::size_t limit);

/// What a call asked for, quoted in a sentence: “text”, at most 60 characters of it.
[[nodiscard]] std::string quoted(std::string_view text);

/// Appends lines to the text of a result as long as it stays within `longestResult`.
class ResultLines
{
public:
    /// `reserve` bytes are kept for what the caller appends after the lines.
    explicit ResultLines(std::string& text, std::size_t reserve = 500)
        : m_text(text)
        , m_reserve(reserve)
    {
    }

    /// False: there is no room, and neither for any later line.
    bool add(std::string_view line);

private:
    std::string& m_text;
    std::size_t m_reserve;
    bool m_isFull = false;
};

} // namespace Quillary
