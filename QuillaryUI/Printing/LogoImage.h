#pragma once

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Store/Field.h"

#include <cstddef>
#include <functional>

namespace Quillary {

/// A picture that can't serve as a logo.
class LogoError : public UserError
{
public:
    enum class Reason { empty, tooManyBytes, tooManyPixels, unknownFormat, damaged, tooComplex, outsidePicture, blank };

    LogoError(Reason reason, const std::string& message)
        : UserError(message)
        , m_reason(reason)
    {
    }

    [[nodiscard]] Reason reason() const { return m_reason; }

private:
    Reason m_reason;
};

/// Makes the stored logo of a file that a person chose.
namespace LogoImage {

inline constexpr std::size_t maximumFileBytes = 10'000'000;
inline constexpr int maximumMegapixels = 40; ///< asked of the file's header, before anything is decoded

/// The stored picture fits into this. Unit: pixels. Four times what the largest logo covers on paper at 300 dpi would
/// be waste in every PDF; this is a little above it.
inline constexpr int maximumWidth = 1200;
inline constexpr int maximumHeight = 600;

/// Draws an SVG as PNG of at most the given width and height (`PagePrinter::vectorImage`).
using VectorPainter = std::function<Bytes(const Bytes& svg, int pixelWidth, int pixelHeight)>;

/// Reads PNG, JPEG, WebP or SVG, whatever the file is named, and writes PNG in sRGB: turned upright as the camera says
/// (EXIF), transparency kept, larger pictures made smaller, remarks and places left out. Pictures in other colour
/// spaces are converted. Needs a `QGuiApplication`.
/// Throws: `LogoError`; what `paintVector` throws.
[[nodiscard]] Bytes toPNG(const Bytes& file, const VectorPainter& paintVector);

} // namespace LogoImage
} // namespace Quillary
