#pragma once

#include <string>
#include <string_view>

/// Text from people on its way into a page.
namespace Quillary::HTMLText {

/// Appends text so that it stays text: & < > " ' become entities (in elements and in quoted attributes alike), bytes
/// that are not UTF-8 and NUL become U+FFFD. Left out are the other control characters except tab and line ends, and the
/// directional embeddings, overrides and isolates, which could turn round what follows them on the page.
void append(std::string& html, std::string_view text);

/// Appends what is markup already, as it is. For literals of more than some dozen bytes, and not inlined on purpose:
/// compilers that see their length copy them by an instruction that takes several times as long as the library's copy.
void appendMarkup(std::string& html, std::string_view markup);

/// True when some character is written from right to left (Hebrew, Arabic, …), so that the text needs a direction of
/// its own.
[[nodiscard]] bool hasRightToLeft(std::string_view text);

/// `append`, set apart from the text around it where it is written from right to left.
void appendIsolated(std::string& html, std::string_view text);

} // namespace Quillary::HTMLText
