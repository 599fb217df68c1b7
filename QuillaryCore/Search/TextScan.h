#pragma once

#include "QuillaryCore/Search/TextBlock.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

/// Finds the places of a text in a block, 64 at a time: by its first and last letter, which is three times as quick as
/// the C library's search.
namespace Quillary::TextScan {

/// Where a scan goes on.
enum class Then {
    nextPlace,
    nextWord, ///< in this record, only where a word begins
    nextRecord,
    stop,
};

/// In folded text.
[[nodiscard]] bool isLetter(char byte);

// Of 64 neighbouring places, a bit each; the lowest is `from`.

constexpr std::size_t width = 64;

/// Where `wanted` may stand: its first and its last letter do. `from` is no further than the text reaches.
[[nodiscard]] std::uint64_t candidates(std::string_view text, std::size_t from, std::string_view wanted);

/// Where a letter before is missing. `from` is not the first place of the text.
[[nodiscard]] std::uint64_t wordBeginnings(std::string_view text, std::size_t from);

/// Those from the `count`th on.
[[nodiscard]] constexpr std::uint64_t allFrom(std::size_t count)
{
    return count < width ? ~std::uint64_t{0} << count : 0;
}

/// Calls `visit(slot, place)` wherever `wanted`, which is not empty, stands in a record, and goes on as it says.
template <class Visitor>
void run(const TextBlock& block, std::string_view wanted, const Visitor& visit)
{
    const std::string_view text = block.text();
    std::size_t slot = 0;
    std::size_t wordsUntil = 0; // before this place only beginnings of words are wanted
    for (std::size_t from = 1; from + wanted.size() <= text.size();) {
        std::uint64_t places = candidates(text, from, wanted);
        std::optional<std::uint64_t> words; // many searches never ask for them
        const auto onlyWords = [&](std::size_t until) {
            if (!words) {
                words = wordBeginnings(text, from);
            }
            places &= *words | allFrom(until - from);
        };
        if (places != 0 && from < wordsUntil) {
            onlyWords(wordsUntil);
        }
        std::size_t next = from + width;
        while (places != 0) {
            const std::size_t place = from + static_cast<std::size_t>(std::countr_zero(places));
            places &= places - 1;
            if (wanted.size() > 2 && std::memcmp(text.data() + place, wanted.data(), wanted.size()) != 0) {
                continue;
            }
            slot = block.slotAt(place, slot);
            const Then then = visit(slot, place);
            if (then == Then::stop) {
                return;
            }
            const std::size_t end = block.end(slot);
            if (then == Then::nextRecord) {
                places &= allFrom(end - from);
                next = end > next ? end : next;
            } else if (then == Then::nextWord) {
                wordsUntil = end;
                onlyWords(end);
            }
        }
        from = next;
    }
}

} // namespace Quillary::TextScan
