#pragma once

#include "QuillaryCore/Foundation/Locale.h"

#include <filesystem>
#include <string>

namespace Quillary {

class PrintingHost;

/// Pictures of the windows with the sample library, for looking at them all.
namespace Screenshots {

/// Draws every section, its sheets and what it is before there is anything in it, in light and dark as PNG, in the
/// language of `words`. `assistantSetup` is what an assistant app is told. Returns how many. Throws: `UserError`.
int draw(const std::filesystem::path& folder,
         PrintingHost& host,
         const Locale& words,
         const std::string& assistantSetup);

} // namespace Screenshots

} // namespace Quillary
