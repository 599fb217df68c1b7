#pragma once

#include <filesystem>
#include <string>

namespace Quillary {

/// What the settings show and change beside the library.
struct ProgramPlaces
{
    std::filesystem::path assistantSettings; ///< empty: there are none to change
    std::filesystem::path activityLog;
    std::string assistantSetup; ///< how assistant apps are told of Quillary, to be copied
};

} // namespace Quillary
