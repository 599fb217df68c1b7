#include "QuillaryCore/Tabular/EmailCell.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Validation.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace Quillary {

EmailCell emailCell(std::string_view text)
{
    EmailCell result{.address = std::string(text), .others = {}, .isValid = Validation::isValidEmail(text)};
    constexpr std::string_view separators = " ,;|<>()[]\"";
    if (text.empty() ||
        (result.isValid && text.find_first_of(separators) == std::string_view::npos && !text.starts_with("mailto:"))) {
        return result;
    }
    result.isValid = false;
    for (std::string_view rest = text; !rest.empty();) {
        const std::size_t size = std::min(rest.find_first_of(separators), rest.size());
        std::string_view word = rest.substr(0, size);
        rest.remove_prefix(std::min(size + 1, rest.size()));
        if (lowerCasedASCII(word.substr(0, 7)) == "mailto:") {
            word.remove_prefix(7);
        }
        if (!Validation::isValidEmail(word)) {
            continue;
        }
        if (result.isValid) {
            result.others.emplace_back(word);
        } else {
            result.address = word;
            result.isValid = true;
        }
    }
    return result;
}

} // namespace Quillary
