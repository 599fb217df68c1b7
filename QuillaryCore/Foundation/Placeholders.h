#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

/// A user's text with its placeholders filled in: words in braces such as {month}. `value` is asked for each word as it
/// is written; a brace that begins none it knows stands for itself, and what is filled in is not read again.
[[nodiscard]] std::string
fillPlaceholders(std::string_view text,
                 const std::function<std::optional<std::string>(const std::string& word)>& value);

} // namespace Quillary
