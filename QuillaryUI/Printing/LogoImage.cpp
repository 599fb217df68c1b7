#include "QuillaryUI/Printing/LogoImage.h"

#include "QuillaryUI/Printing/CompleteFile.h"
#include "QuillaryUI/Printing/QuietMessages.h"
#include "QuillaryUI/Printing/VectorCheck.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImage>
#include <QImageReader>
#include <QImageWriter>

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <string_view>

namespace Quillary::LogoImage {
namespace {

using Reason = LogoError::Reason;

QByteArray borrowed(const Bytes& bytes)
{
    return QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()), qsizetype(bytes.size()));
}

/// Told by the content: names and their endings come from strangers. Empty: none that a logo may have.
QByteArray formatOf(const QByteArray& file)
{
    if (file.startsWith("\x89PNG\r\n\x1a\n")) {
        return QByteArrayLiteral("png");
    }
    if (file.startsWith("\xFF\xD8\xFF")) {
        return QByteArrayLiteral("jpeg");
    }
    if (file.startsWith("RIFF") && file.mid(8, 4) == "WEBP") {
        return QByteArrayLiteral("webp");
    }
    // An XML declaration, a comment or a document type may stand before the root.
    QByteArray text = file.left(4096);
    if (text.startsWith("\xEF\xBB\xBF")) {
        text.remove(0, 3);
    }
    const bool isMarkup = text.trimmed().startsWith('<') && text.contains("<svg");
    return isMarkup ? QByteArrayLiteral("svg") : QByteArray();
}

[[noreturn]] void refuseDamaged()
{
    throw LogoError(Reason::damaged, "The picture is damaged and can't be read.");
}

QImage readRaster(const Bytes& file, const QByteArray& format)
{
    const bool isWhole = format == "jpeg"  ? CompleteFile::isWholeJPEG(file)
                         : format == "png" ? CompleteFile::isWholePNG(file)
                                           : true; // the decoder of WebP tells
    if (!isWhole) {
        refuseDamaged();
    }
    const QuietMessages quiet; // decoders remark on what is refused here, or does no harm
    QByteArray bytes = borrowed(file);
    QBuffer device(&bytes);
    QImageReader reader(&device, format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.isEmpty()) {
        refuseDamaged();
    }
    const double megapixels = double(size.width()) * size.height() / 1e6;
    if (megapixels > maximumMegapixels) {
        throw LogoError(
            Reason::tooManyPixels,
            fmt::format("The picture has {:.0f} megapixels. A logo may have up to {}; please choose a smaller one.",
                        std::ceil(megapixels),
                        maximumMegapixels));
    }
    QImage image = reader.read();
    if (image.isNull()) {
        refuseDamaged();
    }
    return image;
}

/// Fits a size into the largest logo; never larger than it is.
QSize fitted(QSize size)
{
    const bool isTooLarge = size.width() > maximumWidth || size.height() > maximumHeight;
    return isTooLarge ? size.scaled(maximumWidth, maximumHeight, Qt::KeepAspectRatio).expandedTo({1, 1}) : size;
}

/// In sRGB, of the size to be stored, with nothing but its pixels.
QImage prepared(QImage image)
{
    if (image.colorSpace().isValid() && image.colorSpace() != QColorSpace(QColorSpace::SRgb)) {
        image.convertToColorSpace(QColorSpace::SRgb);
    }
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    const QSize size = fitted(image.size());
    if (size != image.size()) {
        image = image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    // A copy of the bare pixels leaves remarks, places and profiles behind.
    const QImage pixels(image.constBits(), image.width(), image.height(), image.bytesPerLine(), image.format());
    return pixels.copy();
}

bool isBlank(const QImage& image)
{
    if (!image.hasAlphaChannel()) {
        return false;
    }
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        if (std::any_of(line, line + image.width(), [](QRgb pixel) { return qAlpha(pixel) > 0; })) {
            return false;
        }
    }
    return true;
}

Bytes png(const QImage& image)
{
    QByteArray bytes;
    QBuffer device(&bytes);
    if (!QImageWriter(&device, QByteArrayLiteral("png")).write(image)) {
        refuseDamaged();
    }
    return {bytes.begin(), bytes.end()};
}

Bytes paintedVector(const Bytes& svg, const VectorPainter& paintVector)
{
    const VectorCheck::Proportion proportion = VectorCheck::proportionOf(svg);
    const double scale = std::min(maximumWidth / proportion.width, maximumHeight / proportion.height);
    return paintVector(svg,
                       std::clamp(int(std::lround(proportion.width * scale)), 1, maximumWidth),
                       std::clamp(int(std::lround(proportion.height * scale)), 1, maximumHeight));
}

} // namespace

Bytes toPNG(const Bytes& file, const VectorPainter& paintVector)
{
    if (file.empty()) {
        throw LogoError(Reason::empty, "The file is empty.");
    }
    if (file.size() > maximumFileBytes) {
        throw LogoError(Reason::tooManyBytes,
                        fmt::format("The file is larger than {} MB. Please choose a smaller picture.",
                                    maximumFileBytes / 1'000'000));
    }
    const QByteArray format = formatOf(borrowed(file));
    if (format.isEmpty()) {
        throw LogoError(Reason::unknownFormat,
                        "This file is not a picture that can be a logo. Please choose a PNG, JPEG, WebP or SVG file.");
    }
    const bool isVector = format == "svg";
    const QImage image = prepared(isVector ? readRaster(paintedVector(file, paintVector), QByteArrayLiteral("png"))
                                           : readRaster(file, format));
    if (isBlank(image)) {
        throw LogoError(Reason::blank, "Nothing can be seen in this picture: all of it is transparent.");
    }
    return png(image);
}

} // namespace Quillary::LogoImage
