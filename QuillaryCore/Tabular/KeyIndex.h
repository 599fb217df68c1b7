#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// A table of texts, each with a number; a text keeps the first number that it was given.
///
/// Made for many texts of which few are looked for with success: what isn't there is told by a table of hash values that
/// stays in the processor's cache, and the texts lie in one block.
class KeyIndex
{
public:
    /// The number of a text. No value: it isn't there.
    [[nodiscard]] std::optional<std::uint32_t> find(std::string_view key) const;

    /// Adds a text unless it is there. All texts together take less than 4 GiB.
    void insert(std::string_view key, std::uint32_t number);

private:
    struct Slot
    {
        std::uint32_t hash = 0;
        std::uint32_t entry = 0; ///< counted from 1; 0 marks a free slot
    };

    struct Entry
    {
        std::uint32_t begin;
        std::uint32_t size;
        std::uint32_t number;
    };

    [[nodiscard]] std::size_t slotOf(std::string_view key, std::uint32_t hash) const;
    void grow();

    std::vector<Slot> m_slots = std::vector<Slot>(1024); ///< a power of two, at most half of them in use
    std::vector<Entry> m_entries;
    std::string m_keys;
};

} // namespace Quillary
