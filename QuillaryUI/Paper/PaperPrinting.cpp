#include "QuillaryUI/Paper/PaperPrinting.h"

#include <QCoreApplication>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPrinter>
#include <QProgressDialog>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace Quillary::PaperPrinting {

namespace {

constexpr int resolution = 600; ///< dots to the inch
constexpr int patience = 1000;  ///< milliseconds before the bar shows

std::vector<int> chosenPages(const QPrinter& printer, int pageCount)
{
    const bool hasRange = printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0;
    const int first = hasRange ? printer.fromPage() - 1 : 0;
    const int last = hasRange && printer.toPage() > 0 ? std::min(printer.toPage(), pageCount) - 1 : pageCount - 1;
    std::vector<int> pages;
    for (int page = first; page <= last; ++page) {
        pages.push_back(page);
    }
    if (printer.pageOrder() == QPrinter::LastPageFirst) {
        std::ranges::reverse(pages);
    }
    // A printer that can't repeat pages itself is handed them again.
    const int copies = printer.supportsMultipleCopies() ? 1 : std::max(1, printer.copyCount());
    std::vector<int> all;
    for (int copy = 0; copy < copies; ++copy) {
        all.insert(all.end(), pages.begin(), pages.end());
    }
    return all;
}

void drawPage(PagePress& press, const Bytes& pdf, int page, const QPrinter& printer, QPainter& painter)
{
    const QRect sheet = printer.pageLayout().fullRectPixels(printer.resolution());
    const PagePicture picture = press.picture(pdf, page, sheet.width());
    const QImage image(picture.pixels.data(), picture.width, picture.height, QImage::Format_RGBX8888);
    // Other paper than the page was made for is filled as far as the page's shape allows.
    const QSize size = image.size().scaled(sheet.size(), Qt::KeepAspectRatio);
    const QRect place(QPoint((sheet.width() - size.width()) / 2, (sheet.height() - size.height()) / 2), size);
    painter.drawImage(place, image);
}

} // namespace

void prepare(QPrinter& printer, const PageGeometry& geometry, const QString& name)
{
    // A sheet is known by its upright size; what lies across it is turned.
    const bool isAcross = geometry.width > geometry.height;
    const QSizeF size(std::min(geometry.width, geometry.height), std::max(geometry.width, geometry.height));
    const QPageSize paper(size, QPageSize::Point, {}, QPageSize::FuzzyMatch);
    printer.setResolution(resolution);
    printer.setFullPage(true);
    printer.setPageLayout(
        QPageLayout(paper, isAcross ? QPageLayout::Landscape : QPageLayout::Portrait, {}, QPageLayout::Point));
    printer.setDocName(name);
    printer.setCreator(QCoreApplication::applicationName());
}

void print(PagePress& press, const PrintedPDF& pdf, QPrinter& printer, QWidget* window)
{
    const std::vector<int> pages = chosenPages(printer, pdf.pageCount);
    QProgressDialog progress(QCoreApplication::translate("PaperPrinting", "Printing…"),
                             QCoreApplication::translate("PaperPrinting", "Cancel"),
                             0,
                             int(pages.size()),
                             window);
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(patience);
    QPainter painter;
    if (!painter.begin(&printer)) {
        throw PrintError(PrintError::Reason::noPages,
                         "The printer doesn't answer. Please look whether it is on, and try again.");
    }
    for (std::size_t done = 0; done < pages.size(); ++done) {
        progress.setValue(int(done));
        if (progress.wasCanceled()) {
            printer.abort();
            return;
        }
        if (done > 0) {
            printer.newPage();
        }
        drawPage(press, pdf.bytes, pages[done], printer, painter);
    }
    progress.setValue(int(pages.size()));
}

} // namespace Quillary::PaperPrinting
