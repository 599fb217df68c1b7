#pragma once

#include "QuillaryUI/Assistant/Descriptor.h"

#include <chrono>

namespace Quillary {

/// What has become of a socket that was waited for.
struct SocketState
{
    bool isReady = false;   ///< may be read, written or accepted from, whichever was waited for
    bool isHungUp = false;  ///< the other end has gone for good
    bool isWokenUp = false; ///< somebody called `ring`
};

/// What a waiting thread wants of its socket.
enum class SocketWait { nothing, reading, writing };

/// Lets a thread sleep on its socket, and another one wake it.
class WakeUp
{
public:
    /// Throws: `std::system_error` when the system has no descriptors left.
    WakeUp();

    /// From any thread. Rung before the other one sleeps, it wakes it at once.
    void ring() const;

    /// Takes the ring back.
    void silence() const;

    /// Readable while it is rung, for those who sleep on it otherwise.
    [[nodiscard]] int descriptor() const { return m_event.number(); }

    /// Sleeps until one of the things in the result is true, or for `patience`, where negative means for ever. Takes the
    /// ring with it.
    [[nodiscard]] SocketState
    wait(int socket, SocketWait what, std::chrono::milliseconds patience = std::chrono::milliseconds(-1)) const;

private:
    Descriptor m_event;
};

} // namespace Quillary
