#include "QuillaryCore/Output/PageExcerpt.h"

#include "QuillaryCore/Output/PageLayout.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>

namespace Quillary {

namespace {

constexpr double sameSpot = 0.05; ///< the engine works in pixels of 0.75 points

const PageMark* find(const std::vector<PageMark>& marks, std::string_view name)
{
    const auto found = std::ranges::find(marks, name, &PageMark::name);
    return found == marks.end() ? nullptr : &*found;
}

} // namespace

bool PageExcerpt::isExact(const std::vector<PageMark>& marks) const
{
    const PageMark* first = find(marks, firstRow);
    if (first == nullptr || first->page != 0 || (top && std::abs(first->top - *top) > sameSpot)) {
        return false;
    }
    if (leastHeight > 0) {
        const PageMark* below = find(marks, rowBelow);
        if (below == nullptr || first->top - below->top < leastHeight - sameSpot) {
            return false; // it may fit on the page before now
        }
    }
    if (!rowBeyond.empty() && find(marks, rowBeyond) != nullptr) {
        return false; // there is room for more than was cut out
    }
    for (std::size_t column = 0; column < columnLefts.size(); ++column) {
        const PageMark* figure = find(marks, PageLayout::figureName(column));
        if (figure == nullptr || std::abs(figure->left - columnLefts[column]) > sameSpot) {
            return false;
        }
    }
    return true;
}

} // namespace Quillary
