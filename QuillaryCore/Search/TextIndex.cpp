#include "QuillaryCore/Search/TextIndex.h"

#include "QuillaryCore/Search/TextSearch.h"

#include <string>

namespace Quillary {

namespace {

/// Some spare text is cheaper than filling the index again.
constexpr std::size_t sparedRecords = 10'000;

} // namespace

std::size_t TextIndex::put(Key key,
                           std::int64_t order,
                           std::span<const std::string_view> own,
                           std::span<const std::string_view> further)
{
    remove(key);
    const std::size_t slot = m_block.add(own, further);
    m_keys.push_back(key);
    m_orders.push_back(order);
    m_isThere.push_back(true);
    m_places.insert_or_assign(key, slot);
    return slot;
}

void TextIndex::remove(Key key)
{
    const auto place = m_places.find(key);
    if (place != m_places.end()) {
        m_block.blank(place->second);
        m_isThere[place->second] = false;
        m_places.erase(place);
    }
}

void TextIndex::clear()
{
    m_block.clear();
    m_keys.clear();
    m_orders.clear();
    m_isThere.clear();
    m_places.clear();
}

void TextIndex::reserve(std::size_t records)
{
    m_block.reserve(records);
    m_keys.reserve(records);
    m_orders.reserve(records);
    m_isThere.reserve(records);
    m_places.reserve(records);
}

bool TextIndex::isWorn() const
{
    return m_keys.size() > 2 * size() + sparedRecords;
}

TextHits TextIndex::none() const
{
    return TextHits({.keys = m_keys, .orders = m_orders});
}

TextHits TextIndex::find(std::string_view query, Slips slips) const
{
    TextHits hits = none();
    const std::string wanted = TextBlock::prepared(query);
    if (wanted.empty()) {
        return hits;
    }
    TextSearch search(m_block, wanted, hits);
    search.findHolding();
    if (hits.isEmpty() && slips == Slips::forgiven) {
        search.findSimilar();
    }
    return hits;
}

TextHits TextIndex::all() const
{
    TextHits hits = none();
    for (std::size_t slot = 0; slot < m_isThere.size(); ++slot) {
        if (m_isThere[slot]) {
            hits.note(slot, TextRank::exact, true);
        }
    }
    return hits;
}

} // namespace Quillary
