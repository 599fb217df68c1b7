#pragma once

#include "QuillaryCore/Foundation/PlainText.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Quillary {

class JSON;

/// No result is longer. Unit: bytes of text, with the data that is appended to it for assistants that read only text.
inline constexpr std::size_t longestResult = 50'000;

/// A long text as an answer shows it, in words and in data: whole up to `bytes`, else cut between two characters, with
/// "…" behind.
[[nodiscard]] std::string shortened(std::string_view text, std::size_t bytes);

/// What an answer's text and data take in a result, in which the data holds the text once more. Unit: bytes.
[[nodiscard]] std::size_t roomFor(std::string_view text, const JSON& data);

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
