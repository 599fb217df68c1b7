#pragma once

#include "QuillaryUI/Printing/PrintJob.h"

#include <QByteArray>

/// A vector picture as a page of its own, so that the renderer, which locks itself in, draws what strangers made.
namespace Quillary::VectorPage {

/// As an image element the picture runs no script and loads nothing.
[[nodiscard]] QByteArray html(const Bytes& svg);

/// A sheet without margins of 96 pixels to the inch.
[[nodiscard]] PageGeometry geometry(int pixelWidth, int pixelHeight);

} // namespace Quillary::VectorPage
