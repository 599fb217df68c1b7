#include "QuillaryUI/Printing/LogoImage.h"

#include "QuillaryUI/Printing/Engine/WebPagePrinter.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImage>
#include <QImageWriter>
#include <QPainter>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace Quillary {
namespace {

using Reason = LogoError::Reason;

Bytes bytes(std::string_view text)
{
    return {text.begin(), text.end()};
}

/// Left half red, right half blue, and a see-through corner where the format knows it.
QImage picture(int width, int height, QImage::Format format = QImage::Format_ARGB32)
{
    QImage image(width, height, format);
    image.fill(Qt::red);
    QPainter painter(&image);
    painter.fillRect(width / 2, 0, width, height, Qt::blue);
    if (image.hasAlphaChannel()) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(0, 0, width / 4, height / 4, Qt::transparent);
    }
    return image;
}

Bytes encoded(const QImage& image, const char* format)
{
    QByteArray file;
    QBuffer device(&file);
    QImageWriter writer(&device, format);
    if (std::string_view(format) != "png") {
        writer.setQuality(100);
    }
    EXPECT_TRUE(writer.write(image)) << format;
    return {file.begin(), file.end()};
}

/// Puts the camera's "turn right by 90°" into a JPEG file, right behind its first mark.
Bytes turned(Bytes jpeg)
{
    constexpr std::uint8_t exif[] = {0xFF, 0xE1, 0,    34,   'E', 'x', 'i', 'f', 0, 0, 'M', 'M', 0, 42, 0, 0, 0, 8,
                                     0,    1,    0x01, 0x12, 0,   3,   0,   0,   0, 1, 0,   6,   0, 0,  0, 0, 0, 0};
    jpeg.insert(jpeg.begin() + 2, std::begin(exif), std::end(exif));
    return jpeg;
}

Bytes noVectors(const Bytes& /*svg*/, int /*width*/, int /*height*/)
{
    ADD_FAILURE() << "this file is no drawing";
    return {};
}

QImage imported(const Bytes& file, const LogoImage::VectorPainter& painter = noVectors)
{
    const Bytes png = LogoImage::toPNG(file, painter);
    EXPECT_EQ(std::string(png.begin(), png.begin() + 4), "\x89PNG");
    return QImage::fromData(png.data(), int(png.size()), "PNG");
}

TEST(LogoImageTest, readsPicturesByTheirContent)
{
    for (const char* format : {"png", "jpeg", "webp"}) {
        const QImage logo = imported(encoded(picture(80, 40), format));
        EXPECT_EQ(logo.size(), QSize(80, 40)) << format;
        EXPECT_GT(logo.pixelColor(30, 30).red(), 240) << format;
        EXPECT_GT(logo.pixelColor(60, 30).blue(), 240) << format;
        EXPECT_EQ(logo.pixelColor(3, 3).alpha(), std::string_view(format) == "jpeg" ? 255 : 0) << format;
    }
}

TEST(LogoImageTest, turnsUprightAndFitsTheLargestLogo)
{
    const QImage upright = imported(turned(encoded(picture(80, 40, QImage::Format_RGB32), "jpeg")));
    EXPECT_EQ(upright.size(), QSize(40, 80));
    EXPECT_GT(upright.pixelColor(20, 10).red(), 240);
    EXPECT_GT(upright.pixelColor(20, 70).blue(), 240);
    EXPECT_EQ(imported(encoded(picture(4000, 1000), "png")).size(), QSize(1200, 300));
    EXPECT_EQ(imported(encoded(picture(300, 3000), "png")).size(), QSize(60, 600));
    EXPECT_EQ(imported(encoded(picture(5000, 1), "png")).size(), QSize(1200, 1));
}

TEST(LogoImageTest, keepsNothingButThePixels)
{
    QImage image = picture(20, 20);
    image.setText(QStringLiteral("Comment"), QStringLiteral("51.5007 N, 0.1246 W"));
    EXPECT_TRUE(imported(encoded(image, "png")).textKeys().isEmpty());

    QImage wide(20, 20, QImage::Format_RGB32);
    wide.setColorSpace(QColorSpace(QColorSpace::DisplayP3));
    wide.fill(qRgb(200, 100, 100));
    const QColor converted = imported(encoded(wide, "png")).pixelColor(5, 5);
    EXPECT_GT(converted.red(), 205); // the same colour has other figures in sRGB
}

/// A JPEG file whose frame header promises so many pixels.
Bytes promising(int width, int height)
{
    Bytes file = encoded(picture(8, 8, QImage::Format_RGB32), "jpeg");
    constexpr std::uint8_t frame[] = {0xFF, 0xC0};
    const auto header = std::search(file.begin(), file.end(), std::begin(frame), std::end(frame));
    EXPECT_NE(header, file.end());
    header[5] = std::uint8_t(height / 256);
    header[6] = std::uint8_t(height % 256);
    header[7] = std::uint8_t(width / 256);
    header[8] = std::uint8_t(width % 256);
    return file;
}

Bytes cut(Bytes file, std::size_t length)
{
    file.resize(length);
    return file;
}

constexpr std::string_view svgStart = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"10\" height=\"5\">";

/// Each level draws the one below ten times.
std::string useBomb()
{
    std::string svg(svgStart);
    svg += "<g id=\"l0\"><rect width=\"1\" height=\"1\"/></g>";
    for (int level = 1; level <= 9; ++level) {
        svg += "<g id=\"l" + std::to_string(level) + "\">";
        for (int copy = 0; copy < 10; ++copy) {
            svg += "<use href=\"#l" + std::to_string(level - 1) + "\"/>";
        }
        svg += "</g>";
    }
    return svg + "</svg>";
}

std::string entityBomb()
{
    std::string svg = "<!DOCTYPE svg [<!ENTITY a \"aaaaaaaaaa\">";
    for (char name = 'b'; name <= 'i'; ++name) {
        svg += std::string("<!ENTITY ") + name + " \"";
        for (int copy = 0; copy < 10; ++copy) {
            svg += std::string("&") + char(name - 1) + ";";
        }
        svg += "\">";
    }
    return svg + "]>" + std::string(svgStart) + "<text>&i;</text></svg>";
}

TEST(LogoImageTest, refusesInOneSentence)
{
    const Bytes png = encoded(picture(80, 40), "png");
    const Bytes jpeg = encoded(picture(80, 40, QImage::Format_RGB32), "jpeg");
    const std::tuple<const char*, Bytes, Reason> cases[] = {
        {"nothing", {}, Reason::empty},
        {"one byte too many", Bytes(LogoImage::maximumFileBytes + 1, 'x'), Reason::tooManyBytes},
        {"a text file", bytes("Dear Sir or Madam"), Reason::unknownFormat},
        {"a web page", bytes("<html><body>hello</body></html>"), Reason::unknownFormat},
        {"another picture format", encoded(picture(8, 8), "bmp"), Reason::unknownFormat},
        {"a signature alone", cut(png, 8), Reason::damaged},
        {"half a PNG", cut(png, png.size() / 2), Reason::damaged},
        {"half a JPEG", cut(jpeg, jpeg.size() / 2), Reason::damaged},
        {"half a WebP", cut(encoded(picture(80, 40), "webp"), 60), Reason::damaged},
        {"four billion pixels", promising(60'000, 60'000), Reason::tooManyPixels},
        {"one pixel row too many", promising(40'000, 1'001), Reason::tooManyPixels},
        {"no pixels", promising(0, 10), Reason::damaged},
        {"all transparent",
         encoded(QImage(QSize(9, 9), QImage::Format_ARGB32_Premultiplied).copy(QRect(20, 20, 9, 9)), "png"),
         Reason::blank},
        {"an open element", bytes(std::string(svgStart) + "<g>"), Reason::damaged},
        {"a drawing in another root", bytes("<a><svg/></a>"), Reason::damaged},
        {"a file beside it",
         bytes(std::string(svgStart) + "<image href=\"file:///etc/logo.png\"/></svg>"),
         Reason::outsidePicture},
        {"a picture from the web",
         bytes(std::string(svgStart) +
               "<image xmlns:x=\"http://www.w3.org/1999/xlink\" x:href=\"http://a.example/b.png\"/></svg>"),
         Reason::outsidePicture},
        {"a billion rectangles", bytes(useBomb()), Reason::tooComplex},
        {"a billion letters", bytes(entityBomb()), Reason::damaged},
        {"too deep",
         bytes(std::string(svgStart) +
               [] {
                   std::string deep;
                   for (int i = 0; i < 9000; ++i) {
                       deep += "<g>";
                   }
                   return deep;
               }()),
         Reason::tooComplex},
    };
    for (const auto& [name, file, reason] : cases) {
        try {
            (void)LogoImage::toPNG(file, noVectors);
            ADD_FAILURE() << name << " was taken";
        } catch (const LogoError& error) {
            EXPECT_EQ(error.reason(), reason) << name << ": " << error.message();
            EXPECT_THAT(error.message(), testing::EndsWith(".")) << name;
        }
    }
}

TEST(LogoImageTest, asksForDrawingsInTheirProportion)
{
    const std::tuple<const char*, int, int> cases[] = {
        {"width=\"10\" height=\"5\"", 1200, 600},
        {"width=\"30mm\" height=\"90mm\"", 200, 600},
        {"viewBox=\"0 0 400 100\"", 1200, 300},
        {"viewBox=\"0,0,400,100\" width=\"100%\" height=\"100%\"", 1200, 300},
        {"width=\"1e9\" height=\"1\"", 1200, 60}, // never slimmer than 1 : 20
        {"width=\"-1\" height=\"0\"", 1200, 600},
        {"", 1200, 600},
    };
    for (const auto& [attributes, width, height] : cases) {
        const std::string svg = std::string("<?xml version=\"1.0\"?><svg xmlns=\"http://www.w3.org/2000/svg\" ") +
                                attributes + "><use href=\"#x\" id=\"x\"/></svg>"; // refers to itself
        int asked = 0;
        (void)LogoImage::toPNG(bytes(svg), [&](const Bytes&, int askedWidth, int askedHeight) {
            ++asked;
            EXPECT_EQ(askedWidth, width) << attributes;
            EXPECT_EQ(askedHeight, height) << attributes;
            return encoded(picture(askedWidth, askedHeight), "png");
        });
        EXPECT_EQ(asked, 1);
    }
}

class VectorLogoTest : public testing::Test
{
protected:
    QImage import(const std::string& svg)
    {
        return imported(bytes(svg), [this](const Bytes& file, int width, int height) {
            return m_printer.vectorImage(file, width, height);
        });
    }

    WebPagePrinter m_printer{PrinterLimits{}};
};

TEST_F(VectorLogoTest, drawsDrawingsWithTheirTransparency)
{
    const QImage logo =
        import(std::string(svgStart) + "<style>.a { fill: #00f; }</style><defs><clipPath id=\"c\">"
                                       "<rect x=\"5\" width=\"5\" height=\"5\"/></clipPath></defs>"
                                       "<rect class=\"a\" width=\"10\" height=\"5\" clip-path=\"url(#c)\"/></svg>");
    EXPECT_EQ(logo.size(), QSize(1200, 600));
    EXPECT_EQ(logo.pixelColor(900, 300), QColor(Qt::blue));
    EXPECT_EQ(logo.pixelColor(300, 300).alpha(), 0);
    EXPECT_EQ(logo.pixelColor(1190, 595), QColor(Qt::blue)); // to the very edge
}

TEST_F(VectorLogoTest, runsNothing)
{
    const std::string svg = std::string(svgStart) + "<rect width=\"10\" height=\"5\"/><script>"
                                                    "document.documentElement.innerHTML = '';</script></svg>";
    EXPECT_EQ(import(svg).pixelColor(600, 300), QColor(Qt::black));
}

} // namespace
} // namespace Quillary
