#include "QuillaryCore/Search/TextHits.h"

#include <tuple>

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
    // A heap of the best so far, the worst of them on top. The newest come first, so that later ones seldom get in.
    std::vector<TextHit> kept;
    kept.reserve(std::min(limit, m_count));
    std::uint8_t worst = nothing;
    for (std::size_t slot = m_qualities.size(); slot-- > 0 && limit > 0;) {
        const std::uint8_t quality = m_qualities[slot];
        if (quality == nothing || (kept.size() == limit && quality > worst)) {
            continue;
        }
        if (const TextHit candidate = hit(slot); kept.size() < limit) {
            kept.push_back(candidate);
        } else if (candidate < kept.front()) {
            std::pop_heap(kept.begin(), kept.end());
            kept.back() = candidate;
        } else {
            continue;
        }
        std::push_heap(kept.begin(), kept.end());
        worst = m_qualities[kept.front().slot];
    }
    std::sort_heap(kept.begin(), kept.end());
    return kept;
}

} // namespace Quillary
