#include "QuillaryCore/Foundation/NameBasedUUID.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>

namespace Quillary {

namespace {

constexpr std::size_t blockSize = 64;

/// SHA-1 (FIPS 180-4), which names call for. It tells names apart and protects nothing.
class SHA1
{
public:
    using Digest = std::array<std::uint8_t, 20>;

    static Digest of(std::string message)
    {
        const std::uint64_t bits = std::uint64_t{message.size()} * 8;
        message += '\x80';
        message.append((2 * blockSize - 8 - message.size() % blockSize) % blockSize, '\0');
        for (int shift = 56; shift >= 0; shift -= 8) {
            message += static_cast<char>((bits >> shift) & 0xFFU);
        }
        SHA1 hash;
        for (std::size_t offset = 0; offset < message.size(); offset += blockSize) {
            hash.add(std::string_view(message).substr(offset, blockSize));
        }
        return hash.digest();
    }

private:
    void add(std::string_view block)
    {
        std::array<std::uint32_t, 80> words{};
        for (std::size_t index = 0; index < blockSize; ++index) {
            words[index / 4] = (words[index / 4] << 8U) | static_cast<std::uint8_t>(block[index]);
        }
        for (std::size_t index = 16; index < words.size(); ++index) {
            words[index] = std::rotl(words[index - 3] ^ words[index - 8] ^ words[index - 14] ^ words[index - 16], 1);
        }
        auto [a, b, c, d, e] = m_state;
        for (std::size_t round = 0; round < words.size(); ++round) {
            const std::uint32_t next = std::rotl(a, 5) + mixed(round, b, c, d) + e + words[round];
            e = d;
            d = c;
            c = std::rotl(b, 30);
            b = a;
            a = next;
        }
        const std::array<std::uint32_t, 5> sums = {a, b, c, d, e};
        for (std::size_t index = 0; index < sums.size(); ++index) {
            m_state[index] += sums[index];
        }
    }

    /// The round's function of three words, and its constant.
    static std::uint32_t mixed(std::size_t round, std::uint32_t b, std::uint32_t c, std::uint32_t d)
    {
        switch (round / 20) {
        case 0:
            return ((b & c) | (~b & d)) + 0x5A827999U;
        case 1:
            return (b ^ c ^ d) + 0x6ED9EBA1U;
        case 2:
            return ((b & c) | (b & d) | (c & d)) + 0x8F1BBCDCU;
        default:
            return (b ^ c ^ d) + 0xCA62C1D6U;
        }
    }

    [[nodiscard]] Digest digest() const
    {
        Digest bytes{};
        for (std::size_t index = 0; index < bytes.size(); ++index) {
            bytes[index] = static_cast<std::uint8_t>(m_state[index / 4] >> (24 - 8 * (index % 4)));
        }
        return bytes;
    }

    std::array<std::uint32_t, 5> m_state = {0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476, 0xC3D2E1F0};
};

} // namespace

UUID nameBasedUUID(const UUID& space, std::string_view name)
{
    std::string message(space.bytes().begin(), space.bytes().end());
    const SHA1::Digest digest = SHA1::of(message.append(name));
    UUID::Bytes bytes{};
    std::copy_n(digest.begin(), bytes.size(), bytes.begin());
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0FU) | 0x50U);
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3FU) | 0x80U);
    return UUID(bytes);
}

} // namespace Quillary
