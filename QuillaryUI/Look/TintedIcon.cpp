#include "QuillaryUI/Look/TintedIcon.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <utility>

namespace Quillary {

namespace {

QPalette::ColorRole role(QIcon::Mode mode)
{
    switch (mode) {
    case QIcon::Normal:
    case QIcon::Active:
        return QPalette::Text;
    case QIcon::Selected:
        return QPalette::HighlightedText;
    case QIcon::Disabled:
        return QPalette::PlaceholderText;
    }
    return QPalette::Text;
}

} // namespace

TintedIcon::TintedIcon(QByteArray drawing)
    : m_drawing(std::move(drawing))
{
}

void TintedIcon::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/)
{
    QByteArray tinted = m_drawing;
    tinted.replace("#000", QGuiApplication::palette().color(role(mode)).name().toLatin1());
    QSvgRenderer(tinted).render(painter, rect);
}

QPixmap TintedIcon::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state)
{
    const QString key = QStringLiteral("quillary %1 %2x%3 %4")
                            .arg(qHash(m_drawing))
                            .arg(size.width())
                            .arg(size.height())
                            .arg(QGuiApplication::palette().color(role(mode)).name());
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture = QPixmap(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        painter.end();
        QPixmapCache::insert(key, picture);
    }
    return picture;
}

QIconEngine* TintedIcon::clone() const
{
    return new TintedIcon(*this); // NOLINT(cppcoreguidelines-owning-memory): Qt takes it
}

} // namespace Quillary
