#include "QuillaryCore/Tabular/KeyIndex.h"

#include "QuillaryCore/Foundation/Precondition.h"

#include <functional>
#include <limits>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

std::uint32_t hashOf(std::string_view key)
{
    const std::size_t hash = std::hash<std::string_view>()(key);
    return static_cast<std::uint32_t>(hash ^ (hash >> 32U));
}

} // namespace

KeyIndex::Key::Key(std::string text)
    : m_text(std::move(text))
    , m_hash(hashOf(m_text))
{
}

/// The slot that holds the key, or the free one where it belongs.
std::size_t KeyIndex::slotOf(const Key& key) const
{
    const std::size_t mask = m_slots.size() - 1;
    std::size_t place = key.m_hash & mask;
    while (m_slots[place].entry != 0) {
        if (m_slots[place].hash == key.m_hash) {
            const Entry& entry = m_entries[m_slots[place].entry - 1];
            if (std::string_view(m_keys).substr(entry.begin, entry.size) == key.m_text) {
                break;
            }
        }
        place = (place + 1) & mask;
    }
    return place;
}

std::optional<std::uint32_t> KeyIndex::find(const Key& key) const
{
    const Slot slot = m_slots[slotOf(key)];
    return slot.entry == 0 ? std::nullopt : std::optional(m_entries[slot.entry - 1].number);
}

void KeyIndex::insert(const Key& key, std::uint32_t number)
{
    const std::size_t place = slotOf(key);
    if (m_slots[place].entry != 0) {
        return;
    }
    const std::string& text = key.m_text;
    precondition(m_keys.size() + text.size() <= std::numeric_limits<std::uint32_t>::max(),
                 "the keys of an index take less than 4 GiB");
    m_entries.push_back({static_cast<std::uint32_t>(m_keys.size()), static_cast<std::uint32_t>(text.size()), number});
    m_keys += text;
    m_slots[place] = {key.m_hash, static_cast<std::uint32_t>(m_entries.size())};
    if (m_entries.size() * 2 > m_slots.size()) {
        grow();
    }
}

void KeyIndex::expect(const Key& key) const
{
    __builtin_prefetch(&m_slots[key.m_hash & (m_slots.size() - 1)]);
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
