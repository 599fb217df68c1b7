#include "QuillaryCore/Search/TextScan.h"

#include <algorithm>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace Quillary {

namespace {

/// The places for which `fits(offset)` holds, one by one.
template <class Predicate>
std::uint64_t bitsOf(std::size_t count, const Predicate& fits)
{
    std::uint64_t bits = 0;
    for (std::size_t offset = 0; offset < count; ++offset) {
        bits |= std::uint64_t{fits(offset)} << offset;
    }
    return bits;
}

#ifdef __SSE2__
/// The places for which `compare(offset)` sets the bytes, sixteen at a time.
template <class Compare>
std::uint64_t bitsOfSixteens(const Compare& compare)
{
    std::uint64_t bits = 0;
    for (std::size_t offset = 0; offset < TextScan::width; offset += sizeof(__m128i)) {
        bits |= std::uint64_t{static_cast<std::uint32_t>(_mm_movemask_epi8(compare(offset)))} << offset;
    }
    return bits;
}

__m128i sixteenAt(const char* place)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(place));
}

__m128i isBetween(__m128i bytes, char first, char last)
{
    return _mm_and_si128(_mm_cmpgt_epi8(bytes, _mm_set1_epi8(static_cast<char>(first - 1))),
                         _mm_cmplt_epi8(bytes, _mm_set1_epi8(static_cast<char>(last + 1))));
}
#endif

} // namespace

bool TextScan::isLetter(char byte)
{
    const auto value = static_cast<unsigned char>(byte);
    return value >= 0x80 || (value >= 'a' && value <= 'z') || (value >= '0' && value <= '9');
}

std::uint64_t TextScan::candidates(std::string_view text, std::size_t from, std::string_view wanted)
{
    const char* here = text.data() + from;
    const std::size_t distance = wanted.size() - 1;
#ifdef __SSE2__
    if (from + distance + width <= text.size()) {
        const __m128i first = _mm_set1_epi8(wanted.front());
        const __m128i last = _mm_set1_epi8(wanted.back());
        return bitsOfSixteens([&](std::size_t offset) {
            return _mm_and_si128(_mm_cmpeq_epi8(sixteenAt(here + offset), first),
                                 _mm_cmpeq_epi8(sixteenAt(here + offset + distance), last));
        });
    }
#endif
    return bitsOf(std::min(width, text.size() - from - distance), [&](std::size_t offset) {
        return here[offset] == wanted.front() && here[offset + distance] == wanted.back();
    });
}

std::uint64_t TextScan::wordBeginnings(std::string_view text, std::size_t from)
{
    const char* before = text.data() + from - 1;
#ifdef __SSE2__
    if (from + width <= text.size()) {
        return ~bitsOfSixteens([before](std::size_t offset) {
            const __m128i bytes = sixteenAt(before + offset);
            const __m128i isForeign = _mm_cmplt_epi8(bytes, _mm_setzero_si128()); // beyond ASCII
            return _mm_or_si128(isForeign, _mm_or_si128(isBetween(bytes, 'a', 'z'), isBetween(bytes, '0', '9')));
        });
    }
#endif
    return bitsOf(std::min(width, text.size() - from),
                  [before](std::size_t offset) { return !isLetter(before[offset]); });
}

} // namespace Quillary
