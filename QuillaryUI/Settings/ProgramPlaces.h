#pragma once

#include "QuillaryCore/Store/Field.h"

#include <filesystem>
#include <functional>
#include <string>

namespace Quillary {

/// What the settings show and change beside the library.
struct ProgramPlaces
{
    /// Makes the PNG to keep of a picture's file. Throws: `UserError`.
    using LogoMaker = std::function<Bytes(const Bytes& file)>;

    std::filesystem::path assistantSettings = {}; ///< empty: there are none to change
    std::filesystem::path activityLog = {};
    std::string assistantSetup = {}; ///< how assistant apps are told of Quillary, to be copied
    LogoMaker makeLogo = {};         ///< empty: a logo can't be chosen
};

} // namespace Quillary
