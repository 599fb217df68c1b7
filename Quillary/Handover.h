#pragma once

#include "Quillary/Control/ControlMessage.h"
#include "QuillaryCore/Store/LibraryLock.h"
#include "QuillaryUI/Assistant/AssistantServer.h"

#include <filesystem>
#include <memory>
#include <optional>

namespace Quillary {

/// A served library on its way from one process to another: the right to write it, the assistants' socket, and every
/// open connection with what its client said of itself.
struct Handover
{
    std::unique_ptr<LibraryLock> lock;
    std::filesystem::path socketPath;
    AssistantServer::Handover assistants;

    [[nodiscard]] static ControlMessage packed(Handover handover);

    /// No value: not what `packed` makes.
    [[nodiscard]] static std::optional<Handover> unpacked(ControlMessage message);
};

} // namespace Quillary
