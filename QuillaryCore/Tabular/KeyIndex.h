#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Quillary {

/// A table of texts, each with a number; a text keeps the first number that it was given.
///
/// Made for many texts of which few are looked for with success: what isn't there is told by a table of hash values that
/// stays in the processor's cache, and the texts lie in one block.
class KeyIndex
{
public:
    /// A text to look for, more than once and in more than one index.
    class Key
    {
    public:
        explicit Key(std::string text);

        [[nodiscard]] const std::string& text() const { return m_text; }

    private:
        friend class KeyIndex;

        std::string m_text;
        std::uint32_t m_hash;
    };

    /// The number of a text. No value: it isn't there.
    [[nodiscard]] std::optional<std::uint32_t> find(const Key& key) const;

    /// Adds a text unless it is there. All texts together take less than 4 GiB.
    void insert(const Key& key, std::uint32_t number);

    /// Has the processor fetch what `find` and `insert` will look at first, so that several searches wait but once.
    void expect(const Key& key) const;

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

    [[nodiscard]] std::size_t slotOf(const Key& key) const;
    void grow();

    std::vector<Slot> m_slots = std::vector<Slot>(1024); ///< a power of two, at most half of them in use
    std::vector<Entry> m_entries;
    std::string m_keys;
};

} // namespace Quillary
