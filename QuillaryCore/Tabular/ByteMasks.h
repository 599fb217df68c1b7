#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Quillary {

/// Finds up to four bytes in a text, a block at a time: what lies between them costs next to nothing.
///
/// Texts are UTF-8 and the bytes looked for are ASCII, so a byte found is always a character of its own.
class ByteMasks
{
public:
    static constexpr std::size_t blockSize = 64;

    /// Fewer than four are given by repeating one.
    explicit ByteMasks(std::array<char, 4> wanted)
        : m_wanted(wanted)
    {
    }

    /// Bit i is set when byte i of the 64 bytes at `block` is one of those wanted.
    [[nodiscard]] std::uint64_t mask(const char* block) const;

    /// The mask of the block that begins at `begin` of `text`, which may end within the block.
    [[nodiscard]] std::uint64_t maskAt(std::string_view text, std::size_t begin) const;

    /// How many of the wanted bytes there are.
    [[nodiscard]] std::size_t count(std::string_view text) const;

    /// What `mask` answers, computed without the processor's vector instructions.
    [[nodiscard]] std::uint64_t portableMask(const char* block) const;

private:
    std::array<char, 4> m_wanted;
};

} // namespace Quillary
