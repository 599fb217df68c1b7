#pragma once

#include "QuillaryCore/Foundation/Locale.h"

#include <filesystem>

namespace Quillary {

class PrintingHost;

/// Pictures of the windows with the sample library, for looking at them all.
namespace Screenshots {

/// Draws every section in light and dark as PNG, in the language of `words`. Returns how many. Throws: `UserError`.
int draw(const std::filesystem::path& folder, PrintingHost& host, const Locale& words);

} // namespace Screenshots

} // namespace Quillary
