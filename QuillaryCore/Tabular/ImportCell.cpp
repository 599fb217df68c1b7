#include "QuillaryCore/Tabular/ImportCell.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UTF8.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace Quillary::ImportCell {

namespace {

constexpr std::array<std::string_view, 4> nothing = {"n/a", "#n/a", "n.a.", "k.a."};

/// What one pass over a cell tells.
struct Look
{
    bool isPlain = true;        ///< ASCII without control characters, and the letters of Latin (U+00C0 to U+024F)
    bool isSingleSpaced = true; ///< where it is plain
};

Look lookAt(std::string_view text)
{
    Look look;
    unsigned char before = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte >= 0xC3 && byte <= 0xC9 && i + 1 < text.size() &&
            (static_cast<unsigned char>(text[i + 1]) >> 6U) == 2) {
            ++i;
        } else if (byte < 0x20 || byte >= 0x7F) {
            return {.isPlain = false, .isSingleSpaced = false};
        }
        look.isSingleSpaced = look.isSingleSpaced && (byte != ' ' || before != ' ');
        before = byte;
    }
    return look;
}

bool isLineBreak(char32_t scalar)
{
    return (scalar >= 0x0A && scalar <= 0x0D) || scalar == 0x85 || scalar == 0x2028 || scalar == 0x2029;
}

/// Marks without ink at which a search would stop: byte order marks, soft hyphens, zero-width spaces, and those that
/// turn the direction of writing. Joiners stay, for scripts and pictures that need them.
bool isHidden(char32_t scalar)
{
    return scalar == 0xFEFF || scalar == 0xAD || scalar == 0x200B || (scalar >= 0x200E && scalar <= 0x200F) ||
           (scalar >= 0x202A && scalar <= 0x202E) || (scalar >= 0x2060 && scalar <= 0x206F);
}

/// With line feeds as the only control characters.
std::string withoutControls(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const DecodedCharacter character = decodeFirst(text);
        const char32_t scalar = character.scalar.value_or(0xFFFD);
        const std::size_t size = text.starts_with("\r\n") ? 2 : character.length;
        if (isLineBreak(scalar)) {
            result += '\n';
        } else if (u_charType(static_cast<UChar32>(scalar)) == U_CONTROL_CHAR ||
                   u_isUWhiteSpace(static_cast<UChar32>(scalar)) != 0) {
            result += ' ';
        } else if (!isHidden(scalar)) {
            result += character.scalar ? text.substr(0, size) : "\uFFFD";
        }
        text.remove_prefix(size);
    }
    return result;
}

/// What stands inside the wrapping of a spreadsheet program.
std::string_view unwrapped(std::string_view cell)
{
    if (cell.size() >= 3 && cell.starts_with("=\"") && cell.ends_with('"')) {
        return cell.substr(2, cell.size() - 3);
    }
    constexpr std::string_view formulaBeginnings = "=+-@\t\r";
    if (cell.size() >= 2 && cell.front() == '\'' && formulaBeginnings.find(cell[1]) != std::string_view::npos) {
        return cell.substr(1);
    }
    return cell;
}

bool saysNothing(std::string_view text)
{
    constexpr std::size_t longest = 8;
    constexpr std::string_view beginnings = "-.?/ #nNkK–";
    if (text.empty() || text.size() > longest || beginnings.find(text.front()) == std::string_view::npos) {
        return text.empty();
    }
    return text.find_first_not_of("-.?/ ") == std::string_view::npos || text == "–" || text == "—" ||
           std::ranges::find(nothing, lowerCasedASCII(text)) != nothing.end();
}

} // namespace

std::string lines(std::string_view cell)
{
    cell = trimmed(unwrapped(cell));
    if (lookAt(cell).isPlain) {
        return saysNothing(cell) ? std::string() : std::string(cell);
    }
    const std::string clean = withoutControls(cell);
    const std::string_view text = trimmed(clean);
    return saysNothing(text) ? std::string() : std::string(text);
}

std::string line(std::string_view cell)
{
    const std::string_view text = trimmed(unwrapped(cell));
    if (const Look look = lookAt(text); look.isPlain && look.isSingleSpaced) {
        return saysNothing(text) ? std::string() : std::string(text);
    }
    return singleSpaced(lines(cell));
}

std::string singleSpaced(std::string text)
{
    bool isSingleSpaced = true;
    for (std::size_t i = 0; i < text.size(); ++i) {
        isSingleSpaced = isSingleSpaced && text[i] != '\n' && (text[i] != ' ' || i == 0 || text[i - 1] != ' ');
    }
    if (isSingleSpaced) {
        return text;
    }
    std::ranges::replace(text, '\n', ' ');
    const auto doubled = std::ranges::unique(text, [](char left, char right) { return left == ' ' && right == ' '; });
    text.erase(doubled.begin(), doubled.end());
    return text;
}

bool isShortenedNumber(std::string_view text)
{
    if (text.empty() || text.front() < '0' || text.front() > '9') {
        return false;
    }
    const std::size_t exponent = text.find_first_of("Ee");
    if (exponent == std::string_view::npos || exponent + 2 >= text.size() || text[exponent + 1] != '+') {
        return false;
    }
    constexpr std::string_view digits = "0123456789";
    const std::string_view mantissa = text.substr(0, exponent);
    return mantissa.find_first_not_of("0123456789.,") == std::string_view::npos &&
           text.substr(exponent + 2).find_first_not_of(digits) == std::string_view::npos;
}

} // namespace Quillary::ImportCell
