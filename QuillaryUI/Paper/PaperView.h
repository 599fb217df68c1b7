#pragma once

#include "QuillaryUI/Paper/PagePress.h"

#include <QAbstractScrollArea>
#include <QImage>
#include <QTimer>

#include <vector>

namespace Quillary {

/// The pages of a PDF on the desk: as wide as there is room, drawn for the screen's own pixels when they are seen, so that
/// a long document costs no more than a short one. Exchanging the PDF leaves the view where it is.
class PaperView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit PaperView(PagePress& press, QWidget* parent = nullptr);

    enum class Place { kept, top };
    void setPDF(Bytes pdf, int pageCount, Place place);
    /// One page is ahead of the others: it is drawn from a PDF of its own until the next whole one comes.
    void setPage(int index, Bytes pdf);
    void clear();

    /// A word over the desk, such as why there is no page. Empty: none.
    void setNotice(const QString& notice);

    [[nodiscard]] const Bytes& pdf() const { return m_pdf; }
    [[nodiscard]] int pageCount() const { return int(m_pages.size()); }
    /// What the page is drawn from. It is there.
    [[nodiscard]] const Bytes& pagePDF(int index) const;

    /// Whether some of the page is in sight.
    [[nodiscard]] bool shows(int index) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Page
    {
        QImage image;         ///< of the PDF before, until the new one's is drawn
        Bytes ownPDF;         ///< empty: it is drawn from that of all pages
        bool isDrawn = false; ///< for this PDF and width
    };

    void forgetDrawing();
    void draw(int index);
    void layOut();
    [[nodiscard]] int paperWidth() const;
    [[nodiscard]] int pageHeight(const Page& page) const;
    /// Where the page begins, counted from the upper edge of what is in sight.
    [[nodiscard]] int pageTop(int index) const;

    PagePress& m_press;
    Bytes m_pdf;
    std::vector<Page> m_pages;
    QString m_notice;
    QTimer m_redraw; ///< after a resize
};

} // namespace Quillary
