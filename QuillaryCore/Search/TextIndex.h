#pragma once

#include "QuillaryCore/Search/TextBlock.h"
#include "QuillaryCore/Search/TextHits.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Quillary {

/// Finds records by their texts: without case, accents and width, in one pass over a block that holds all of them.
class TextIndex
{
public:
    using Key = std::int64_t;
    using Rank = TextRank;
    using Hit = TextHit;

    /// Enters a record, or enters it anew. `own` are the texts it goes by, `further` those that have to do with it; of
    /// equally good hits those of higher `order` come first. Returns its slot, which counts the `put`s since `clear`.
    std::size_t
    put(Key key, std::int64_t order, std::span<const std::string_view> own, std::span<const std::string_view> further);
    void remove(Key key);
    void clear();
    void reserve(std::size_t records);

    [[nodiscard]] std::size_t size() const { return m_places.size(); }

    /// How many slots there are, those of removed records included.
    [[nodiscard]] std::size_t slotCount() const { return m_isThere.size(); }

    /// Whether a slot's record was neither removed nor entered anew.
    [[nodiscard]] bool isThere(std::size_t slot) const { return m_isThere[slot]; }

    /// True when most of the block is what was removed or entered anew: it should be filled again.
    [[nodiscard]] bool isWorn() const;

    enum class Slips { forgiven, notForgiven };

    /// The records that hold a query; without any such, those that hold it but for a slip in typing, as far as they are
    /// among the first 5,000 that come near it.
    [[nodiscard]] TextHits find(std::string_view query, Slips slips = Slips::forgiven) const;

    /// All records, as if they were exact.
    [[nodiscard]] TextHits all() const;

private:
    [[nodiscard]] TextHits none() const;

    TextBlock m_block;
    std::vector<Key> m_keys;            ///< by slot
    std::vector<std::int64_t> m_orders; ///< by slot
    std::vector<bool> m_isThere;        ///< by slot
    std::unordered_map<Key, std::size_t> m_places;
};

} // namespace Quillary
