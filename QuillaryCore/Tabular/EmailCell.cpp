#include "QuillaryCore/Tabular/EmailCell.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Validation.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace Quillary {

namespace {

bool isSeparator(char byte)
{
    switch (byte) {
    case ' ':
    case ',':
    case ';':
    case '|':
    case '<':
    case '>':
    case '(':
    case ')':
    case '[':
    case ']':
    case '"':
        return true;
    default:
        return false;
    }
}

} // namespace

EmailCell emailCell(std::string_view text)
{
    EmailCell result{.address = std::string(text), .others = {}, .isValid = Validation::isValidEmail(text)};
    if (text.empty() || (result.isValid && std::ranges::none_of(text, isSeparator) && !text.starts_with("mailto:"))) {
        return result;
    }
    result.isValid = false;
    for (std::string_view rest = text; !rest.empty();) {
        const auto size = static_cast<std::size_t>(std::ranges::find_if(rest, isSeparator) - rest.begin());
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
