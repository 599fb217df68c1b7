#pragma once

#include "Quillary/Control/ControlMessage.h"
#include "QuillaryUI/Assistant/AssistantServer.h"
#include "QuillaryUI/Assistant/Descriptor.h"

#include <filesystem>
#include <optional>

namespace Quillary {

/// A served library on its way from one process to another: the right to write it, the assistants' socket, and every
/// open connection with what its client said of itself.
struct Handover
{
    Descriptor lock; ///< the library's: what `LibraryLock::adopted` takes
    std::filesystem::path socketPath;
    AssistantServer::Handover assistants;

    [[nodiscard]] static ControlMessage packed(Handover handover);

    /// No value: not what `packed` makes.
    [[nodiscard]] static std::optional<Handover> unpacked(ControlMessage message);
};

} // namespace Quillary
