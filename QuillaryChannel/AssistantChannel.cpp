#include "QuillaryChannel/AssistantChannel.h"

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace Quillary::AssistantChannel {

namespace {

constexpr mode_t ownerOnly = 0700;
constexpr mode_t writableByOthers = 0022;

/// An address holds one byte more than the longest path: the zero that ends it.
constexpr std::size_t addressLength = offsetof(sockaddr_un, sun_path) + longestPath + 1;
static_assert(addressLength == 106 && addressLength <= sizeof(sockaddr_un));

std::string joined(const std::string& folder, const std::string& name)
{
    return folder.ends_with('/') ? folder + name : folder + "/" + name;
}

/// Who may do what with a folder itself, not with what a link of that name points to.
std::optional<struct stat> folderFacts(const std::string& path)
{
    struct stat facts = {};
    if (lstat(path.c_str(), &facts) != 0 || !S_ISDIR(facts.st_mode)) {
        return std::nullopt;
    }
    return facts;
}

std::string_view valueOf(const char* const* environment, std::string_view name)
{
    for (; environment != nullptr && *environment != nullptr; ++environment) {
        const std::string_view entry = *environment;
        if (entry.starts_with(name) && entry.substr(name.size()).starts_with('=')) {
            return entry.substr(name.size() + 1);
        }
    }
    return {};
}

/// Anybody may put a folder or a link of this name among the temporary files, before we do.
void requirePrivate(const std::string& path, uid_t user)
{
    const auto facts = folderFacts(path);
    const std::string remedy = " Remove it, or name another socket in " + std::string(socketVariable) + ".";
    if (!facts) {
        throw Error("“" + path + "” can't hold Quillary's socket, because it is not a folder." + remedy);
    }
    if (facts->st_uid != user) {
        throw Error("“" + path + "” can't hold Quillary's socket, because it belongs to another user." + remedy);
    }
    if ((facts->st_mode & 0777U) != ownerOnly) {
        throw Error("“" + path + "” can't hold Quillary's socket, because it is not its owner's alone (mode 0700)." +
                    remedy);
    }
}

} // namespace

Places::Places()
    : user(geteuid())
{
}

std::string userTemporaryDirectory(const Places& places)
{
    const std::string runtime = joined(places.runtimeBase, std::to_string(places.user));
    const auto facts = folderFacts(runtime);
    if (facts && facts->st_uid == places.user && (facts->st_mode & writableByOthers) == 0) {
        return runtime + "/";
    }
    const std::string own =
        joined(places.temporaryBase, std::string(helperIdentifier) + "-" + std::to_string(places.user));
    if (mkdir(own.c_str(), ownerOnly) != 0 && errno != EEXIST) {
        const int cause = errno;
        std::string message = "Couldn't make the folder “" + own + "” for Quillary's socket: ";
        throw Error(message + std::generic_category().message(cause) + ".");
    }
    requirePrivate(own, places.user);
    return own + "/";
}

std::string socketPath(const char* const* environment, const Places& places)
{
    const std::string_view named = valueOf(environment, socketVariable);
    return named.empty() ? userTemporaryDirectory(places) + std::string(helperIdentifier) : std::string(named);
}

bool namesSocket(const char* const* environment)
{
    return !valueOf(environment, socketVariable).empty();
}

const sockaddr* Address::pointer() const
{
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): the way in which the system takes addresses
    return reinterpret_cast<const sockaddr*>(&record);
}

std::optional<Address> address(std::string_view path)
{
    if (path.empty() || path.size() > longestPath || path.contains('\0')) {
        return std::nullopt;
    }
    Address result{.record = {}, .length = static_cast<socklen_t>(addressLength)};
    result.record.sun_family = AF_UNIX;
    std::memcpy(result.record.sun_path, path.data(), path.size());
    return result;
}

bool isPeerOf(uid_t user, int socket)
{
    ucred peer = {};
    socklen_t size = sizeof peer;
    return getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && size == sizeof peer && peer.uid == user;
}

} // namespace Quillary::AssistantChannel
