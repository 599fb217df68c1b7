#include "QuillaryUI/Look/FlowLayout.h"

#include <QMargins>
#include <QRect>
#include <QSize>

#include <algorithm>
#include <tuple>

namespace Quillary {

QLayoutItem* FlowLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index)
{
    if (index < 0 || index >= count()) {
        return nullptr;
    }
    const auto place = m_items.begin() + index;
    QLayoutItem* item = place->release();
    m_items.erase(place);
    return item; // the caller's from here on
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (const auto& item : m_items) {
        size = size.expandedTo(item->minimumSize());
    }
    const QMargins margins = contentsMargins();
    return size + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

void FlowLayout::setGeometry(const QRect& rectangle)
{
    QLayout::setGeometry(rectangle);
    std::ignore = placedHeight(rectangle, true);
}

int FlowLayout::placedHeight(const QRect& rectangle, bool isReal) const
{
    const QRect inside = rectangle.marginsRemoved(contentsMargins());
    const int gap = std::max(0, spacing());
    int x = inside.x();
    int y = inside.y();
    int lineHeight = 0;
    for (const auto& item : m_items) {
        const QSize size = item->sizeHint();
        if (x > inside.x() && x + size.width() > inside.right() + 1) {
            x = inside.x();
            y += lineHeight + gap;
            lineHeight = 0;
        }
        if (isReal) {
            item->setGeometry({{x, y}, size});
        }
        x += size.width() + gap;
        lineHeight = std::max(lineHeight, size.height());
    }
    return y + lineHeight - rectangle.y() + contentsMargins().bottom();
}

} // namespace Quillary
