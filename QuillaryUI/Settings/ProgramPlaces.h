#pragma once

#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Store/Field.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace Quillary {

/// What became of the restoring of a backup.
struct RestoreOutcome
{
    std::optional<std::filesystem::path>
        kept;            ///< where the library lies that was here before; no value: there was none
    std::string refusal; ///< why it was not done, as a sentence; empty: it was
};

/// What the settings show and change beside the library.
struct ProgramPlaces
{
    /// Makes the PNG to keep of a picture's file. Throws: `UserError`.
    using LogoMaker = std::function<Bytes(const Bytes& file)>;

    /// Exchanges the library for a backup. It is closed meanwhile, and open again when `done` hears of the outcome.
    using Restore =
        std::function<void(const std::filesystem::path& backup, std::function<void(const RestoreOutcome&)> done)>;

    std::filesystem::path assistantSettings = {}; ///< empty: there are none to change
    std::filesystem::path activityLog = {};
    std::string assistantSetup = {};   ///< how assistant apps are told of Quillary, to be copied
    std::filesystem::path lock = {};   ///< empty: nothing can be locked
    std::function<Instant()> now = {}; ///< there where `lock` is: the library, which knows the time, may be away
    LogoMaker makeLogo = {};           ///< empty: a logo can't be chosen
    Restore restore = {};              ///< empty: there is nothing to exchange
};

} // namespace Quillary
