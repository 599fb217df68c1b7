#pragma once

#include "QuillaryUI/Printing/PrintJob.h"

/// Pictures of the pages of a PDF, through Qt PDF.
namespace Quillary::PagePainter {

/// Throws: `PrintError`.
[[nodiscard]] int pageCount(const Bytes& pdf);

/// A page on white paper as PNG; the width is brought inside 16 to 4,000 pixels. Throws: `PrintError`.
[[nodiscard]] Bytes pageImage(const Bytes& pdf, int pageIndex, int pixelWidth);

/// The same for drawing at once.
[[nodiscard]] PagePicture pagePicture(const Bytes& pdf, int pageIndex, int pixelWidth);

/// The first page as PNG, without paper. Throws: `PrintError`.
[[nodiscard]] Bytes transparentImage(const Bytes& pdf, int pixelWidth);

} // namespace Quillary::PagePainter
