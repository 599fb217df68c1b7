#include "QuillaryUI/Printing/Engine/PagePainter.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QPdfDocument>

#include <fmt/format.h>

#include <algorithm>

namespace Quillary::PagePainter {
namespace {

constexpr int narrowest = 16;
constexpr int widest = 4000;

/// Long enough for a receipt roll; a page of which a picture makes sense is never as slim.
constexpr int highest = 20000;

/// An opened PDF; borrows the bytes.
class OpenedPDF
{
public:
    explicit OpenedPDF(const Bytes& pdf)
    {
        m_file.setData(QByteArray::fromRawData(reinterpret_cast<const char*>(pdf.data()), qsizetype(pdf.size())));
        m_file.open(QIODevice::ReadOnly);
        m_document.load(&m_file);
        if (m_document.status() != QPdfDocument::Status::Ready || m_document.pageCount() < 1) {
            throw PrintError(PrintError::Reason::damagedPDF, "This is not a PDF that can be read.");
        }
    }

    [[nodiscard]] int pageCount() const { return m_document.pageCount(); }

    /// Transparent where nothing is printed.
    [[nodiscard]] QImage paint(int pageIndex, int pixelWidth)
    {
        if (pageIndex < 0 || pageIndex >= pageCount()) {
            throw PrintError(PrintError::Reason::noSuchPage,
                             fmt::format("There is no page {}; the document has {}.", pageIndex + 1, pageCount()));
        }
        const int width = std::clamp(pixelWidth, narrowest, widest);
        const QSizeF sheet = m_document.pagePointSize(pageIndex);
        const double height = sheet.width() > 0 ? width * sheet.height() / sheet.width() : 0;
        return m_document.render(pageIndex, QSize(width, std::clamp(qRound(height), 1, highest)));
    }

private:
    QBuffer m_file;
    QPdfDocument m_document;
};

Bytes png(const QImage& image)
{
    QByteArray bytes;
    QBuffer file(&bytes);
    file.open(QIODevice::WriteOnly);
    QImageWriter writer(&file, QByteArrayLiteral("png"));
    if (image.isNull() || !writer.write(image)) {
        throw PrintError(PrintError::Reason::damagedPDF, "No picture of this page could be made.");
    }
    return {bytes.begin(), bytes.end()};
}

QImage onPaper(const Bytes& pdf, int pageIndex, int pixelWidth)
{
    const QImage printed = OpenedPDF(pdf).paint(pageIndex, pixelWidth);
    QImage paper(printed.size(), QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter(&paper).drawImage(0, 0, printed);
    return paper;
}

} // namespace

int pageCount(const Bytes& pdf)
{
    return OpenedPDF(pdf).pageCount();
}

Bytes pageImage(const Bytes& pdf, int pageIndex, int pixelWidth)
{
    return png(onPaper(pdf, pageIndex, pixelWidth));
}

PagePicture pagePicture(const Bytes& pdf, int pageIndex, int pixelWidth)
{
    const QImage page = onPaper(pdf, pageIndex, pixelWidth).convertToFormat(QImage::Format_RGBX8888);
    // Rows of four-byte pixels have no gaps.
    return {.width = page.width(),
            .height = page.height(),
            .pixels = Bytes(page.constBits(), page.constBits() + page.sizeInBytes())};
}

Bytes transparentImage(const Bytes& pdf, int pixelWidth)
{
    return png(OpenedPDF(pdf).paint(0, pixelWidth));
}

} // namespace Quillary::PagePainter
