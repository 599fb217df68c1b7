#pragma once

#include <QFont>
#include <QGlyphRun>
#include <QHash>
#include <QPointF>
#include <QRawFont>
#include <QStringView>
#include <QVarLengthArray>

#include <optional>

class QPainter;
class QRectF;

namespace Quillary {

/// Draws single lines of Latin letters, digits and signs in one font. How far a letter stands from the one before is
/// asked of the general layout once for each pair, which makes a line a tenth as dear and look the same.
class QuickText
{
public:
    explicit QuickText(const QFont& font);

    [[nodiscard]] const QFont& font() const { return m_font; }

    /// With an ellipsis in place of what has no room; in the middle of the rectangle's height. False, and nothing is drawn:
    /// the text must be laid out as a whole, as other scripts, marks and ligatures are.
    [[nodiscard]] bool draw(QPainter& painter, const QRectF& inside, Qt::Alignment alignment, QStringView text);

private:
    struct Letter
    {
        quint32 glyph = 0; ///< 0: not in this font
        qreal advance = 0; ///< to the end of a line
    };

    [[nodiscard]] const Letter& letter(QChar character);
    [[nodiscard]] Letter measured(QChar character) const;
    /// From the first to the second; no value: together they are something else.
    [[nodiscard]] std::optional<qreal> advance(QChar first, QChar second);
    [[nodiscard]] std::optional<qreal> measured(QChar first, QChar second);
    [[nodiscard]] bool layOut(QStringView text);
    [[nodiscard]] bool elide(QStringView text, qreal room);

    QFont m_font;
    QRawFont m_raw;
    QHash<char16_t, Letter> m_letters;
    QHash<quint32, std::optional<qreal>> m_pairs;
    // The line at hand.
    QVarLengthArray<quint32, 128> m_glyphs;
    QVarLengthArray<QPointF, 128> m_positions;
    qreal m_width = 0;
};

} // namespace Quillary
