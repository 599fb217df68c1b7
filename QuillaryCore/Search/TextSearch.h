#pragma once

#include "QuillaryCore/Search/TextBlock.h"
#include "QuillaryCore/Search/TextHits.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace Quillary {

/// One search through a block for a query that is prepared as its texts are and is not empty.
class TextSearch
{
public:
    /// `hits` is empty and has a place for each slot of the block.
    TextSearch(const TextBlock& block, std::string_view query, TextHits& hits);

    /// Finds the records that hold the query: as it stands, or its words in other places.
    void findHolding();

    /// Finds those that hold it but for slips in typing, as far as they are among the first 5,000 that come near it.
    void findSimilar();

private:
    [[nodiscard]] TextRank rankAt(std::size_t place, bool isOwn) const;
    void findWhole();
    void findWords();
    [[nodiscard]] bool holdsAllWords(std::string_view text) const;

    const TextBlock& m_block;
    std::string_view m_query;
    std::vector<std::string_view> m_words;
    TextHits& m_hits;
};

} // namespace Quillary
