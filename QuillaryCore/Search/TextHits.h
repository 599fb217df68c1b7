#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <utility>
#include <vector>

namespace Quillary {

/// How well a record answers a query, the best first.
enum class TextRank : std::uint8_t {
    exact,     ///< a text of its own is the query
    beginning, ///< a text of its own begins with it
    word,      ///< a word begins with it
    inside,    ///< a word holds it
    words,     ///< all its words are there, in other places
    similar,   ///< but for a small slip in typing: one in words of 4 to 7 letters, two in longer ones
};

/// A record that answers a query.
struct TextHit
{
    std::int64_t key = 0;
    std::size_t slot = 0; ///< its place in the index
    std::int64_t order = 0;
    TextRank rank = TextRank::exact;
    bool isOwn = true; ///< false: in a text that only has to do with the record, such as its city
    int slips = 0;

    /// The best first; of equally good ones those of higher `order`, then the newer records.
    friend bool operator<(const TextHit& left, const TextHit& right);
};

/// What a search found. How well a record answers is one byte, and only the hits that are shown are put in order: a
/// single letter is found in nearly every record.
///
/// Refers to the index that was searched, and is used before that changes.
class TextHits
{
public:
    /// What an index knows of its records, by slot.
    struct Table
    {
        std::span<const std::int64_t> keys;
        std::span<const std::int64_t> orders;
    };

    static constexpr std::size_t all = std::numeric_limits<std::size_t>::max();

    /// None yet.
    TextHits() = default;
    explicit TextHits(Table table)
        : m_table(table)
        , m_qualities(table.keys.size(), nothing)
    {
    }

    [[nodiscard]] std::size_t size() const { return m_count; }
    [[nodiscard]] bool isEmpty() const { return m_count == 0; }

    /// Writes a hit down, unless a better one of this record is there.
    void note(std::size_t slot, TextRank rank, bool isOwn, int slips = 0)
    {
        const auto quality = static_cast<std::uint8_t>((static_cast<unsigned>(rank) << 4U) |
                                                       (static_cast<unsigned>(slips) << 1U) | (isOwn ? 0U : 1U));
        std::uint8_t& noted = m_qualities[slot];
        m_count += noted == nothing ? 1 : 0;
        noted = std::min(noted, quality);
    }

    [[nodiscard]] bool holds(std::size_t slot) const { return m_qualities[slot] != nothing; }

    void clear()
    {
        keepIf([](const TextHit&) { return false; });
    }

    /// The best in their order, at most `limit` of them.
    [[nodiscard]] std::vector<TextHit> best(std::size_t limit = all) const;

    /// In no order.
    template <class Visitor>
    void forEach(const Visitor& visit) const
    {
        for (std::size_t slot = 0; slot < m_qualities.size(); ++slot) {
            if (holds(slot)) {
                visit(hit(slot));
            }
        }
    }

    template <class Predicate>
    [[nodiscard]] bool anyOf(const Predicate& fits) const
    {
        for (std::size_t slot = 0; slot < m_qualities.size(); ++slot) {
            if (holds(slot) && fits(hit(slot))) {
                return true;
            }
        }
        return false;
    }

    template <class Predicate>
    void keepIf(const Predicate& isKept)
    {
        forEach([&](const TextHit& hit) {
            if (!isKept(hit)) {
                m_qualities[hit.slot] = nothing;
                m_count -= 1;
            }
        });
    }

private:
    static constexpr std::uint8_t nothing = 0xFF;

    [[nodiscard]] TextHit hit(std::size_t slot) const
    {
        const unsigned quality = m_qualities[slot];
        return {.key = m_table.keys[slot],
                .slot = slot,
                .order = m_table.orders[slot],
                .rank = static_cast<TextRank>(quality >> 4U),
                .isOwn = (quality & 1U) == 0,
                .slips = static_cast<int>((quality >> 1U) & 7U)};
    }

    Table m_table;
    std::vector<std::uint8_t>
        m_qualities; ///< by slot: rank, slips and whether it is another's text; the lowest is the best
    std::size_t m_count = 0;
};

} // namespace Quillary
