#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

/// A user's text with its placeholders filled in: words in braces, in either case, such as {month}. `value` knows the
/// words in lower case; a brace that begins none it knows stands for itself, and what is filled in is not read again.
[[nodiscard]] std::string
fillPlaceholders(std::string_view text,
                 const std::function<std::optional<std::string>(const std::string& word)>& value);

} // namespace Quillary
