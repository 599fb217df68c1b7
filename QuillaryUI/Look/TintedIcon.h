#pragma once

#include <QByteArray>
#include <QIconEngine>

namespace Quillary {

/// A line drawing in the text colour that the palette has when it is drawn, so that it follows the desktop from light to
/// dark.
class TintedIcon final : public QIconEngine
{
public:
    /// An SVG whose strokes are "#000".
    explicit TintedIcon(QByteArray drawing);

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    [[nodiscard]] QIconEngine* clone() const override;

private:
    QByteArray m_drawing;
};

} // namespace Quillary
