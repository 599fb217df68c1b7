#include "QuillaryUI/Look/QuickText.h"

#include <QPainter>
#include <QRectF>
#include <QString>
#include <QTextLayout>

#include <algorithm>

namespace Quillary {

namespace {

constexpr QChar ellipsis(u'…');

/// Written from left to right, each letter for itself.
bool isPlain(QChar character)
{
    const char16_t unit = character.unicode();
    return (unit >= 0x20 && unit < 0x7F) || (unit >= 0xA0 && unit < 0x250 && unit != 0xAD) || // but no soft hyphen
           (unit >= 0x2010 && unit <= 0x2027) || unit == 0x202F || (unit >= 0x20A0 && unit < 0x20C0) || unit == 0x2212;
}

} // namespace

QuickText::QuickText(const QFont& font)
    : m_font(font)
    , m_raw(QRawFont::fromFont(font))
{
}

bool QuickText::draw(QPainter& painter, const QRectF& inside, Qt::Alignment alignment, QStringView text)
{
    if (!m_raw.isValid() || !layOut(text) || (m_width > inside.width() && !elide(text, inside.width()))) {
        return false;
    }
    if (m_glyphs.isEmpty()) {
        return true;
    }
    const qreal room = inside.width() - m_width;
    const qreal left = alignment.testFlag(Qt::AlignRight) ? room : alignment.testFlag(Qt::AlignHCenter) ? room / 2 : 0;
    const qreal top = (inside.height() - m_raw.ascent() - m_raw.descent()) / 2;
    QGlyphRun run;
    run.setRawFont(m_raw);
    run.setRawData(m_glyphs.constData(), m_positions.constData(), int(m_glyphs.size()));
    painter.drawGlyphRun(QPointF(inside.left() + left, inside.top() + top + m_raw.ascent()), run);
    return true;
}

bool QuickText::layOut(QStringView text)
{
    m_glyphs.clear();
    m_positions.clear();
    m_width = 0;
    for (qsizetype place = 0; place < text.size(); ++place) {
        const QChar character = text[place];
        if (!isPlain(character) || letter(character).glyph == 0) {
            return false;
        }
        m_glyphs.push_back(letter(character).glyph);
        m_positions.push_back(QPointF(m_width, 0));
        const bool isLast = place + 1 == text.size();
        const std::optional<qreal> step =
            isLast ? std::optional(letter(character).advance) : advance(character, text[place + 1]);
        if (!step) {
            return false;
        }
        m_width += *step;
    }
    return true;
}

/// Cuts the line off where the ellipsis still has room.
bool QuickText::elide(QStringView text, qreal room)
{
    const Letter dots = letter(ellipsis);
    if (dots.glyph == 0) {
        return false;
    }
    qsizetype kept = m_glyphs.size() - 1;
    while (kept > 0 && m_positions[kept].x() + dots.advance >= room) {
        --kept;
    }
    std::optional<qreal> end = 0;
    if (kept > 0) {
        end = advance(text[kept - 1], ellipsis);
        if (!end) {
            return false;
        }
        *end += m_positions[kept - 1].x();
    }
    m_glyphs.resize(kept);
    m_positions.resize(kept);
    m_glyphs.push_back(dots.glyph);
    m_positions.push_back(QPointF(*end, 0));
    m_width = *end + dots.advance;
    return true;
}

const QuickText::Letter& QuickText::letter(QChar character)
{
    auto found = m_letters.constFind(character.unicode());
    if (found == m_letters.constEnd()) {
        found = m_letters.insert(character.unicode(), measured(character));
    }
    return *found;
}

std::optional<qreal> QuickText::advance(QChar first, QChar second)
{
    const quint32 pair = quint32(first.unicode()) << 16U | second.unicode();
    auto found = m_pairs.constFind(pair);
    if (found == m_pairs.constEnd()) {
        found = m_pairs.insert(pair, measured(first, second));
    }
    return *found;
}

QuickText::Letter QuickText::measured(QChar character) const
{
    // Nothing is seen of a space, and many fonts have but one.
    const QChar seen = character.isSpace() ? QChar(u' ') : character;
    const QList<quint32> glyphs = m_raw.glyphIndexesForString(QString(seen));
    QTextLayout layout(QString(character), m_font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return {.glyph = glyphs.size() == 1 ? glyphs.front() : 0, .advance = line.cursorToX(1)};
}

std::optional<qreal> QuickText::measured(QChar first, QChar second)
{
    QTextLayout layout(QString(first) + second, m_font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    if (!first.isSpace() && !second.isSpace()) { // a space's glyph may be missing
        const QList<QGlyphRun> runs = layout.glyphRuns();
        const QList<quint32> alone{letter(first).glyph, letter(second).glyph};
        if (runs.size() != 1 || runs.front().glyphIndexes() != alone) {
            return std::nullopt;
        }
    }
    return line.cursorToX(1);
}

} // namespace Quillary
