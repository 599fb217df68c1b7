#pragma once

#include "QuillaryCore/Store/Field.h"

namespace Quillary::VectorCheck {

/// Unit: any; only the proportion counts.
struct Proportion
{
    double width = 2;
    double height = 1;
};

/// The proportion of a vector picture (SVG 1.1). Refuses a file that is not well formed, one that shows
/// pictures of other files, and one that grows beyond any logo when its references are followed: the renderer would work
/// on it until the end of time.
/// Throws: `LogoError`.
[[nodiscard]] Proportion proportionOf(const Bytes& svg);

} // namespace Quillary::VectorCheck
