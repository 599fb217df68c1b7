#include "QuillaryCore/Foundation/FileLock.h"

#include "QuillaryCore/Foundation/UserError.h"

#include <fmt/format.h>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace Quillary {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds pause{5};

int openedLockFile(const fs::path& file)
{
    std::error_code failure;
    std::error_code ignored;
    fs::create_directories(file.parent_path(), failure);
    if (failure && !fs::is_directory(file.parent_path(), ignored)) {
        throw UserError(
            fmt::format("Couldn't make the folder {}: {}.", file.parent_path().string(), failure.message()));
    }
    constexpr mode_t ownerAlone = 0600;
    const int descriptor =
        ::open((fs::path(file) += ".lock").c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, ownerAlone);
    if (descriptor < 0) {
        throw UserError(fmt::format("Couldn't lock {}: {}.", file.string(), std::generic_category().message(errno)));
    }
    return descriptor;
}

} // namespace

FileLock::FileLock(const fs::path& file, std::chrono::milliseconds patience)
    : m_descriptor(openedLockFile(file))
{
    const Clock::time_point end = Clock::now() + patience;
    while (flock(m_descriptor, LOCK_EX | LOCK_NB) != 0) {
        const int cause = errno;
        if ((cause != EWOULDBLOCK && cause != EINTR) || Clock::now() > end) {
            close(m_descriptor);
            throw UserError(fmt::format("Couldn't lock {}: {}.",
                                        file.string(),
                                        cause == EWOULDBLOCK ? "another program is changing it"
                                                             : std::generic_category().message(cause)));
        }
        std::this_thread::sleep_for(pause);
    }
}

FileLock::~FileLock()
{
    close(m_descriptor);
}

} // namespace Quillary
