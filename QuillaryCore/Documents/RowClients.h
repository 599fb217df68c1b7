#pragma once

#include "QuillaryCore/Search/TextBlock.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Quillary {

class Context;

/// The clients that a list's rows name, each of them once. Rows hold their numbers, which count up from 0: nobody.
class RowClients
{
public:
    using Key = std::int64_t;
    using Number = std::uint32_t;

    RowClients() { clear(); }

    void clear();

    /// The number of a client, entered when it is new. 0: nobody's.
    Number number(Key key);

    /// Reads the names of those that came in since the last time. Throws: `StoreError`.
    void readNames(Context& context);

    /// Reads names again. `keys` ascend. False: none of these clients is here.
    bool rename(Context& context, std::span<const Key> keys);

    [[nodiscard]] Key key(Number number) const { return m_keys[number]; }

    /// Empty: nobody, or a client that isn't there any more. Valid until the names are read again.
    [[nodiscard]] std::string_view name(Number number) const { return m_names[number]; }

    /// Whether a name holds a word, which is folded.
    [[nodiscard]] bool holds(Number number, std::string_view word) const
    {
        return m_block.textOf(number).contains(word);
    }

    /// The same of all of them: 1 or 0 by number.
    [[nodiscard]] std::vector<std::uint8_t> holding(std::string_view word) const;

    /// The place of each in the order of their names, without regard to case and accents; equal ones the older first.
    [[nodiscard]] std::vector<std::uint32_t> ranks() const;

private:
    void readNames(Context& context, std::span<const Number> numbers);
    [[nodiscard]] Number& entered(Key key);

    std::vector<Number> m_numbers;                ///< by key, as far as these are small, which they mostly are
    std::unordered_map<Key, Number> m_farNumbers; ///< of the others
    std::vector<Key> m_keys;                      ///< by number
    std::vector<std::string> m_names;             ///< by number
    TextBlock m_block;                            ///< their folded names, by number
};

} // namespace Quillary
