#include "QuillaryCore/Search/TextIndex.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Search/TypingSlips.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <iterator>
#include <optional>
#include <utility>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace Quillary {

namespace {

constexpr char fieldEnd = '\n';
constexpr std::uint8_t nothing = 0xFF;

/// A word that stands in more records than this is no help in finding one of them.
constexpr std::size_t mostCompared = 5'000;

/// Some spare text is cheaper than filling the index again.
constexpr std::size_t sparedEntries = 10'000;

#ifdef __SSE2__
/// The first place in `block` at which the first and the last letter of `text` stand as they do in it, and
/// all between them; sixteen places at a time. No value: none before the last few places; `stopped` says which.
std::optional<std::size_t>
nextOfSixteen(const std::string& block, std::string_view text, std::size_t from, std::size_t& stopped)
{
    const __m128i first = _mm_set1_epi8(text.front());
    const __m128i last = _mm_set1_epi8(text.back());
    const auto at = [&block](std::size_t place) {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(block.data() + place));
    };
    std::size_t place = from;
    for (; place + text.size() - 1 + sizeof(__m128i) <= block.size(); place += sizeof(__m128i)) {
        const __m128i isFirst = _mm_cmpeq_epi8(at(place), first);
        const __m128i isLast = _mm_cmpeq_epi8(at(place + text.size() - 1), last);
        auto both = static_cast<unsigned>(_mm_movemask_epi8(_mm_and_si128(isFirst, isLast)));
        for (; both != 0; both &= both - 1) {
            const std::size_t here = place + static_cast<std::size_t>(std::countr_zero(both));
            if (std::memcmp(block.data() + here, text.data(), text.size()) == 0) {
                return here;
            }
        }
    }
    stopped = place;
    return std::nullopt;
}
#endif

/// The next place of `text` in `block`. Searching by first and last letter is three times as quick as the C library.
std::size_t next(const std::string& block, std::string_view text, std::size_t from)
{
#ifdef __SSE2__
    if (const std::optional<std::size_t> place = nextOfSixteen(block, text, from, from)) {
        return *place;
    }
#endif
    const void* found = memmem(block.data() + from, block.size() - from, text.data(), text.size());
    return found == nullptr ? std::string::npos
                            : static_cast<std::size_t>(static_cast<const char*>(found) - block.data());
}

bool isLetter(char byte)
{
    const auto value = static_cast<unsigned char>(byte);
    return value >= 0x80 || (value >= 'a' && value <= 'z') || (value >= '0' && value <= '9');
}

std::vector<std::string_view> wordsOf(std::string_view text)
{
    std::vector<std::string_view> words;
    for (const std::string_view word : split(text, ' ')) {
        if (!word.empty()) {
            words.push_back(word);
        }
    }
    return words;
}

/// Visits the runs of letters and digits, without what joins them.
template <class Visitor>
void forEachToken(std::string_view text, const Visitor& visit)
{
    while (true) {
        const auto begin = std::ranges::find_if(text, isLetter);
        if (begin == text.end()) {
            return;
        }
        const auto end = std::find_if_not(begin, text.end(), isLetter);
        visit(std::string_view(begin, end));
        text = std::string_view(end, text.end());
    }
}

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

bool hasDigit(std::string_view text)
{
    return std::ranges::any_of(text, isDigit);
}

/// A number as it is meant: "INV-2026-001", "inv 2026 1" and "Inv2026/01" are one, and no other number is near it.
std::string meantNumber(std::string_view text)
{
    std::string result;
    char before = ' ';
    for (std::size_t index = 0; index < text.size(); ++index) {
        const bool isLeadingZero =
            text[index] == '0' && !isDigit(before) && index + 1 < text.size() && isDigit(text[index + 1]);
        if (isLetter(text[index]) && !isLeadingZero) {
            const bool joinsNumbers =
                isDigit(text[index]) && !isDigit(before) && !result.empty() && isDigit(result.back());
            result += joinsNumbers ? " " : "";
            result += text[index];
        }
        before = isLeadingZero ? ' ' : text[index];
    }
    return result;
}

std::string prepared(std::string_view text)
{
    return replacing(folded(trimmed(text)), "\n", " ");
}

} // namespace

/// One search through the block. What is found is written down by slot: half a byte of rank, then whether it was the
/// record's own text, so that the lowest is the best.
class TextIndex::Search
{
public:
    Search(const TextIndex& index, std::string_view query)
        : m_index(index)
        , m_query(query)
        , m_words(wordsOf(query))
        , m_found(index.m_entries.size(), nothing)
    {
    }

    [[nodiscard]] std::vector<Hit> run(Slips forgiveness)
    {
        findWhole();
        if (m_words.size() > 1) {
            findWords();
        }
        if (!m_hasFound && forgiveness == Slips::forgiven) {
            findSimilar();
        }
        return hits();
    }

private:
    enum class Then { nextPlace, nextRecord, stop };

    /// Calls `visit(slot, place)` wherever `text` stands in a record, and goes on as it says.
    template <class Visitor>
    void scan(std::string_view text, const Visitor& visit) const
    {
        std::size_t slot = 0;
        std::size_t place = next(m_index.m_block, text, 0);
        while (place != std::string::npos) {
            while (slot + 1 < m_index.m_entries.size() && m_index.m_entries[slot + 1].begin <= place) {
                ++slot;
            }
            const Then then = m_index.m_entries[slot].isAlive ? visit(slot, place) : Then::nextRecord;
            if (then == Then::stop) {
                return;
            }
            place = next(m_index.m_block, text, then == Then::nextRecord ? m_index.end(slot) - 1 : place + 1);
        }
    }

    void note(std::size_t slot, Rank rank, bool isOwn, int slips = 0)
    {
        const auto value = static_cast<std::uint8_t>((static_cast<unsigned>(rank) << 4U) |
                                                     (static_cast<unsigned>(slips) << 1U) | (isOwn ? 0U : 1U));
        m_found[slot] = std::min(m_found[slot], value);
        m_hasFound = true;
    }

    [[nodiscard]] bool isOwn(std::size_t slot, std::size_t place) const
    {
        return place < m_index.m_entries[slot].further;
    }

    [[nodiscard]] Rank rankAt(std::size_t place, bool own) const
    {
        const std::string& block = m_index.m_block;
        const bool begins = block[place - 1] == fieldEnd;
        if (begins && own) {
            return block[place + m_query.size()] == fieldEnd ? Rank::exact : Rank::beginning;
        }
        return begins || !isLetter(block[place - 1]) ? Rank::word : Rank::inside;
    }

    void findWhole()
    {
        scan(m_query, [this](std::size_t slot, std::size_t place) {
            const bool own = isOwn(slot, place);
            const Rank rank = rankAt(place, own);
            note(slot, rank, own);
            return rank == Rank::exact ? Then::nextRecord : Then::nextPlace;
        });
    }

    [[nodiscard]] std::string_view longestWord() const
    {
        return *std::ranges::max_element(m_words, {}, [](std::string_view word) { return word.size(); });
    }

    [[nodiscard]] std::string_view text(std::size_t slot) const
    {
        const std::size_t begin = m_index.m_entries[slot].begin;
        return std::string_view(m_index.m_block).substr(begin, m_index.end(slot) - begin);
    }

    void findWords()
    {
        scan(longestWord(), [this](std::size_t slot, std::size_t) {
            const std::string_view all = text(slot);
            const std::string_view own = all.substr(0, m_index.m_entries[slot].further - m_index.m_entries[slot].begin);
            const auto holds = [this](std::string_view within) {
                return std::ranges::all_of(
                    m_words, [&](std::string_view word) { return within.find(word) != std::string_view::npos; });
            };
            if (holds(all)) {
                note(slot, Rank::words, holds(own));
            }
            return Then::nextRecord;
        });
    }

    void findSimilar()
    {
        std::u32string longest;
        forEachToken(m_query, [&](std::string_view token) {
            m_tokens.push_back(forgiving(token));
            const std::u32string letters = TypingSlips::letters(token);
            longest = letters.size() > longest.size() ? letters : longest;
        });
        const int forgiven = TypingSlips::allowed(longest.size());
        if (forgiven == 0) {
            return;
        }
        m_whole = forgiving(m_query);
        m_number = meantNumber(m_query);
        std::vector<bool> compared(m_index.m_entries.size());
        std::size_t count = 0;
        for (const std::string& probe : TypingSlips::probes(longest, forgiven)) {
            scan(probe, [&](std::size_t slot, std::size_t) {
                if (!compared[slot]) {
                    compared[slot] = true;
                    ++count;
                    compare(slot);
                }
                return count < mostCompared ? Then::nextRecord : Then::stop;
            });
        }
    }

    /// Looks for the query in one record, slips forgiven.
    void compare(std::size_t slot)
    {
        std::size_t place = m_index.m_entries[slot].begin;
        m_best.assign(m_tokens.size(), unlike);
        bool own = true;
        for (const std::size_t end = m_index.end(slot); place < end;) {
            const std::string_view rest = std::string_view(m_index.m_block).substr(place, end - place);
            const std::string_view field = rest.substr(0, rest.find(fieldEnd));
            const bool isOwnField = isOwn(slot, place);
            place += field.size() + 1;
            const bool isSameNumber = hasDigit(m_query) && meantNumber(field) == m_number;
            if (const std::optional<int> whole = isSameNumber ? 1 : m_whole.slipsTo(field)) {
                note(slot, Rank::similar, isOwnField, *whole);
            }
            forEachToken(field, [&](std::string_view word) {
                for (std::size_t index = 0; index < m_tokens.size(); ++index) {
                    const int here = m_tokens[index].slipsTo(word).value_or(unlike);
                    own = own && (isOwnField || here >= m_best[index]);
                    m_best[index] = std::min(m_best[index], here);
                }
            });
        }
        if (std::ranges::find(m_best, unlike) == m_best.end()) {
            note(slot, Rank::similar, own, std::ranges::max(m_best));
        }
    }

    /// A piece of the query. With a digit in it, it is a number or a code, of which any other is another one.
    [[nodiscard]] static TypingSlips::Word forgiving(std::string_view text)
    {
        return {text, hasDigit(text) ? 0 : TypingSlips::allowed(TypingSlips::letters(text).size())};
    }

    [[nodiscard]] std::vector<Hit> hits() const
    {
        std::vector<Hit> result;
        for (std::size_t slot = 0; slot < m_found.size(); ++slot) {
            const unsigned value = m_found[slot];
            if (value != nothing) {
                const Entry& entry = m_index.m_entries[slot];
                result.push_back({.key = entry.key,
                                  .slot = slot,
                                  .order = entry.order,
                                  .rank = static_cast<Rank>(value >> 4U),
                                  .isOwn = (value & 1U) == 0,
                                  .slips = static_cast<int>((value >> 1U) & 7U)});
            }
        }
        return result;
    }

    static constexpr int unlike = 7;

    const TextIndex& m_index;
    std::string_view m_query;
    std::vector<std::string_view> m_words;
    TypingSlips::Word m_whole{"", 0};
    std::string m_number;
    std::vector<TypingSlips::Word> m_tokens;
    std::vector<int> m_best; ///< of the record that is compared: the fewest slips for each token
    std::vector<std::uint8_t> m_found;
    bool m_hasFound = false;
};

bool operator<(const TextIndex::Hit& left, const TextIndex::Hit& right)
{
    const auto place = [](const TextIndex::Hit& hit) {
        return std::tuple(hit.rank, hit.slips, !hit.isOwn, -hit.order, -hit.key);
    };
    return place(left) < place(right);
}

void TextIndex::append(std::string_view text)
{
    if (!text.empty()) {
        m_block += prepared(text);
        m_block += fieldEnd;
    }
}

std::size_t TextIndex::end(std::size_t slot) const
{
    return slot + 1 < m_entries.size() ? m_entries[slot + 1].begin : m_block.size();
}

std::size_t TextIndex::put(Key key,
                           std::int64_t order,
                           std::span<const std::string_view> own,
                           std::span<const std::string_view> further)
{
    remove(key);
    if (m_block.empty()) {
        m_block += fieldEnd;
    }
    const std::size_t slot = m_entries.size();
    const std::size_t begin = m_block.size();
    for (const std::string_view text : own) {
        append(text);
    }
    m_entries.push_back({.begin = begin, .further = m_block.size(), .key = key, .order = order, .isAlive = true});
    for (const std::string_view text : further) {
        append(text);
    }
    m_places.insert_or_assign(key, slot);
    return slot;
}

void TextIndex::remove(Key key)
{
    const auto place = m_places.find(key);
    if (place != m_places.end()) {
        m_entries[place->second].isAlive = false;
        m_places.erase(place);
    }
}

void TextIndex::clear()
{
    m_block.clear();
    m_entries.clear();
    m_places.clear();
}

void TextIndex::reserve(std::size_t records)
{
    constexpr std::size_t usualText = 80;
    m_block.reserve(records * usualText);
    m_entries.reserve(records);
    m_places.reserve(records);
}

bool TextIndex::isWorn() const
{
    return m_entries.size() > 2 * size() + sparedEntries;
}

std::vector<TextIndex::Hit> TextIndex::find(std::string_view query, Slips slips) const
{
    const std::string wanted = prepared(query);
    return wanted.empty() || m_entries.empty() ? std::vector<Hit>() : Search(*this, wanted).run(slips);
}

std::vector<TextIndex::Hit> TextIndex::all() const
{
    std::vector<Hit> result;
    result.reserve(size());
    for (std::size_t slot = 0; slot < m_entries.size(); ++slot) {
        if (m_entries[slot].isAlive) {
            result.push_back({.key = m_entries[slot].key, .slot = slot, .order = m_entries[slot].order});
        }
    }
    return result;
}

} // namespace Quillary
