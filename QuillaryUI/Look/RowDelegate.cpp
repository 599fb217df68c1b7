#include "QuillaryUI/Look/RowDelegate.h"

#include <QApplication>
#include <QBrush>
#include <QFontMetrics>
#include <QPainter>
#include <QPalette>
#include <QPen>

#include <algorithm>
#include <cstddef>

namespace Quillary {

namespace {

Qt::Alignment alignmentOf(const QModelIndex& index)
{
    const QVariant alignment = index.data(Qt::TextAlignmentRole);
    return alignment.isValid() ? Qt::Alignment(alignment.toInt()) : Qt::AlignVCenter | Qt::AlignLeft;
}

QColor textColor(const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const auto group = option.state.testFlag(QStyle::State_Enabled) ? QPalette::Active : QPalette::Disabled;
    if (option.state.testFlag(QStyle::State_Selected)) {
        return option.palette.color(group, QPalette::HighlightedText);
    }
    const QVariant foreground = index.data(Qt::ForegroundRole);
    return foreground.isValid() ? qvariant_cast<QBrush>(foreground).color()
                                : option.palette.color(group, QPalette::Text);
}

bool isPlain(const QModelIndex& index)
{
    return !index.data(Qt::CheckStateRole).isValid() && !index.data(Qt::DecorationRole).isValid();
}

} // namespace

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    if (!isPlain(index)) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const QVariant background = index.data(Qt::BackgroundRole);
    if (isSelected) {
        painter->fillRect(option.rect, option.palette.color(QPalette::Active, QPalette::Highlight));
    } else if (background.isValid()) {
        painter->fillRect(option.rect, qvariant_cast<QBrush>(background));
    }
    if (option.state.testFlag(QStyle::State_HasFocus) && !isSelected) { // the keyboard is here, nothing is chosen
        painter->setPen(option.palette.color(QPalette::Active, QPalette::Highlight));
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
    const QVariant font = index.data(Qt::FontRole);
    const QFont used = font.isValid() ? qvariant_cast<QFont>(font).resolve(option.font) : option.font;
    const QRect inside = option.rect.adjusted(padding, 0, -padding, 0);
    const QString text = displayText(index.data(Qt::DisplayRole), option.locale);
    const Qt::Alignment alignment = alignmentOf(index);
    painter->setPen(textColor(option, index));
    const bool isUsual = option.direction == Qt::LeftToRight && option.textElideMode == Qt::ElideRight;
    if (isUsual && quick(used).draw(*painter, inside, alignment, text)) {
        return;
    }
    painter->setFont(used);
    const QString shown = QFontMetrics(used).elidedText(text, option.textElideMode, inside.width());
    painter->drawText(inside, int(alignment) | Qt::TextSingleLine, shown);
}

QuickText& RowDelegate::quick(const QFont& font) const
{
    constexpr std::size_t mostFonts = 4;
    const auto found = std::ranges::find(m_quick, font, &QuickText::font);
    if (found != m_quick.end()) {
        return *found;
    }
    if (m_quick.size() == mostFonts) {
        m_quick.clear();
    }
    return m_quick.emplace_back(font);
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    return QStyledItemDelegate::sizeHint(option, index) + QSize(2 * padding, 0);
}

} // namespace Quillary
