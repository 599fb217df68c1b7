#include "QuillaryUI/Printing/Engine/PagePainter.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>

#include <gtest/gtest.h>

namespace Quillary {
namespace {

/// Two A4 sheets with a black square at the top left.
Bytes twoSheets()
{
    QByteArray bytes;
    QBuffer file(&bytes);
    file.open(QIODevice::WriteOnly);
    QPdfWriter writer(&file);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins({});
    QPainter painter(&writer);
    painter.fillRect(0, 0, writer.width() / 4, writer.width() / 4, Qt::black);
    writer.newPage();
    painter.end();
    return {bytes.begin(), bytes.end()};
}

QImage image(const Bytes& png)
{
    return QImage::fromData(png.data(), int(png.size()), "PNG");
}

TEST(PagePainterTest, paintsAPageOnWhitePaper)
{
    const Bytes pdf = twoSheets();
    EXPECT_EQ(PagePainter::pageCount(pdf), 2);
    const QImage first = image(PagePainter::pageImage(pdf, 0, 600));
    EXPECT_EQ(first.size(), QSize(600, 849)); // 600 × √2
    EXPECT_EQ(first.pixelColor(20, 20), QColor(Qt::black));
    EXPECT_EQ(first.pixelColor(500, 500), QColor(Qt::white));
    EXPECT_FALSE(first.hasAlphaChannel());
    EXPECT_EQ(image(PagePainter::pageImage(pdf, 1, 600)).pixelColor(20, 20), QColor(Qt::white));
    EXPECT_EQ(image(PagePainter::transparentImage(pdf, 600)).pixelColor(500, 500).alpha(), 0);
}

TEST(PagePainterTest, bringsWidthsInsideItsLimits)
{
    const Bytes pdf = twoSheets();
    EXPECT_EQ(image(PagePainter::pageImage(pdf, 0, -5)).width(), 16);
    EXPECT_EQ(image(PagePainter::pageImage(pdf, 0, 1'000'000)).width(), 4000);
}

TEST(PagePainterTest, saysWhatIsWrong)
{
    Bytes cut = twoSheets();
    cut.resize(cut.size() / 2);
    const std::tuple<Bytes, int, PrintError::Reason> cases[] = {
        {twoSheets(), 2, PrintError::Reason::noSuchPage},
        {twoSheets(), -1, PrintError::Reason::noSuchPage},
        {{}, 0, PrintError::Reason::damagedPDF},
        {{'h', 'e', 'l', 'l', 'o'}, 0, PrintError::Reason::damagedPDF},
        {cut, 0, PrintError::Reason::damagedPDF},
    };
    for (const auto& [pdf, page, reason] : cases) {
        try {
            (void)PagePainter::pageImage(pdf, page, 100);
            ADD_FAILURE() << "painted page " << page;
        } catch (const PrintError& error) {
            EXPECT_EQ(error.reason(), reason) << error.message();
        }
    }
}

} // namespace
} // namespace Quillary
