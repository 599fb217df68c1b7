#pragma once

#include "QuillaryChannel/AssistantChannel.h"

#include <chrono>
#include <string>

namespace Quillary {

/// What the helper finds around it.
struct HelperSurroundings
{
    const char* const* environment; ///< "NAME=value", ended by null
    AssistantChannel::Places places = {};
    std::string linkToSelf = "/proc/self/exe"; ///< the application lies beside the program that this names
    std::chrono::seconds patience{10};         ///< with an application that comes up, or is too busy
};

/// A socket connected to the application, which is started when it doesn't run and the environment doesn't say where
/// else it listens. Returns its descriptor, or -1 when `output` lost its reader while we waited.
/// Throws: `AssistantChannel::Error`; also when what listens there belongs to another user.
[[nodiscard]] int connectToApplication(const HelperSurroundings& surroundings, int output);

} // namespace Quillary
