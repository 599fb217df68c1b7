#include "QuillaryCore/Assistant/TextIndex.h"

#include "QuillaryCore/Assistant/TypingSlips.h"
#include "QuillaryCore/Foundation/Text.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <optional>
#include <utility>

namespace Quillary {

namespace {

constexpr char fieldEnd = '\n';
constexpr std::uint8_t nothing = 0xFF;

/// A word that stands in more records than this is no help in finding one of them.
constexpr std::size_t mostCompared = 10'000;

/// Some spare text is cheaper than filling the index again.
constexpr std::size_t sparedEntries = 10'000;

/// The next place of `text` in `block`, which has no faster reader than the C library's.
std::size_t next(const std::string& block, std::string_view text, std::size_t from)
{
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

/// The runs of letters and digits, without what joins them.
std::vector<std::string_view> tokensOf(std::string_view text)
{
    std::vector<std::string_view> tokens;
    while (true) {
        const auto begin = std::ranges::find_if(text, isLetter);
        if (begin == text.end()) {
            return tokens;
        }
        const auto end = std::find_if_not(begin, text.end(), isLetter);
        tokens.emplace_back(begin, end);
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
    /// Calls `visit(slot, place)` wherever `text` stands in a record; when it returns true the rest of the record is
    /// passed over.
    template <class Visitor>
    void scan(std::string_view text, const Visitor& visit) const
    {
        std::size_t slot = 0;
        std::size_t place = next(m_index.m_block, text, 0);
        while (place != std::string::npos) {
            while (slot + 1 < m_index.m_entries.size() && m_index.m_entries[slot + 1].begin <= place) {
                ++slot;
            }
            const bool isDone = !m_index.m_entries[slot].isAlive || visit(slot, place);
            place = next(m_index.m_block, text, isDone ? m_index.end(slot) - 1 : place + 1);
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
            return rank == Rank::exact;
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
            return true;
        });
    }

    void findSimilar()
    {
        const std::vector<std::string_view> tokens = tokensOf(m_query);
        std::u32string longest;
        for (const std::string_view token : tokens) {
            m_tokens.push_back({TypingSlips::letters(token), hasDigit(token)});
            longest = std::max(longest, m_tokens.back().letters, [](const auto& left, const auto& right) {
                return left.size() < right.size();
            });
        }
        const int forgiven = TypingSlips::allowed(longest.size());
        if (forgiven == 0) {
            return;
        }
        m_whole = {TypingSlips::letters(m_query), hasDigit(m_query)};
        m_number = meantNumber(m_query);
        std::vector<bool> compared(m_index.m_entries.size());
        std::size_t count = 0;
        for (const std::string& probe : TypingSlips::probes(longest, forgiven)) {
            scan(probe, [&](std::size_t slot, std::size_t) {
                if (!compared[slot] && count < mostCompared) {
                    compared[slot] = true;
                    ++count;
                    compare(slot);
                }
                return true;
            });
        }
    }

    /// Looks for the query in one record, slips forgiven.
    void compare(std::size_t slot)
    {
        std::size_t place = m_index.m_entries[slot].begin;
        std::vector<int> best(m_tokens.size(), unlike);
        bool own = true;
        for (const std::string_view field : split(text(slot), fieldEnd)) {
            const bool isOwnField = isOwn(slot, place);
            place += field.size() + 1;
            const bool isSameNumber = m_whole.hasDigit && meantNumber(field) == m_number;
            const int whole = isSameNumber ? 1 : slips(field, m_whole);
            if (whole != unlike) {
                note(slot, Rank::similar, isOwnField, whole);
            }
            for (const std::string_view word : tokensOf(field)) {
                for (std::size_t index = 0; index < m_tokens.size(); ++index) {
                    const int here = slips(word, m_tokens[index]);
                    own = own && (isOwnField || here >= best[index]);
                    best[index] = std::min(best[index], here);
                }
            }
        }
        if (std::ranges::find(best, unlike) == best.end()) {
            note(slot, Rank::similar, own, std::ranges::max(best));
        }
    }

    /// A piece of the query. With a digit in it, it is a number or a code, of which any other is another one.
    struct Token
    {
        std::u32string letters;
        bool hasDigit = false;
    };

    /// More slips than are forgiven: `unlike`.
    [[nodiscard]] static int slips(std::string_view text, const Token& token)
    {
        const std::u32string& wanted = token.letters;
        const int limit = token.hasDigit ? 0 : TypingSlips::allowed(wanted.size());
        // A letter has at most four bytes, and most texts are too long or too short at a glance.
        const bool isFar = text.size() + static_cast<std::size_t>(limit) < wanted.size() ||
                           text.size() > 4 * (wanted.size() + static_cast<std::size_t>(limit));
        if (isFar || text.empty()) {
            return unlike;
        }
        const int count = TypingSlips::between(wanted, TypingSlips::letters(text), limit);
        return count > limit ? unlike : count;
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
    Token m_whole;
    std::string m_number;
    std::vector<Token> m_tokens;
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
