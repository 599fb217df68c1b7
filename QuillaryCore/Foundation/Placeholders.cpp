#include "QuillaryCore/Foundation/Placeholders.h"

#include <algorithm>
#include <cstddef>

namespace Quillary {

namespace {

/// No word is longer; a brace far away from its partner costs nothing.
constexpr std::size_t longestWord = 64;

} // namespace

std::string fillPlaceholders(std::string_view text,
                             const std::function<std::optional<std::string>(const std::string& word)>& value)
{
    std::string result;
    while (!text.empty()) {
        const std::size_t brace = std::min(text.find('{'), text.size());
        result += text.substr(0, brace);
        text.remove_prefix(brace);
        if (text.empty()) {
            break;
        }
        const std::size_t end = text.substr(0, longestWord + 2).find('}');
        const std::optional<std::string> filled =
            end == std::string_view::npos ? std::nullopt : value(std::string(text.substr(1, end - 1)));
        // The brace may belong to the text; the next one may begin a word.
        result += filled.value_or("{");
        text.remove_prefix(filled ? end + 1 : 1);
    }
    return result;
}

} // namespace Quillary
