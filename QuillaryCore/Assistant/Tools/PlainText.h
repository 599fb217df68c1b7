#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Quillary {

class JSON;

/// No result is longer. Unit: bytes of text, with the data that is appended to it for assistants that read only text.
inline constexpr std::size_t longestResult = 50'000;

/// Text from a document, a client or a note as it may stand inside a line of a result: data, which can't pass for
/// anything of ours. Line breaks and control characters become spaces, runs of spaces one space; square brackets, in
/// which only our identifiers stand, become round ones; marks that turn the direction of what follows are left out.
[[nodiscard]] std::string plainText(std::string_view text);

/// The same, cut after `limit` characters, with "…" where something is missing.
[[nodiscard]] std::string plainText(std::string_view text, std::size_t limit);

/// A long text as an answer shows it, in words and in data: whole up to `bytes`, else cut between two characters, with
/// "…" behind.
[[nodiscard]] std::string shortened(std::string_view text, std::size_t bytes);

/// What an answer's text and data take in a result, in which the data holds the text once more. Unit: bytes.
[[nodiscard]] std::size_t roomFor(std::string_view text, const JSON& data);

/// What a call asked for, quoted in a sentence: “text”, at most 60 characters of it.
[[nodiscard]] std::string inQuotes(std::string_view text);

/// Appends lines to the text of a result as long as all of it stays within `longestResult`.
class ResultLines
{
public:
    /// `reserve` bytes are kept for what the caller writes besides these lines and the text that is there already.
    explicit ResultLines(std::string& text, std::size_t reserve = 2000);

    /// Takes a line together with what the data says of it. False: there is no room, and neither for any later line.
    bool add(std::string_view line, const JSON& data);

private:
    std::string& m_text;
    std::size_t m_used;
    bool m_isFull = false;
};

} // namespace Quillary
