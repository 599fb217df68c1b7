#pragma once

#include <span>
#include <string_view>

namespace Quillary {

/// Which of `candidates` stands between the cells of a CSV text, by its first lines; the first of them when none occurs.
///
/// On how many lines a candidate occurs counts most, then on how many of those it occurs equally often, then how often.
/// Of equals the earlier wins. Looks at the first 20 lines that aren't blank; what stands in quotes doesn't count.
[[nodiscard]] char likeliestDelimiter(std::string_view text, std::span<const char> candidates);

} // namespace Quillary
