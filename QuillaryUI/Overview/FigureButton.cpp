#include "QuillaryUI/Overview/FigureButton.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace Quillary {

namespace {

constexpr int border = 16;
constexpr int gap = 6;
constexpr double radius = 8.0;
constexpr double figureSize = 1.55;
constexpr int leastWidth = 176;

} // namespace

FigureButton::FigureButton(const QString& name, const QString& figure, const QString& detail, QWidget* parent)
    : QAbstractButton(parent)
    , m_figure(figure)
    , m_detail(detail)
{
    setText(name);
    setAccessibleName(QStringLiteral("%1: %2, %3").arg(name, figure, detail));
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void FigureButton::setFigureColor(const QColor& color)
{
    m_color = color;
    update();
}

QFont FigureButton::figureFont() const
{
    QFont font = this->font();
    font.setPointSizeF(font.pointSizeF() * figureSize);
    font.setWeight(QFont::DemiBold);
    return font;
}

QSize FigureButton::sizeHint() const
{
    const QFontMetrics small(font());
    const QFontMetrics large(figureFont());
    const int width = std::max(
        {small.horizontalAdvance(text()), small.horizontalAdvance(m_detail), large.horizontalAdvance(m_figure)});
    return {std::max(leastWidth, width + 2 * border), 2 * small.height() + large.height() + 2 * border + 2 * gap};
}

QSize FigureButton::minimumSizeHint() const
{
    return sizeHint();
}

void FigureButton::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isNear = hasFocus() || underMouse() || isDown();
    painter.setPen(QPen(palette().color(isNear ? QPalette::Highlight : QPalette::Midlight), hasFocus() ? 2.0 : 1.0));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), radius, radius);

    QRect line = rect().adjusted(border, border, -border, -border);
    const QFontMetrics small(font());
    const QFontMetrics large(figureFont());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(line, Qt::AlignLeft | Qt::AlignTop, text());
    painter.drawText(line, Qt::AlignLeft | Qt::AlignBottom, m_detail);
    line.setTop(line.top() + small.height() + gap);
    line.setHeight(large.height());
    painter.setFont(figureFont());
    painter.setPen(m_color.isValid() ? m_color : palette().color(QPalette::Text));
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, m_figure);
}

} // namespace Quillary
