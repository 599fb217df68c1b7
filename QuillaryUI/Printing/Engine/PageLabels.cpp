#include "QuillaryUI/Printing/Engine/PageLabels.h"

#include <QBuffer>
#include <QFont>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <string_view>

namespace Quillary::PageLabels {
namespace {

constexpr double fontPoints = 7.5; // as the footer of the page
constexpr QColor grey(0x77, 0x77, 0x77);
constexpr double bodyPaddingPoints = 3; // the page keeps it free inside its margins
constexpr int unitsPerInch = 1440;
constexpr double unitsPerPoint = unitsPerInch / 72.0;

void replaceAll(std::string& text, std::string_view word, const std::string& value)
{
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + value.size())) {
        text.replace(at, word.size(), value);
    }
}

QRectF bottomMargin(const PageGeometry& geometry)
{
    const double right = geometry.width - geometry.marginRight - bodyPaddingPoints;
    return {geometry.marginLeft * unitsPerPoint,
            (geometry.height - geometry.marginBottom) * unitsPerPoint,
            (right - geometry.marginLeft) * unitsPerPoint,
            geometry.marginBottom * unitsPerPoint};
}

} // namespace

std::string text(std::string_view label, int page, int pages)
{
    std::string filled(label);
    replaceAll(filled, "{page}", std::to_string(page));
    replaceAll(filled, "{pages}", std::to_string(pages));
    return filled;
}

QByteArray sheets(const PrintJob& job, int pages)
{
    QByteArray pdf;
    QBuffer file(&pdf);
    file.open(QIODevice::WriteOnly);
    QPdfWriter writer(&file);
    writer.setResolution(unitsPerInch);
    writer.setPageSize(
        QPageSize(QSizeF(job.geometry.width, job.geometry.height), QPageSize::Point, {}, QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    QFont font(QString::fromStdString(job.labelFamily));
    font.setPointSizeF(fontPoints);
    QPainter painter(&writer);
    painter.setFont(font);
    painter.setPen(grey);
    for (int page = 1; page <= pages; ++page) {
        if (page > 1) {
            writer.newPage();
        }
        const std::string label = job.lonePage ? text(job.pageLabel, job.lonePage->index + 1, job.lonePage->pageCount)
                                               : text(job.pageLabel, page, pages);
        painter.drawText(bottomMargin(job.geometry),
                         Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                         QString::fromStdString(label));
    }
    painter.end();
    return pdf;
}

} // namespace Quillary::PageLabels
