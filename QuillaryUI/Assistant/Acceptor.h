#pragma once

#include "QuillaryUI/Assistant/Descriptor.h"
#include "QuillaryUI/Assistant/WakeUp.h"

#include <atomic>
#include <functional>
#include <thread>

namespace Quillary {

/// Accepts connections on a thread of its own for as long as it lives.
class Acceptor
{
public:
    /// Called on that thread with each new connection.
    using DidAccept = std::function<void(Descriptor)>;

    /// `listener` is borrowed and does not block.
    Acceptor(int listener, DidAccept didAccept);
    Acceptor(const Acceptor&) = delete;
    Acceptor& operator=(const Acceptor&) = delete;
    ~Acceptor();

private:
    void run();

    int m_listener;
    DidAccept m_didAccept;
    WakeUp m_wakeUp;
    std::atomic<bool> m_isStopping = false;
    std::thread m_thread;
};

} // namespace Quillary
