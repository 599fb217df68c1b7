#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Quillary {

/// The texts of many records, folded for searching (`folded`) and laid side by side in one block, because reading a
/// block from end to end is faster than any tree up to about a million records.
class TextIndex
{
public:
    using Key = std::int64_t;

    /// How well a record answers a query, the best first.
    enum class Rank : std::uint8_t {
        exact,     ///< a text of its own is the query
        beginning, ///< a text of its own begins with it
        word,      ///< a word begins with it
        inside,    ///< a word holds it
        words,     ///< all its words are there, in other places
        similar,   ///< but for a small slip in typing: one in words of 4 to 7 letters, two in longer ones
    };

    struct Hit
    {
        Key key = 0;
        std::size_t slot = 0; ///< counts the `put`s since `clear`
        std::int64_t order = 0;
        Rank rank = Rank::exact;
        bool isOwn = true; ///< false: in a text that only has to do with the record, such as its city
        int slips = 0;

        /// The best first; of equally good ones those of higher `order`, then the newer records.
        friend bool operator<(const Hit& left, const Hit& right);
    };

    /// Enters a record, or enters it anew. `own` are the texts it goes by, `further` those that have to do with it.
    /// Returns its slot.
    std::size_t
    put(Key key, std::int64_t order, std::span<const std::string_view> own, std::span<const std::string_view> further);
    void remove(Key key);
    void clear();
    void reserve(std::size_t records);

    [[nodiscard]] std::size_t size() const { return m_places.size(); }

    /// True when most of the block is what was removed or entered anew: it should be filled again.
    [[nodiscard]] bool isWorn() const;

    enum class Slips { forgiven, notForgiven };

    /// The records that hold a query, in no order; without any such, those that hold it but for a slip in typing, as far
    /// as they are among the first 5,000 that come near it.
    [[nodiscard]] std::vector<Hit> find(std::string_view query, Slips slips = Slips::forgiven) const;

    /// All records, in no order, as if they were exact.
    [[nodiscard]] std::vector<Hit> all() const;

private:
    struct Entry
    {
        std::size_t begin;   ///< its texts, each between two line breaks
        std::size_t further; ///< where the further ones begin
        Key key;
        std::int64_t order;
        bool isAlive;
    };
    class Search;

    void append(std::string_view text);
    [[nodiscard]] std::size_t end(std::size_t slot) const;

    std::string m_block;
    std::vector<Entry> m_entries; ///< by slot, and so by place in the block
    std::unordered_map<Key, std::size_t> m_places;
};

} // namespace Quillary
