#pragma once

#include "Quillary/Control/LibraryClaim.h"
#include "Quillary/Handover.h"

#include <filesystem>
#include <optional>

namespace Quillary {

/// The right to serve a library.
struct ServingRight
{
    /// What the Quillary in the background passed on, and waits to be confirmed.
    struct Taken
    {
        Descriptor holder;
        Handover handover;
    };

    std::optional<Taken> taken;
    LibraryClaim claim; ///< where nothing was taken over

    static constexpr const char* alreadyRunning = "Quillary is already running.";

    /// Takes the lock, or has everything handed over by a Quillary in the background, which it may have to wait for; one
    /// that is started in the background itself takes nothing over. `socket` is where assistants are to be served.
    /// Throws: `UserError`.
    [[nodiscard]] static ServingRight
    obtain(const std::filesystem::path& library, const std::filesystem::path& socket, bool isBackground);

    /// A path as both sides of a handover write it.
    [[nodiscard]] static std::filesystem::path comparable(const std::filesystem::path& path);
};

} // namespace Quillary
