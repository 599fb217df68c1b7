#pragma once

#include "QuillaryCore/Output/Color.h"
#include "QuillaryCore/Store/Field.h"

namespace Quillary {

/// The made-up studio's mark as PNG, 320 by 320 pixels on a transparent ground: a white leaf on a disc of this colour.
/// The same colour gives the same bytes.
[[nodiscard]] Bytes sampleLogo(const Color& color);

} // namespace Quillary
