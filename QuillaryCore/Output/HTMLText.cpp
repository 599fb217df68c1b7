#include "QuillaryCore/Output/HTMLText.h"

#include "QuillaryCore/Foundation/UTF8.h"

#include <unicode/uchar.h>

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>

namespace Quillary::HTMLText {

namespace {

constexpr std::string_view replacementCharacter = "\uFFFD";
constexpr unsigned char firstRightToLeftLead = 0xD6; ///< nothing before U+0580 is written from the right

/// True for the bytes that a run goes on over.
constexpr std::array<bool, 256> plainBytes = [] {
    std::array<bool, 256> table{};
    for (std::size_t byte = 0x20; byte < 0x7F; ++byte) {
        table.at(byte) = true;
    }
    for (const std::string_view plain : {"\t", "\n", "\r"}) {
        table.at(static_cast<unsigned char>(plain.front())) = true;
    }
    for (const std::string_view special : {"&", "<", ">", "\"", "'"}) {
        table.at(static_cast<unsigned char>(special.front())) = false;
    }
    return table;
}();

/// A character to look at, and what stands on the page for it. No value: it stands for itself.
struct Special
{
    std::size_t length;
    std::optional<std::string_view> instead;
};

std::string_view insteadOfASCII(char character)
{
    switch (character) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\'':
        return "&#39;";
    case '\0':
        return replacementCharacter;
    default:
        return {}; // a control character
    }
}

Special special(std::string_view text)
{
    if (static_cast<unsigned char>(text.front()) < 0x80) {
        return {1, insteadOfASCII(text.front())};
    }
    const DecodedCharacter character = decodeFirst(text);
    if (!character.scalar) {
        return {character.length, replacementCharacter};
    }
    const char32_t scalar = *character.scalar;
    const bool isControl = scalar <= 0x9F;
    const bool isEmbedding = scalar >= 0x202A && scalar <= 0x202E;
    const bool isIsolate = scalar >= 0x2066 && scalar <= 0x2069;
    if (isControl || isEmbedding || isIsolate) {
        return {character.length, std::string_view()};
    }
    return {character.length, std::nullopt};
}

/// Bytes in one register, on every processor that has them (the compilers' common vector extension). Signed, so that
/// what lies beyond ASCII counts as less than a space.
template <std::size_t size>
using Chunk [[gnu::vector_size(size)]] = signed char;

/// The first bytes of a text, eight in a word: all bits of a byte are set where it is no ASCII that stands for itself.
/// Line ends and tabs are left to a closer look.
template <std::size_t size>
std::array<std::uint64_t, size / sizeof(std::uint64_t)> specialBytes(const char* bytes)
{
    Chunk<size> chunk;
    std::memcpy(&chunk, bytes, sizeof chunk);
    static_assert(('&' ^ '\'') == 1 && ('<' ^ '>') == 2, "two signs are one comparison without the bit they differ in");
    const auto special =
        (chunk < ' ') | (chunk == '\x7F') | (chunk == '"') | ((chunk & ~1) == '&') | ((chunk & ~2) == '<');
    std::array<std::uint64_t, size / sizeof(std::uint64_t)> words{};
    std::memcpy(words.data(), &special, sizeof special);
    return words;
}

/// The bytes in front of the first one that is marked; some byte is.
std::size_t bytesBeforeMark(std::uint64_t word)
{
    constexpr std::size_t byteBits = 8;
    const bool isFirstLowest = std::endian::native == std::endian::little;
    return static_cast<std::size_t>(isFirstLowest ? std::countr_zero(word) : std::countl_zero(word)) / byteBits;
}

/// How many bytes at the beginning of a text are ASCII that stands for itself.
std::size_t plainStart(std::string_view text)
{
    constexpr std::size_t word = sizeof(std::uint64_t);
    const char* const bytes = text.data();
    std::size_t position = 0;
    for (; position + 2 * word <= text.size(); position += 2 * word) {
        if (const auto words = specialBytes<2 * word>(bytes + position); (words[0] | words[1]) != 0) {
            return position + (words[0] != 0 ? bytesBeforeMark(words[0]) : word + bytesBeforeMark(words[1]));
        }
    }
    if (position + word <= text.size()) {
        if (const auto words = specialBytes<word>(bytes + position); words[0] != 0) {
            return position + bytesBeforeMark(words[0]);
        }
        position += word;
    }
    if (text.size() >= word) { // the last eight bytes; those of them that were looked at already are plain
        const std::size_t last = text.size() - word;
        const auto words = specialBytes<word>(bytes + last);
        return words[0] != 0 ? last + bytesBeforeMark(words[0]) : text.size();
    }
    while (position < text.size() && plainBytes[static_cast<unsigned char>(text[position])]) {
        ++position;
    }
    return position;
}

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The bytes of the first character if it stands for itself and need not be decoded to see it: ASCII, the letters of the
/// document languages, the no-break space, the euro sign. 0: it has to be looked at.
std::size_t plainLength(std::string_view text)
{
    const auto byte = static_cast<unsigned char>(text.front());
    if (plainBytes[byte]) {
        return 1;
    }
    const bool isLetter = byte >= 0xC3 && byte < firstRightToLeftLead && text.size() > 1 && isContinuation(text[1]);
    if (isLetter || text.starts_with("\u00A0")) {
        return 2;
    }
    return text.starts_with("\u20AC") ? 3 : 0;
}

/// Where the next character is that has to be looked at; the end of the text if there is none.
std::size_t skipPlain(std::string_view text, std::size_t position)
{
    while (true) {
        position += plainStart(text.substr(position));
        if (position == text.size()) {
            return position;
        }
        // Letters beyond ASCII stand together.
        do {
            const std::size_t length = plainLength(text.substr(position));
            if (length == 0) {
                return position;
            }
            position += length;
        } while (position < text.size() && static_cast<unsigned char>(text[position]) >= 0x80);
    }
}

/// Hebrew, Arabic and other scripts begin with these bytes only. Of the remaining ones that begin so, Unicode's data tells
/// which are written from the right.
bool isRightToLeft(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    if (lead < firstRightToLeftLead || (lead > 0xE0 && lead != 0xEF && lead != 0xF0)) {
        return false;
    }
    const UCharDirection direction = u_charDirection(static_cast<UChar32>(decodeFirst(text).scalar.value_or(U' ')));
    return direction == U_RIGHT_TO_LEFT || direction == U_RIGHT_TO_LEFT_ARABIC || direction == U_ARABIC_NUMBER;
}

enum class Direction { leftToRight, rightToLeft };

/// Appends a text in which a character has to be looked at; the first of them is at `position`.
Direction appendSpecialText(std::string& html, std::string_view text, std::size_t position)
{
    Direction direction = Direction::leftToRight;
    std::size_t runStart = 0;
    for (; position < text.size(); position = skipPlain(text, position)) {
        const std::string_view rest = text.substr(position);
        if (isRightToLeft(rest)) {
            direction = Direction::rightToLeft;
        }
        const Special found = special(rest);
        if (found.instead) {
            html.append(text, runStart, position - runStart).append(*found.instead);
            runStart = position + found.length;
        }
        position += found.length;
    }
    html.append(text, runStart);
    return direction;
}

/// Appends the text; tells whether any of it is written from the right.
Direction appendText(std::string& html, std::string_view text)
{
    const std::size_t plain = skipPlain(text, 0);
    if (plain == text.size()) {
        html += text;
        return Direction::leftToRight;
    }
    return appendSpecialText(html, text, plain);
}

} // namespace

void append(std::string& html, std::string_view text)
{
    appendText(html, text);
}

void appendMarkup(std::string& html, std::string_view markup)
{
    html += markup;
}

bool hasRightToLeft(std::string_view text)
{
    for (std::size_t position = skipPlain(text, 0); position < text.size(); position = skipPlain(text, position)) {
        const std::string_view rest = text.substr(position);
        if (isRightToLeft(rest)) {
            return true;
        }
        position += special(rest).length;
    }
    return false;
}

void appendIsolated(std::string& html, std::string_view text)
{
    const std::size_t start = html.size();
    if (appendText(html, text) == Direction::rightToLeft) {
        html.insert(start, "<bdi>");
        html += "</bdi>";
    }
}

} // namespace Quillary::HTMLText
