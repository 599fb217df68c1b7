#include "QuillaryCore/Search/TextSearch.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Search/SimilarText.h"
#include "QuillaryCore/Search/TextScan.h"
#include "QuillaryCore/Search/TypingSlips.h"

#include <algorithm>
#include <optional>
#include <string>

namespace Quillary {

namespace {

using TextScan::Then;

/// A word that stands in more records than this is no help in finding one of them.
constexpr std::size_t mostCompared = 5'000;

std::vector<std::string_view> wordsOf(std::string_view text)
{
    std::vector<std::string_view> words = split(text, ' ');
    std::erase(words, "");
    return words;
}

} // namespace

TextSearch::TextSearch(const TextBlock& block, std::string_view query, TextHits& hits)
    : m_block(block)
    , m_query(query)
    , m_words(wordsOf(query))
    , m_hits(hits)
{
}

void TextSearch::findHolding()
{
    if (m_words.size() > 1) {
        findWords();
    } else {
        findWhole();
    }
}

TextRank TextSearch::rankAt(std::size_t place, bool isOwn) const
{
    const std::string_view text = m_block.text();
    const bool begins = text[place - 1] == TextBlock::border;
    if (begins && isOwn) {
        return text[place + m_query.size()] == TextBlock::border ? TextRank::exact : TextRank::beginning;
    }
    return begins || !TextScan::isLetter(text[place - 1]) ? TextRank::word : TextRank::inside;
}

void TextSearch::findWhole()
{
    TextScan::run(m_block, m_query, [this](std::size_t slot, std::size_t place) {
        const bool isOwn = m_block.isOwn(slot, place);
        const TextRank rank = rankAt(place, isOwn);
        m_hits.note(slot, rank, isOwn);
        // Only the beginning of a word can be better than this place, and of no further text if this is one's already.
        const bool isBest = rank == TextRank::exact || (rank == TextRank::word && !isOwn);
        return isBest ? Then::nextRecord : Then::nextWord;
    });
}

/// Whatever holds the query, or all its words, holds the longest of them: the block is read once.
void TextSearch::findWords()
{
    const auto longest = std::ranges::max_element(m_words, {}, [](std::string_view word) { return word.size(); });
    const auto offset = static_cast<std::size_t>(longest->data() - m_query.data());
    std::optional<std::size_t> lastSlot;
    TextScan::run(m_block, *longest, [&](std::size_t slot, std::size_t place) {
        const bool hasRoom = place >= m_block.begin(slot) + offset;
        if (hasRoom && m_block.text().substr(place - offset, m_query.size()) == m_query) {
            const bool isOwn = m_block.isOwn(slot, place);
            m_hits.note(slot, rankAt(place - offset, isOwn), isOwn);
        }
        if (lastSlot != slot && holdsAllWords(m_block.textOf(slot))) {
            m_hits.note(slot, TextRank::words, holdsAllWords(m_block.ownTextOf(slot)));
        }
        lastSlot = slot;
        return Then::nextPlace;
    });
}

bool TextSearch::holdsAllWords(std::string_view text) const
{
    return std::ranges::all_of(m_words, [text](std::string_view word) { return text.contains(word); });
}

void TextSearch::findSimilar()
{
    const std::u32string longest = SimilarText::longestToken(m_query);
    const int forgiven = TypingSlips::allowed(longest.size());
    if (forgiven == 0) {
        return;
    }
    SimilarText similar(m_query);
    const auto compare = [&](std::size_t slot) {
        if (const auto likeness = similar.likenessTo(m_block.ownTextOf(slot), m_block.textOf(slot))) {
            m_hits.note(slot, TextRank::similar, likeness->isOwn, likeness->slips);
        }
    };
    std::vector<bool> compared(m_block.slotCount());
    std::size_t count = 0;
    for (const std::string& probe : TypingSlips::probes(longest, forgiven)) {
        TextScan::run(m_block, probe, [&](std::size_t slot, std::size_t) {
            if (!compared[slot]) {
                compared[slot] = true;
                ++count;
                compare(slot);
            }
            return count < mostCompared ? Then::nextRecord : Then::stop;
        });
    }
}

} // namespace Quillary
