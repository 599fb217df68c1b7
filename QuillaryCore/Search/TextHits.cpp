#include "QuillaryCore/Search/TextHits.h"

#include <tuple>
#include <utility>

namespace Quillary {

bool operator<(const TextHit& left, const TextHit& right)
{
    const auto place = [](const TextHit& hit) {
        return std::tuple(hit.rank, hit.slips, !hit.isOwn, -hit.order, -hit.key);
    };
    return place(left) < place(right);
}

std::vector<TextHit> TextHits::best(std::size_t limit) const
{
    // A heap of the best so far, the worst of them on top. The newest come first, so that later ones seldom get in; and
    // what can't get in is left out without being looked at, since most of a search's hits can't.
    std::vector<TextHit> kept;
    kept.reserve(std::min(limit, m_count));
    TextHit worst;
    std::uint8_t highest = nothing - 1; // quality that may still get in
    for (std::size_t slot = m_qualities.size(); slot-- > 0 && limit > 0;) {
        const std::uint8_t quality = m_qualities[slot];
        if (quality > highest) {
            continue;
        }
        if (kept.size() == limit) {
            const bool isWorse = quality == highest && std::pair(m_table.orders[slot], m_table.keys[slot]) <
                                                           std::pair(worst.order, worst.key);
            if (isWorse) {
                continue;
            }
            std::pop_heap(kept.begin(), kept.end());
            kept.pop_back();
        }
        kept.push_back(hit(slot));
        std::push_heap(kept.begin(), kept.end());
        if (kept.size() == limit) {
            worst = kept.front();
            highest = m_qualities[worst.slot];
        }
    }
    std::sort_heap(kept.begin(), kept.end());
    return kept;
}

} // namespace Quillary
