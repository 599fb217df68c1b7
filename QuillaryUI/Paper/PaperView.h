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
    void clear();

    /// A word over the desk, such as why there is no page. Empty: none.
    void setNotice(const QString& notice);

    [[nodiscard]] const Bytes& pdf() const { return m_pdf; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Page
    {
        QImage image;         ///< of the PDF before, until the new one's is drawn
        bool isDrawn = false; ///< for this PDF and width
    };

    void forgetDrawing();
    void draw(int index);
    void layOut();
    [[nodiscard]] int paperWidth() const;
    [[nodiscard]] int pageHeight(const Page& page) const;

    PagePress& m_press;
    Bytes m_pdf;
    std::vector<Page> m_pages;
    QString m_notice;
    QTimer m_redraw; ///< after a resize
};

} // namespace Quillary
