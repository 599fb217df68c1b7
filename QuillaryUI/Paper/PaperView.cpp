#include "QuillaryUI/Paper/PaperView.h"

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
/// Beyond these a document is long, and its first pages are what one looks at; the PDF has them all.
constexpr int mostPages = 40;
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

} // namespace

PaperView::PaperView(PagePress& press, QWidget* parent)
    : QAbstractScrollArea(parent)
    , m_press(press)
{
    setObjectName(QStringLiteral("paper"));
    setAccessibleName(tr("The document's page"));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalScrollBar()->setSingleStep(40);
    m_redraw.setSingleShot(true);
    connect(&m_redraw, &QTimer::timeout, this, &PaperView::draw);
}

void PaperView::setPDF(Bytes pdf, int pageCount, Place place)
{
    m_pdf = std::move(pdf);
    m_pageCount = std::min(pageCount, mostPages);
    m_notice.clear();
    draw();
    if (place == Place::top) {
        verticalScrollBar()->setValue(0);
    }
}

void PaperView::clear()
{
    m_pdf.clear();
    m_pages.clear();
    m_pageCount = 0;
    layOut();
    viewport()->update();
}

void PaperView::setNotice(const QString& notice)
{
    m_notice = notice;
    viewport()->update();
}

/// All or nothing: a page that can't be drawn leaves what stood there.
void PaperView::draw()
{
    std::vector<QImage> pages;
    try {
        for (int page = 0; page < m_pageCount; ++page) {
            const PagePicture picture =
                m_press.picture(m_pdf, page, qRound(paperWidth() * viewport()->devicePixelRatioF()));
            QImage image = QImage(picture.pixels.data(), picture.width, picture.height, QImage::Format_RGBX8888).copy();
            image.setDevicePixelRatio(viewport()->devicePixelRatioF());
            pages.push_back(std::move(image));
        }
    } catch (const PrintError& error) {
        setNotice(QString::fromStdString(error.message()));
        return;
    }
    m_pages = std::move(pages);
    layOut();
    viewport()->update();
}

int PaperView::paperWidth() const
{
    return std::clamp(viewport()->width() - 2 * margin, narrowestPaper, widestPaper);
}

int PaperView::pageHeight(int page) const
{
    const QImage& image = m_pages[static_cast<std::size_t>(page)];
    return image.width() > 0 ? qRound(double(paperWidth()) * image.height() / image.width())
                             : qRound(paperWidth() * usualShape);
}

void PaperView::layOut()
{
    int height = margin;
    for (int page = 0; page < int(m_pages.size()); ++page) {
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
    if (m_pageCount > 0) {
        m_redraw.start(redrawDelay);
    }
}

void PaperView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), palette().color(QPalette::Mid));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const int left = (viewport()->width() - paperWidth()) / 2;
    int top = margin - verticalScrollBar()->value();
    for (int page = 0; page < int(m_pages.size()); ++page) {
        const QRect paper(left, top, paperWidth(), pageHeight(page));
        if (paper.intersects(viewport()->rect())) {
            drawShadow(painter, paper);
            painter.drawImage(paper, m_pages[static_cast<std::size_t>(page)]);
        }
        top += paper.height() + gap;
    }
    if (!m_notice.isEmpty()) {
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                         Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                         m_notice);
    }
}

} // namespace Quillary
