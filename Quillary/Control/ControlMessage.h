#pragma once

#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryUI/Assistant/Descriptor.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace Quillary {

/// What one Quillary tells another over the control socket of a library: a JSON object, bytes that JSON can't hold, and
/// open files, which the system copies into the other process.
struct ControlMessage
{
    JSON body;
    std::string bytes = {};
    std::vector<Descriptor> descriptors = {};

    /// The text member `name` of the body; empty where there is none.
    [[nodiscard]] std::string text(std::string_view name) const;
};

namespace ControlChannel {

/// Unit: bytes, of body and bytes together. A hand-over holds at most a line that is too long for each connection.
inline constexpr std::size_t largestMessage = std::size_t{1} << 30;

/// Sends all of it, waiting where the other end is slow. False: the other end has gone.
[[nodiscard]] bool send(int socket, const ControlMessage& message);

/// Waits for a whole message. No value: none came in time, the other end has gone, or it was no message.
[[nodiscard]] std::optional<ControlMessage> receive(int socket, std::chrono::milliseconds patience);

} // namespace ControlChannel

} // namespace Quillary
