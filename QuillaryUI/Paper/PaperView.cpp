#include "QuillaryUI/Paper/PaperView.h"

#include "QuillaryUI/Look/CoreText.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace Quillary {

namespace {

constexpr int margin = 24;
constexpr int gap = 16;
/// Wider, a page is no easier to read.
constexpr int widestPaper = 920;
constexpr int narrowestPaper = 120;
constexpr int shadowDepth = 6;
constexpr int redrawDelay = 120;
/// A4, until a page has been drawn.
constexpr double usualShape = 297.0 / 210.0;

void drawShadow(QPainter& painter, const QRect& page)
{
    for (int depth = shadowDepth; depth > 0; --depth) {
        painter.setPen(QColor(0, 0, 0, 6 + 3 * (shadowDepth - depth)));
        painter.drawRoundedRect(page.adjusted(-depth, -depth + 2, depth - 1, depth + 1), depth, depth);
    }
}

/// Who listens to the screen hears of a document there.
QAccessibleInterface* describe(const QString& /*className*/, QObject* object)
{
    auto* paper = qobject_cast<PaperView*>(object);
    return paper != nullptr ? new QAccessibleWidget(paper, QAccessible::Document) : nullptr;
}

} // namespace

PaperView::PaperView(PagePress& press, QWidget* parent)
    : QAbstractScrollArea(parent)
    , m_press(press)
{
    QAccessible::installFactory(describe); // once, however often it is said
    setObjectName(QStringLiteral("paper"));
    setAccessibleName(tr("The document's page"));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalScrollBar()->setSingleStep(40);
    m_redraw.setSingleShot(true);
    connect(&m_redraw, &QTimer::timeout, this, &PaperView::forgetDrawing);
}

void PaperView::setPDF(Bytes pdf, int pageCount, Place place)
{
    m_pdf = std::move(pdf);
    m_notice.clear();
    m_pages.resize(static_cast<std::size_t>(std::max(pageCount, 0)));
    for (Page& page : m_pages) {
        page.ownPDF.clear();
    }
    forgetDrawing();
    layOut();
    if (place == Place::top) {
        verticalScrollBar()->setValue(0);
    }
}

void PaperView::setPage(int index, Bytes pdf)
{
    Page& page = m_pages.at(static_cast<std::size_t>(index));
    page.ownPDF = std::move(pdf);
    page.isDrawn = false;
    m_notice.clear();
    viewport()->update();
}

const Bytes& PaperView::pagePDF(int index) const
{
    const Page& page = m_pages.at(static_cast<std::size_t>(index));
    return page.ownPDF.empty() ? m_pdf : page.ownPDF;
}

bool PaperView::shows(int index) const
{
    if (index < 0 || index >= int(m_pages.size())) {
        return false;
    }
    const int top = pageTop(index);
    return top < viewport()->height() && top + pageHeight(m_pages[static_cast<std::size_t>(index)]) > 0;
}

void PaperView::clear()
{
    m_pdf.clear();
    m_pages.clear();
    m_notice.clear();
    layOut();
    viewport()->update();
}

void PaperView::setNotice(const QString& notice)
{
    m_notice = notice;
    viewport()->update();
}

void PaperView::forgetDrawing()
{
    for (Page& page : m_pages) {
        page.isDrawn = false;
    }
    viewport()->update();
}

/// A page that can't be drawn keeps what stood there, and the reason is told.
void PaperView::draw(int index)
{
    Page& page = m_pages[static_cast<std::size_t>(index)];
    page.isDrawn = true;
    try {
        const double ratio = viewport()->devicePixelRatioF();
        const PagePicture picture =
            m_press.picture(pagePDF(index), page.ownPDF.empty() ? index : 0, qRound(paperWidth() * ratio));
        page.image = QImage(picture.pixels.data(), picture.width, picture.height, QImage::Format_RGBX8888).copy();
        page.image.setDevicePixelRatio(ratio);
    } catch (const PrintError& error) {
        m_notice = CoreText::sentence(error.message());
    }
}

int PaperView::paperWidth() const
{
    return std::clamp(viewport()->width() - 2 * margin, narrowestPaper, widestPaper);
}

/// A page that wasn't drawn yet is as high as the first: a document is printed on one kind of paper.
int PaperView::pageHeight(const Page& page) const
{
    const QImage& image = page.image.isNull() ? m_pages.front().image : page.image;
    return image.isNull() ? qRound(paperWidth() * usualShape)
                          : qRound(double(paperWidth()) * image.height() / image.width());
}

int PaperView::pageTop(int index) const
{
    int top = margin - verticalScrollBar()->value();
    for (int before = 0; before < index; ++before) {
        top += pageHeight(m_pages[static_cast<std::size_t>(before)]) + gap;
    }
    return top;
}

void PaperView::layOut()
{
    int height = margin;
    for (const Page& page : m_pages) {
        height += pageHeight(page) + gap;
    }
    height += margin - gap;
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setRange(0, std::max(0, height - viewport()->height()));
}

void PaperView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    layOut();
    m_redraw.start(redrawDelay);
}

void PaperView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), palette().color(QPalette::Mid));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const int left = (viewport()->width() - paperWidth()) / 2;
    int top = margin - verticalScrollBar()->value();
    for (std::size_t index = 0; index < m_pages.size(); ++index) {
        const QRect place(left, top, paperWidth(), pageHeight(m_pages[index]));
        if (place.intersects(viewport()->rect())) {
            if (!m_pages[index].isDrawn) {
                draw(int(index));
                QTimer::singleShot(0, this, &PaperView::layOut); // its shape is known now
            }
            drawShadow(painter, place);
            painter.fillRect(place, Qt::white);
            painter.drawImage(place, m_pages[index].image);
        }
        top += place.height() + gap;
    }
    if (!m_notice.isEmpty()) {
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                         Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                         m_notice);
    }
}

} // namespace Quillary
