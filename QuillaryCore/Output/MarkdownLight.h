#pragma once

#include <string>
#include <string_view>

/// The light markup of intro, outro and line details.
///
/// - Lines follow each other as they were typed; an empty line begins a new paragraph.
/// - A line that begins with "- ", "* " or "• " (white space before it doesn't count) is an item of a list.
/// - **bold** and *italic* within a line: the opening mark stands at the beginning of a word, the closing mark at its end,
///   so that "2*3*4", "5 * 3" and a lone "*" stay as they are.
///
/// Everything else is text and is escaped; nothing typed can become an element of its own.
namespace Quillary::MarkdownLight {

/// Appends `p` and `ul` elements; nothing for a text without a visible character.
void append(std::string& html, std::string_view text);

/// `append` into a new text.
[[nodiscard]] std::string html(std::string_view text);

} // namespace Quillary::MarkdownLight
