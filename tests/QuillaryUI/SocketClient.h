#pragma once

#include "QuillaryUI/Assistant/Descriptor.h"

#include <QCoreApplication>

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

/// Runs the event loop until the condition holds. False: it didn't in time.
inline bool waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds time = std::chrono::seconds(20))
{
    const auto end = std::chrono::steady_clock::now() + time;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    return true;
}

/// An assistant's end of the socket. Never blocks.
class SocketClient
{
public:
    /// Connects, or is not `isConnected`.
    explicit SocketClient(const std::filesystem::path& path);

    [[nodiscard]] bool isConnected() const { return m_isConnected; }

    /// Sends what fits into the kernel's buffer and returns the rest.
    std::string_view send(std::string_view bytes);

    /// Says that nothing more will come; answers can still be read.
    void endSending();
    void close() { m_socket = {}; }

    /// The next line that has arrived in full.
    [[nodiscard]] std::optional<std::string> line();

    /// Waits for it, with the event loop running. Empty: it didn't come.
    [[nodiscard]] std::string waitForLine();

    /// The other end has closed and everything was read.
    [[nodiscard]] bool isAtEnd();

private:
    void receive();

    Descriptor m_socket;
    bool m_isConnected = false;
    bool m_isAtEnd = false;
    std::string m_received;
};

} // namespace Quillary
