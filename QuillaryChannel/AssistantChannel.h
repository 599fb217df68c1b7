#pragma once

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <sys/types.h>
#include <sys/un.h>

/// What the application and its helper `quillary-mcp` have to agree on: how the socket between them is found.
///
/// Assistant apps start the helper with almost no environment, so the path follows from the user's id alone.
namespace Quillary::AssistantChannel {

/// The environment variable that overrides the socket's path.
inline constexpr std::string_view socketVariable = "QUILLARY_ASSISTANT_SOCKET";

/// Names the helper, and the socket after it.
inline constexpr std::string_view helperIdentifier = "org.quillary.Quillary.mcp";

/// The helper's file name; it lies beside the application.
inline constexpr std::string_view helperName = "quillary-mcp";

/// The longest path of a socket. Unit: bytes.
inline constexpr std::size_t longestPath = 103;

/// The folder for sockets can't be used: one finished sentence for the user.
class Error : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Whose folder is looked for, and where.
struct Places
{
    uid_t user;
    std::string runtimeBase = "/run/user";
    std::string temporaryBase = "/tmp";

    /// The user who runs this process.
    Places();
};

/// The folder that only this user may write to: the runtime folder (`/run/user/1000/`) when it is there and theirs, else
/// a folder of mode 0700 for temporary files (`/tmp/org.quillary.Quillary.mcp-1000/`), made when it is missing.
/// Always ends in "/". Throws: `Error` when that folder is a link, another user's, or open to others.
[[nodiscard]] std::string userTemporaryDirectory(const Places& places = Places());

/// The value of `socketVariable` if there is one, else `userTemporaryDirectory()` followed by `helperIdentifier`.
/// `environment` is what the process was given: "NAME=value", ended by null. Throws: `Error`.
[[nodiscard]] std::string socketPath(const char* const* environment, const Places& places = Places());

/// Whether the environment names a socket of its own: then nobody but the user knows who should listen there.
[[nodiscard]] bool namesSocket(const char* const* environment);

/// What `bind` and `connect` take.
struct Address
{
    sockaddr_un record;
    socklen_t length;

    [[nodiscard]] const sockaddr* pointer() const;
};

/// No value: the path has more than `longestPath` bytes or none, or holds a zero byte.
[[nodiscard]] std::optional<Address> address(std::string_view path);

/// Whether the process at the other end of a connected socket belongs to the user. False also when that can't be told.
[[nodiscard]] bool isPeerOf(uid_t user, int socket);

} // namespace Quillary::AssistantChannel
