#include "QuillaryCore/Store/StoreFailure.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <cerrno>
#include <system_error>

namespace Quillary {

namespace {

using Reason = StoreError::Reason;

constexpr int primaryCodeMask = 0xff;

std::string diskFullSentence(const std::filesystem::path& path)
{
    return fmt::format("The disk that holds “{}” is full. Nothing was saved by this step. Make room and try again.",
                       path.string());
}

std::string readOnlySentence(const std::filesystem::path& path)
{
    return fmt::format("“{}” can’t be written. Check that you may write to this file and its folder, and that the "
                       "disk isn’t write-protected.",
                       path.string());
}

std::string noAccessSentence(const std::filesystem::path& path)
{
    return fmt::format("“{}” can’t be opened. Check that the folder exists and that you may read and write it.",
                       path.string());
}

} // namespace

StoreError storeFailure(int code, const std::filesystem::path& file, const std::string& details)
{
    const std::string path = file.string();
    if (code == SQLITE_IOERR_WRITE || code == SQLITE_IOERR_FSYNC || code == SQLITE_IOERR_DIR_FSYNC) {
        return {Reason::failed,
                fmt::format("“{}” couldn’t be written: the disk reports a fault. Nothing was saved by this step. Check "
                            "the disk, then try again.",
                            path),
                details};
    }
    if (code == SQLITE_IOERR_SHMSIZE) { // the one write for which SQLite doesn't tell a full disk from a fault
        return {Reason::diskFull, diskFullSentence(file), details};
    }
    switch (code & primaryCodeMask) {
    case SQLITE_FULL:
        return {Reason::diskFull, diskFullSentence(file), details};
    case SQLITE_READONLY:
        return {Reason::readOnly, readOnlySentence(file), details};
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return {Reason::noAccess, noAccessSentence(file), details};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return {Reason::inUse,
                fmt::format("“{}” is being used by another program. Close that program and try again.", path),
                details};
    case SQLITE_NOTADB:
        return {Reason::notALibrary, fmt::format("“{}” isn’t a Quillary library.", path), details};
    case SQLITE_CORRUPT:
        return {Reason::notALibrary,
                fmt::format("“{}” is damaged and can’t be read. Restore a backup of it.", path),
                details};
    case SQLITE_TOOBIG:
        return {Reason::failed, "A text or an image is too large to be saved. Shorten it and try again.", details};
    case SQLITE_NOMEM:
        return {Reason::failed, "There isn’t enough memory. Close other programs and try again.", details};
    case SQLITE_IOERR:
        return {Reason::failed,
                fmt::format("“{}” couldn’t be read or written: the disk reports a fault. Check the disk, then try "
                            "again.",
                            path),
                details};
    default:
        return {Reason::failed, fmt::format("“{}” couldn’t be read or written.", path), details};
    }
}

StoreError systemFailure(int errorNumber, const std::filesystem::path& path)
{
    const std::string details = fmt::format("{}: {}", path.string(), std::generic_category().message(errorNumber));
    switch (errorNumber) {
    case ENOSPC:
    case EDQUOT:
        return {Reason::diskFull, diskFullSentence(path), details};
    case EROFS:
        return {Reason::readOnly, readOnlySentence(path), details};
    default:
        return {Reason::noAccess, noAccessSentence(path), details};
    }
}

} // namespace Quillary
