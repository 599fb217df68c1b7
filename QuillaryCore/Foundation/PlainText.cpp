#include "QuillaryCore/Foundation/PlainText.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UTF8.h"

#include <fmt/format.h>

namespace Quillary {

namespace {

constexpr std::size_t longestQuote = 60;
/// Unit: bytes of one character; only hostile text has longer ones.
constexpr std::size_t longestCharacter = 32;

/// Controls, line separators and white space, all of which a reader may take for the end of a line or of a field.
bool isSpace(char32_t scalar)
{
    return scalar <= 0x20 || (scalar >= 0x7F && scalar <= 0x9F) || scalar == 0x2028 || scalar == 0x2029;
}

/// Marks without ink that turn or hide what stands beside them.
bool isHiding(char32_t scalar)
{
    return (scalar >= 0x202A && scalar <= 0x202E) || (scalar >= 0x2060 && scalar <= 0x206F) || scalar == 0x200B ||
           scalar == 0xFEFF || (scalar >= 0xE0000 && scalar <= 0xE0FFF);
}

/// The bracket that stands for a square one, of whatever width; empty for any other character.
std::string_view roundBracket(char32_t scalar)
{
    switch (scalar) {
    case U'[':
    case U'［':
    case U'⁅':
    case U'⟦':
    case U'〚':
        return "(";
    case U']':
    case U'］':
    case U'⁆':
    case U'⟧':
    case U'〛':
        return ")";
    default:
        return {};
    }
}

} // namespace

std::string plainText(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    bool hasSpace = false;
    while (!text.empty()) {
        const DecodedCharacter character = decodeFirst(text);
        const std::string_view bytes = text.substr(0, character.length);
        text.remove_prefix(character.length);
        const char32_t scalar = character.scalar.value_or(0xFFFD);
        if (isSpace(scalar)) {
            hasSpace = !result.empty();
            continue;
        }
        if (isHiding(scalar)) {
            continue;
        }
        if (hasSpace) {
            result += ' ';
            hasSpace = false;
        }
        const std::string_view bracket = roundBracket(scalar);
        result += bracket.empty() ? (character.scalar ? bytes : "\uFFFD") : bracket;
    }
    return result;
}

std::string plainText(std::string_view text, std::size_t limit)
{
    const bool isHuge = text.size() > limit * longestCharacter;
    const std::string whole = plainText(text.substr(0, limit * longestCharacter));
    const std::string_view shown = graphemePrefix(whole, limit);
    return fmt::format("{}{}", shown, isHuge || shown.size() < whole.size() ? "…" : "");
}

std::string inQuotes(std::string_view text)
{
    return fmt::format("“{}”", plainText(text, longestQuote));
}

} // namespace Quillary
