#pragma once

#include "QuillaryCore/Documents/RowClients.h"
#include "QuillaryCore/Search/TextBlock.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// The texts of a list's rows: as they are shown, and folded side by side in one block for the search. A row is named by
/// its slot, which counts the rows that were ever added. A client's name is kept and searched once for all of its rows.
class RowTexts
{
public:
    using Slot = std::uint32_t;

    /// Enters a row. `clients().readNames` follows before anything is asked.
    Slot
    add(std::string_view number, std::string_view title, RowClients::Key client, std::span<const std::string> tags);

    /// No search finds it by its own texts any more; its slot stays.
    void remove(Slot slot) { m_block.blank(slot); }

    void clear();

    [[nodiscard]] RowClients& clients() { return m_clients; }
    [[nodiscard]] const RowClients& clients() const { return m_clients; }

    // Valid until the next change.

    [[nodiscard]] std::string_view number(Slot slot) const
    {
        return std::string_view(m_shown).substr(m_places[slot].begin, m_places[slot].numberSize);
    }
    [[nodiscard]] std::string_view title(Slot slot) const
    {
        return std::string_view(m_shown).substr(m_places[slot].begin + m_places[slot].numberSize,
                                                m_places[slot].titleSize);
    }
    [[nodiscard]] std::string_view clientName(Slot slot) const { return m_clients.name(m_clientOf[slot]); }

    [[nodiscard]] RowClients::Number client(Slot slot) const { return m_clientOf[slot]; }
    [[nodiscard]] RowClients::Key clientKey(Slot slot) const { return m_clients.key(m_clientOf[slot]); }

    /// Which rows hold each word of a text in their number, title, client or tags, without regard to case and accents:
    /// 1 or 0 by slot. Empty: the text has no word, and every row holds it.
    [[nodiscard]] std::vector<std::uint8_t> holding(std::string_view text) const;

    /// A tag as `hasTag` wants it.
    [[nodiscard]] static std::string preparedTag(std::string_view tag);
    [[nodiscard]] bool hasTag(Slot slot, std::string_view prepared) const;

private:
    struct Place
    {
        std::size_t begin;
        std::uint32_t numberSize;
        std::uint32_t titleSize; ///< right behind the number
    };

    [[nodiscard]] std::vector<std::uint8_t> holdingWord(std::string_view word) const;
    [[nodiscard]] bool holds(Slot slot, std::string_view word) const
    {
        return m_block.textOf(slot).contains(word) || m_clients.holds(m_clientOf[slot], word);
    }

    std::string m_shown;
    std::vector<Place> m_places;                ///< by slot: in `m_shown`
    std::vector<RowClients::Number> m_clientOf; ///< by slot
    TextBlock m_block;                          ///< number and title; further texts are the tags
    RowClients m_clients;
};

} // namespace Quillary
