#pragma once

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryUI/Assistant/Descriptor.h"

#include <filesystem>
#include <string>

namespace Quillary {

/// Why assistants can't be listened to.
class AssistantServerError : public UserError
{
public:
    enum class Reason {
        pathTooLong,
        cannotListen,   ///< the socket can't be made at its path
        alreadyRunning, ///< another program listens there
    };

    AssistantServerError(Reason reason, const std::string& message)
        : UserError(message)
        , m_reason(reason)
    {
    }

    [[nodiscard]] Reason reason() const { return m_reason; }

private:
    Reason m_reason;
};

/// A Unix socket that is listened on, and the lock that gives the right to its path. The lock lies in a file beside the
/// socket; the system gives it back when the program ends, however it ends. That file stays for the next one.
struct ListeningSocket
{
    Descriptor socket;
    Descriptor lock;

    /// Takes the lock, removes what an earlier run left at the path, and listens there; the socket is the user's alone.
    /// Throws: `AssistantServerError`.
    [[nodiscard]] static ListeningSocket open(const std::filesystem::path& path);

    /// Removes the socket and its lock file where nobody holds them.
    static void removeIfStale(const std::filesystem::path& path);
};

} // namespace Quillary
