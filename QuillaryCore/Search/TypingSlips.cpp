#include "QuillaryCore/Search/TypingSlips.h"

#include "QuillaryCore/Foundation/UTF8.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace Quillary {

namespace {

constexpr std::size_t shortestForgiven = 4;
constexpr std::size_t shortestForgivenTwice = 8;
/// What is longer is no word that a person mistyped.
constexpr std::size_t longestCompared = 64;

void appendUTF8(std::string& text, char32_t scalar)
{
    const auto byte = [&text](char32_t value) {
        text += static_cast<char>(static_cast<unsigned char>(value));
    };
    if (scalar < 0x80) {
        byte(scalar);
    } else if (scalar < 0x800) {
        byte(0xC0 | (scalar >> 6U));
        byte(0x80 | (scalar & 0x3FU));
    } else if (scalar < 0x10000) {
        byte(0xE0 | (scalar >> 12U));
        byte(0x80 | ((scalar >> 6U) & 0x3FU));
        byte(0x80 | (scalar & 0x3FU));
    } else {
        byte(0xF0 | (scalar >> 18U));
        byte(0x80 | ((scalar >> 12U) & 0x3FU));
        byte(0x80 | ((scalar >> 6U) & 0x3FU));
        byte(0x80 | (scalar & 0x3FU));
    }
}

std::string utf8(std::u32string_view letters)
{
    std::string text;
    for (const char32_t letter : letters) {
        appendUTF8(text, letter);
    }
    return text;
}

std::u32string swappedAt(std::u32string_view word, std::size_t border)
{
    std::u32string result(word);
    std::swap(result[border - 1], result[border]);
    return result;
}

std::uint64_t marksOf(std::u32string_view letters)
{
    std::uint64_t marks = 0;
    for (const char32_t letter : letters) {
        marks |= std::uint64_t{1} << (letter % 64);
    }
    return marks;
}

} // namespace

int TypingSlips::allowed(std::size_t letters)
{
    if (letters < shortestForgiven) {
        return 0;
    }
    return letters < shortestForgivenTwice ? 1 : 2;
}

int TypingSlips::between(std::u32string_view left, std::u32string_view right, int limit)
{
    const std::size_t difference = std::max(left.size(), right.size()) - std::min(left.size(), right.size());
    if (std::cmp_greater(difference, limit) || right.size() >= longestCompared) {
        return limit + 1;
    }
    // Optimal string alignment, three rows of the table at a time.
    std::array<std::array<int, longestCompared>, 3>
        rows; // NOLINT(cppcoreguidelines-pro-type-member-init): written first
    for (std::size_t column = 0; column <= right.size(); ++column) {
        rows[1][column] = static_cast<int>(column);
    }
    for (std::size_t row = 1; row <= left.size(); ++row) {
        const auto& before = rows[(row - 1) % 3];
        const auto& above = rows[row % 3];
        auto& here = rows[(row + 1) % 3];
        here[0] = static_cast<int>(row);
        int least = here[0];
        for (std::size_t column = 1; column <= right.size(); ++column) {
            const int cost = left[row - 1] == right[column - 1] ? 0 : 1;
            here[column] = std::min({above[column] + 1, here[column - 1] + 1, above[column - 1] + cost});
            const bool isSwapped =
                row > 1 && column > 1 && left[row - 1] == right[column - 2] && left[row - 2] == right[column - 1];
            if (isSwapped) {
                here[column] = std::min(here[column], before[column - 2] + 1);
            }
            least = std::min(least, here[column]);
        }
        if (least > limit) {
            return limit + 1;
        }
    }
    return std::min(rows[(left.size() + 1) % 3][right.size()], limit + 1);
}

std::vector<std::string> TypingSlips::probes(std::u32string_view word, int slips)
{
    // Cut into one piece more than there are slips, one piece is untouched; unless neighbours were swapped across a
    // cut, which touches two. So those swaps are made beforehand, and what they leave untouched is a probe as well.
    if (slips == 1) {
        const std::size_t cut = word.size() / 2;
        return {utf8(word.substr(0, cut)), utf8(word.substr(cut)), utf8(swappedAt(word, cut))};
    }
    const std::size_t first = word.size() / 3;
    const std::size_t second = word.size() * 2 / 3;
    const std::u32string atFirst = swappedAt(word, first);
    const std::u32string atSecond = swappedAt(word, second);
    return {utf8(word.substr(0, first)),
            utf8(word.substr(first, second - first)),
            utf8(word.substr(second)),
            utf8(std::u32string_view(atFirst).substr(0, second)),
            utf8(std::u32string_view(atSecond).substr(first)),
            utf8(swappedAt(atFirst, second))};
}

TypingSlips::Word::Word(std::string_view text, int limit)
    : m_letters(TypingSlips::letters(text))
    , m_marks(marksOf(m_letters))
    , m_limit(limit)
{
}

std::optional<int> TypingSlips::Word::slipsTo(std::string_view text) const
{
    std::array<char32_t, longestCompared>
        room; // NOLINT(cppcoreguidelines-pro-type-member-init): read as far as written
    const std::size_t most = std::min(room.size(), m_letters.size() + static_cast<std::size_t>(m_limit));
    if (text.size() + static_cast<std::size_t>(m_limit) < m_letters.size()) {
        return std::nullopt;
    }
    std::size_t count = 0;
    while (!text.empty()) {
        if (count == most) {
            return std::nullopt;
        }
        if (static_cast<unsigned char>(text.front()) < 0x80) {
            room[count++] = static_cast<unsigned char>(text.front());
            text.remove_prefix(1);
            continue;
        }
        const DecodedCharacter character = decodeFirst(text);
        room[count++] = character.scalar.value_or(0xFFFD);
        text.remove_prefix(character.length);
    }
    const std::u32string_view letters(room.data(), count);
    // A slip takes away one letter and brings another at most, so most texts are too far at a glance.
    if (std::popcount(m_marks ^ marksOf(letters)) > 2 * m_limit) {
        return std::nullopt;
    }
    const int slips = between(m_letters, letters, m_limit);
    return slips > m_limit ? std::nullopt : std::optional(slips);
}

std::u32string TypingSlips::letters(std::string_view text)
{
    std::u32string result;
    while (!text.empty()) {
        const DecodedCharacter character = decodeFirst(text);
        result += character.scalar.value_or(0xFFFD);
        text.remove_prefix(character.length);
    }
    return result;
}

} // namespace Quillary
