#include "QuillaryCore/Tabular/ByteMasks.h"

#include <algorithm>
#include <bit>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace Quillary {

namespace {

constexpr std::uint64_t everyByte = 0x0101010101010101;
constexpr std::uint64_t lowBits = 0x7F * everyByte;

/// The highest bit of each byte that is zero; exact, whatever stands beside it.
std::uint64_t zeroBytes(std::uint64_t word)
{
    return ~(((word & lowBits) + lowBits) | word | lowBits);
}

} // namespace

std::uint64_t ByteMasks::portableMask(const char* block) const
{
    std::uint64_t result = 0;
    for (std::size_t begin = 0; begin < blockSize; begin += sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, block + begin, sizeof word);
        if constexpr (std::endian::native == std::endian::big) {
            word = std::byteswap(word);
        }
        std::uint64_t found = 0;
        for (const char byte : m_wanted) {
            found |= zeroBytes(word ^ (everyByte * static_cast<unsigned char>(byte)));
        }
        // The multiplication gathers the eight bits, one byte apart, side by side in the highest byte.
        constexpr std::uint64_t gather = 0x0102040810204080;
        result |= (((found >> 7U) * gather) >> 56U) << begin;
    }
    return result;
}

#ifdef __SSE2__

std::uint64_t ByteMasks::mask(const char* block) const
{
    constexpr std::size_t width = sizeof(__m128i);
    std::uint64_t result = 0;
    for (std::size_t begin = 0; begin < blockSize; begin += width) {
        __m128i bytes;
        std::memcpy(&bytes, block + begin, width);
        __m128i found = _mm_cmpeq_epi8(bytes, _mm_set1_epi8(m_wanted[0]));
        found = _mm_or_si128(found, _mm_cmpeq_epi8(bytes, _mm_set1_epi8(m_wanted[1])));
        found = _mm_or_si128(found, _mm_cmpeq_epi8(bytes, _mm_set1_epi8(m_wanted[2])));
        found = _mm_or_si128(found, _mm_cmpeq_epi8(bytes, _mm_set1_epi8(m_wanted[3])));
        result |= static_cast<std::uint64_t>(static_cast<unsigned>(_mm_movemask_epi8(found))) << begin;
    }
    return result;
}

#else

std::uint64_t ByteMasks::mask(const char* block) const
{
    return portableMask(block);
}

#endif

std::uint64_t ByteMasks::maskAt(std::string_view text, std::size_t begin) const
{
    const std::size_t size = std::min(text.size() - begin, blockSize);
    if (size == blockSize) {
        return mask(text.data() + begin);
    }
    std::array<char, blockSize> block{};
    std::copy_n(text.data() + begin, size, block.data());
    return mask(block.data()) & ((std::uint64_t{1} << size) - 1); // a wanted zero byte isn't found in the padding
}

std::size_t ByteMasks::count(std::string_view text) const
{
    std::size_t result = 0;
    for (std::size_t begin = 0; begin < text.size(); begin += blockSize) {
        result += static_cast<std::size_t>(std::popcount(maskAt(text, begin)));
    }
    return result;
}

} // namespace Quillary
