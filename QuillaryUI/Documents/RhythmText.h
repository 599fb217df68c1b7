#pragma once

#include "QuillaryCore/Model/Document.h"
#include "QuillaryUI/Look/Formats.h"

#include <QString>

/// How often a recurring invoice is made, in the language of the windows.
namespace Quillary::RhythmText {

/// "Every month on the 31st, 2 of 12 made"
[[nodiscard]] QString sentence(const Document& recurring, const Formats& formats);

} // namespace Quillary::RhythmText
