#include "QuillaryUI/Look/QuickText.h"

#include <QFont>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QRect>
#include <QString>

#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace Quillary {
namespace {

constexpr QSize cell(220, 32);

QImage drawn(int scale, const std::function<void(QPainter&)>& work)
{
    QImage picture(scale * cell, QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setPen(Qt::black);
    work(painter);
    return picture;
}

TEST(QuickTextTest, looksAsTheGeneralLayoutDoes)
{
    struct Case
    {
        const char* text;
        Qt::Alignment alignment;
        bool isDrawn;
    };
    const Case cases[] = {
        {"INV-2026-000017", Qt::AlignLeft, true},
        {"AVATAR & Töchter, Wörth To. Yves", Qt::AlignLeft, true}, // letters that move together
        {"€1,190.00", Qt::AlignRight, true},
        {"-1\u202f190,00\u00a0€", Qt::AlignRight, true},
        {"", Qt::AlignLeft, true},
        {" a ", Qt::AlignRight, true},
        {"A name that is a good deal longer than its column", Qt::AlignLeft, true}, // cut off
        {"e\u0301 with a mark of its own", Qt::AlignLeft, false},
        {"שלום", Qt::AlignLeft, false},
        {"東京", Qt::AlignLeft, false},
    };
    for (const auto& [points, scale] :
         {std::pair(9.0, 1), std::pair(10.5, 1), std::pair(14.0, 1), std::pair(10.0, 2)}) {
        QFont font;
        font.setPointSizeF(points);
        QuickText quick(font);
        const QRect inside = QRect({}, cell).adjusted(8, 0, -8, 0);
        for (const Case& example : cases) {
            const QString text = QString::fromUtf8(example.text);
            bool isDrawn = false;
            const QImage quickly = drawn(
                scale, [&](QPainter& painter) { isDrawn = quick.draw(painter, inside, example.alignment, text); });
            EXPECT_EQ(isDrawn, example.isDrawn) << example.text;
            const QImage generally = drawn(scale, [&](QPainter& painter) {
                painter.setFont(font);
                const QString shown = QFontMetrics(font).elidedText(text, Qt::ElideRight, inside.width());
                painter.drawText(inside, int(example.alignment | Qt::AlignVCenter) | Qt::TextSingleLine, shown);
            });
            if (isDrawn) {
                EXPECT_EQ(quickly, generally) << example.text << " at " << points << " times " << scale;
            }
        }
    }
}

} // namespace
} // namespace Quillary
