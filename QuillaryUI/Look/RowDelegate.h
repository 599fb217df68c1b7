#pragma once

#include "QuillaryUI/Look/QuickText.h"

#include <QStyledItemDelegate>

#include <vector>

namespace Quillary {

/// Draws the plain text of a list's cell, with room at both sides: a screenful takes it a fraction of what the general
/// delegate does. What bears a check box or an icon is left to that one.
class RowDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Unit: pixels, left and right of the text; that of the headers.
    static constexpr int padding = 8;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    [[nodiscard]] QuickText& quick(const QFont& font) const;

    mutable std::vector<QuickText> m_quick; ///< one a font; lists have two
};

} // namespace Quillary
