#include "QuillaryCore/Tabular/KeyIndex.h"

#include "QuillaryCore/Foundation/Precondition.h"

#include <functional>
#include <limits>

namespace Quillary {

namespace {

std::uint32_t hashOf(std::string_view key)
{
    const std::size_t hash = std::hash<std::string_view>()(key);
    return static_cast<std::uint32_t>(hash ^ (hash >> 32U));
}

} // namespace

/// The slot that holds the key, or the free one where it belongs.
std::size_t KeyIndex::slotOf(std::string_view key, std::uint32_t hash) const
{
    const std::size_t mask = m_slots.size() - 1;
    std::size_t place = hash & mask;
    while (m_slots[place].entry != 0) {
        if (m_slots[place].hash == hash) {
            const Entry& entry = m_entries[m_slots[place].entry - 1];
            if (std::string_view(m_keys).substr(entry.begin, entry.size) == key) {
                break;
            }
        }
        place = (place + 1) & mask;
    }
    return place;
}

std::optional<std::uint32_t> KeyIndex::find(std::string_view key) const
{
    const Slot slot = m_slots[slotOf(key, hashOf(key))];
    return slot.entry == 0 ? std::nullopt : std::optional(m_entries[slot.entry - 1].number);
}

void KeyIndex::insert(std::string_view key, std::uint32_t number)
{
    const std::uint32_t hash = hashOf(key);
    const std::size_t place = slotOf(key, hash);
    if (m_slots[place].entry != 0) {
        return;
    }
    precondition(m_keys.size() + key.size() <= std::numeric_limits<std::uint32_t>::max(),
                 "the keys of an index take less than 4 GiB");
    m_entries.push_back({static_cast<std::uint32_t>(m_keys.size()), static_cast<std::uint32_t>(key.size()), number});
    m_keys += key;
    m_slots[place] = {hash, static_cast<std::uint32_t>(m_entries.size())};
    if (m_entries.size() * 2 > m_slots.size()) {
        grow();
    }
}

void KeyIndex::grow()
{
    std::vector<Slot> slots(m_slots.size() * 4);
    const std::size_t mask = slots.size() - 1;
    for (const Slot& slot : m_slots) {
        if (slot.entry != 0) {
            std::size_t place = slot.hash & mask;
            while (slots[place].entry != 0) {
                place = (place + 1) & mask;
            }
            slots[place] = slot;
        }
    }
    m_slots = std::move(slots);
}

} // namespace Quillary
