#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// The folded texts of many records side by side in one block, since reading a block from end to end is faster than any
/// tree up to about a million records. A record is named by its slot, which counts the records that were ever added.
class TextBlock
{
public:
    /// Stands before and behind each text.
    static constexpr char border = '\n';

    /// A text as it stands in the block.
    [[nodiscard]] static std::string prepared(std::string_view text);

    /// Enters a record. `own` are the texts it goes by, `further` those that have to do with it. Returns its slot.
    std::size_t add(std::span<const std::string_view> own, std::span<const std::string_view> further);

    /// Blanks a record's texts out, so that no search finds them.
    void blank(std::size_t slot);

    void clear();
    void reserve(std::size_t records);

    [[nodiscard]] std::size_t slotCount() const { return m_begins.size(); }

    /// The whole block.
    [[nodiscard]] std::string_view text() const { return m_text; }

    [[nodiscard]] std::size_t begin(std::size_t slot) const { return m_begins[slot]; }
    [[nodiscard]] std::size_t end(std::size_t slot) const
    {
        return slot + 1 < m_begins.size() ? m_begins[slot + 1] : m_text.size();
    }

    /// Whether a place in a record belongs to its own texts.
    [[nodiscard]] bool isOwn(std::size_t slot, std::size_t place) const { return place < m_furthers[slot]; }

    /// The record at a place, which is that of `slot` or a later one.
    [[nodiscard]] std::size_t slotAt(std::size_t place, std::size_t slot) const
    {
        while (slot + 1 < m_begins.size() && m_begins[slot + 1] <= place) {
            ++slot;
        }
        return slot;
    }

    /// All texts of a record, each with its border behind it.
    [[nodiscard]] std::string_view textOf(std::size_t slot) const
    {
        return text().substr(m_begins[slot], end(slot) - m_begins[slot]);
    }
    [[nodiscard]] std::string_view ownTextOf(std::size_t slot) const
    {
        return text().substr(m_begins[slot], m_furthers[slot] - m_begins[slot]);
    }

private:
    void append(std::string_view text);

    std::string m_text;
    std::vector<std::size_t> m_begins;   ///< by slot: of the record's texts
    std::vector<std::size_t> m_furthers; ///< by slot: of the further ones among them
};

} // namespace Quillary
