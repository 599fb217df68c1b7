#include "QuillaryCore/Store/LibraryLock.h"

#include "QuillaryCore/Store/StoreFailure.h"

#include <fmt/format.h>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace Quillary {

namespace {

int openedLockFile(const std::filesystem::path& folder)
{
    // The folder may have become read-only since the lock file was made in it; asked first, it gets the same sentence.
    const bool isWritable = faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
    const std::filesystem::path file = folder / LibraryLock::fileName;
    const int descriptor = isWritable ? open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600) : -1;
    if (descriptor >= 0) {
        return descriptor;
    }
    const int error = errno;
    if (error == EACCES || error == EPERM || error == EROFS) {
        throw StoreError(StoreError::Reason::readOnly,
                         fmt::format("The library in “{}” can’t be changed, because its folder is read-only. Choose a "
                                     "folder that you may write to.",
                                     folder.string()));
    }
    throw systemFailure(error, file);
}

} // namespace

LibraryLock::LibraryLock(const std::filesystem::path& folder)
    : m_descriptor(openedLockFile(folder))
{
    if (flock(m_descriptor, LOCK_EX | LOCK_NB) != 0) {
        const int error = errno;
        close(m_descriptor);
        if (error == EWOULDBLOCK) {
            throw StoreError(StoreError::Reason::inUse,
                             fmt::format("The library in “{}” is open in another Quillary. Close it there, then try "
                                         "again.",
                                         folder.string()));
        }
        throw systemFailure(error, folder / fileName);
    }
}

std::unique_ptr<LibraryLock> LibraryLock::adopted(int descriptor)
{
    return std::unique_ptr<LibraryLock>(new LibraryLock(Adopted{descriptor}));
}

LibraryLock::~LibraryLock()
{
    close(m_descriptor);
}

} // namespace Quillary
