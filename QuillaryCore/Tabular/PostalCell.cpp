#include "QuillaryCore/Tabular/PostalCell.h"

#include "QuillaryCore/Foundation/Text.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

bool isUpper(char byte)
{
    return byte >= 'A' && byte <= 'Z';
}

/// The bytes of a code of digits at the beginning, with a country in front ("D-12345") or two letters behind
/// ("1012 AB") as in the Netherlands; 0 when there is none.
std::size_t codeSize(std::string_view text)
{
    std::size_t begin = 0;
    while (begin < std::min<std::size_t>(text.size(), 3) && isUpper(text[begin])) {
        ++begin;
    }
    if (begin > 0 && (begin == text.size() || text[begin] != '-')) {
        return 0; // British and Canadian codes begin with letters and hold blanks: nothing tells where they end
    }
    begin += begin > 0 ? 1 : 0;
    std::size_t end = begin;
    while (end < text.size() && isDigit(text[end])) {
        ++end;
    }
    const std::size_t digits = end - begin;
    if (digits < 3 || digits > 6) {
        return 0;
    }
    const std::string_view behind = text.substr(end);
    const bool hasLetters = digits == 4 && behind.size() > 3 && behind[0] == ' ' && isUpper(behind[1]) &&
                            isUpper(behind[2]) && behind[3] == ' ';
    return hasLetters ? end + 3 : end;
}

} // namespace

PostalCell postalCell(std::string code, std::string city)
{
    if (city.empty()) {
        const std::size_t size = codeSize(code);
        const std::string_view behind = std::string_view(code).substr(size);
        const std::string_view place = trimmed(behind);
        if (size > 0 && behind.starts_with(' ') && place.size() > 2 && !std::ranges::any_of(place, isDigit)) {
            city = place;
            code.resize(size);
        }
    }
    return {std::move(code), std::move(city)};
}

} // namespace Quillary
