#pragma once

#include "Quillary/Control/ControlMessage.h"
#include "QuillaryUI/Assistant/ListeningSocket.h"

#include <filesystem>
#include <functional>
#include <list>
#include <memory>
#include <optional>

class QSocketNotifier;

namespace Quillary {

/// How programs of one user that want the same library talk to the one that holds it: a socket of its own per library,
/// apart from the assistants' and their access rules.
namespace ControlSocket {

/// The path follows from the library's folder, so that every way to write it leads to one socket.
/// Throws: `AssistantChannel::Error`.
[[nodiscard]] std::filesystem::path path(const std::filesystem::path& library);

/// Connects to the program that holds the library. No value: none listens, or it is another user's.
[[nodiscard]] std::optional<Descriptor> connect(const std::filesystem::path& library);

} // namespace ControlSocket

/// Listens on a library's control socket. Belongs to the main thread and needs its event loop.
class ControlServer
{
public:
    /// A request, and the socket of who asked. It is closed when the handler lets go of it.
    using Handler = std::function<void(const ControlMessage& request, Descriptor asker)>;

    /// Throws: `AssistantServerError`, `AssistantChannel::Error`.
    ControlServer(const std::filesystem::path& library, Handler handler);
    ControlServer(const ControlServer&) = delete;
    ControlServer& operator=(const ControlServer&) = delete;
    ~ControlServer();

private:
    /// Somebody who connected and hasn't said what for.
    struct Caller
    {
        Descriptor socket;
        std::unique_ptr<QSocketNotifier> notifier;
    };

    void accept();
    void hear(std::list<Caller>::iterator caller);

    std::filesystem::path m_path;
    Handler m_handler;
    ListeningSocket m_listener;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::list<Caller> m_callers; ///< the longest silent first
};

} // namespace Quillary
