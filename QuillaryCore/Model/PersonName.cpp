#include "QuillaryCore/Model/PersonName.h"

#include "QuillaryCore/Foundation/Text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace Quillary {

namespace {

constexpr std::array<std::string_view, 40> particles = {
    "'s",  "'t",  "af",  "al",  "am",  "av",  "ben", "bin", "d'",  "da", "dal", "de",  "degli", "dei",
    "del", "dem", "den", "der", "des", "di",  "do",  "dos", "du",  "el", "het", "ibn", "la",    "las",
    "le",  "los", "op",  "ten", "ter", "und", "van", "vom", "von", "zu", "zum", "zur"};

constexpr std::array<std::string_view, 12> suffixes = {
    "jr", "jr.", "sr", "sr.", "ii", "iii", "iv", "mba", "phd", "ph.d.", "m.a.", "m.sc."};

template <std::size_t count>
bool isAmong(const std::array<std::string_view, count>& words, std::string_view word)
{
    return std::ranges::find(words, folded(word)) != words.end();
}

std::vector<std::string_view> wordsOf(std::string_view text)
{
    std::vector<std::string_view> words;
    for (const std::string_view word : split(text, ' ')) {
        if (const std::string_view plain = trimmed(word); !plain.empty()) {
            words.push_back(plain);
        }
    }
    return words;
}

std::string joined(std::span<const std::string_view> words)
{
    std::string text;
    for (const std::string_view word : words) {
        text += text.empty() ? "" : " ";
        text += word;
    }
    return text;
}

bool areSuffixes(std::span<const std::string_view> words)
{
    return std::ranges::all_of(words, [](std::string_view word) { return isAmong(suffixes, word); });
}

} // namespace

PersonName personName(std::string_view fullName)
{
    const std::size_t comma = fullName.find(',');
    if (comma != std::string_view::npos) {
        const auto behind = wordsOf(fullName.substr(comma + 1));
        if (!areSuffixes(behind)) {
            return {joined(behind), joined(wordsOf(fullName.substr(0, comma)))};
        }
    }
    const std::vector<std::string_view> words = wordsOf(fullName);
    std::size_t last = words.size();
    while (last > 1 && isAmong(suffixes, words[last - 1])) {
        --last;
    }
    last -= last > 0 ? 1 : 0;
    while (last > 1 && isAmong(particles, words[last - 1])) {
        --last;
    }
    const std::span all(words);
    return {joined(all.first(last)), joined(all.subspan(last))};
}

} // namespace Quillary
