#include "QuillaryUI/Assistant/ListeningSocket.h"

#include "QuillaryChannel/AssistantChannel.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Quillary {

namespace {

using Reason = AssistantServerError::Reason;
using AssistantChannel::Address;

/// How many connections may wait to be accepted. That is quick, yet on a busy machine dozens of clients may connect
/// before the accepting thread gets its turn, and one that connects without blocking is refused when the queue is full.
constexpr int backlog = 128;

constexpr mode_t ownerOnly = 0600;

AssistantServerError cannotListen(const std::filesystem::path& path)
{
    return {Reason::cannotListen, "Couldn't listen at " + path.string()};
}

AssistantServerError alreadyRunning()
{
    return {Reason::alreadyRunning, "Quillary is already running."};
}

std::string lockFile(const std::filesystem::path& path)
{
    return path.string() + ".lock";
}

/// False: the file was removed between opening and locking it, and somebody else may lock a new one of that name.
bool isFile(int descriptor, const std::string& file)
{
    struct stat opened{};
    struct stat named{};
    return fstat(descriptor, &opened) == 0 && lstat(file.c_str(), &named) == 0 && opened.st_dev == named.st_dev &&
           opened.st_ino == named.st_ino;
}

Descriptor lockBeside(const std::filesystem::path& path)
{
    const std::string file = lockFile(path);
    Descriptor lock;
    do {
        lock = Descriptor(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, ownerOnly));
        if (!lock.isOpen()) {
            throw cannotListen(path);
        }
        if (flock(lock.number(), LOCK_EX | LOCK_NB) != 0) {
            throw errno == EWOULDBLOCK ? alreadyRunning() : cannotListen(path);
        }
    } while (!isFile(lock.number(), file));
    return lock;
}

Descriptor newSocket(const std::filesystem::path& path)
{
    Descriptor result(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!result.isOpen()) {
        throw cannotListen(path);
    }
    return result;
}

/// Whether somebody answers at the path: a server whose lock file was swept away is still one.
bool isListenedOn(const std::filesystem::path& path, const Address& address)
{
    const Descriptor probe = newSocket(path);
    return connect(probe.number(), address.pointer(), address.length) == 0 || errno == EAGAIN;
}

/// Whatever else lies at the path is somebody's file: it stays, and binding fails.
void removeStaleSocket(const std::filesystem::path& path)
{
    struct stat entry{};
    if (lstat(path.c_str(), &entry) == 0 && S_ISSOCK(entry.st_mode)) {
        unlink(path.c_str());
    }
}

} // namespace

ListeningSocket ListeningSocket::open(const std::filesystem::path& path)
{
    const auto address = AssistantChannel::address(path.string());
    if (!address) {
        throw AssistantServerError(Reason::pathTooLong, "The socket path is too long.");
    }
    ListeningSocket result;
    result.lock = lockBeside(path);
    if (isListenedOn(path, *address)) {
        throw alreadyRunning();
    }
    removeStaleSocket(path);
    result.socket = newSocket(path);
    // The mode before binding closes the moment in which the file would have that of the process's mask; what the mask
    // takes away from it is given back afterwards.
    const int number = result.socket.number();
    if (fchmod(number, ownerOnly) != 0 || bind(number, address->pointer(), address->length) != 0) {
        throw cannotListen(path);
    }
    if (listen(number, backlog) != 0 || chmod(path.c_str(), ownerOnly) != 0) {
        unlink(path.c_str());
        throw cannotListen(path);
    }
    return result;
}

void ListeningSocket::removeIfStale(const std::filesystem::path& path)
{
    const auto address = AssistantChannel::address(path.string());
    const std::string file = lockFile(path);
    const Descriptor lock(::open(file.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW));
    if (address && lock.isOpen() && flock(lock.number(), LOCK_EX | LOCK_NB) == 0 && isFile(lock.number(), file) &&
        !isListenedOn(path, *address)) {
        removeStaleSocket(path);
        unlink(file.c_str()); // the lock last: until it goes, nobody listens there
    }
}

} // namespace Quillary
