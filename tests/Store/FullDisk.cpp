#include "tests/Store/FullDisk.h"

#include <sqlite3.h>

#include <cerrno>
#include <initializer_list>
#include <sys/types.h>
#include <unistd.h>

namespace Quillary {

namespace {

int& writesLeft()
{
    static int count = 0; // SQLite calls plain functions, which have no object to keep it in
    return count;
}

bool isFull()
{
    if (writesLeft() > 0) {
        --writesLeft();
        return false;
    }
    writesLeft() = -1;
    errno = ENOSPC;
    return true;
}

ssize_t writeOrFail(int file, const void* bytes, std::size_t size)
{
    return isFull() ? -1 : write(file, bytes, size);
}

ssize_t writeAtOrFail(int file, const void* bytes, std::size_t size, off_t offset)
{
    return isFull() ? -1 : pwrite(file, bytes, size, offset);
}

template <class Function>
void replaceSystemCall(const char* name, Function function)
{
    sqlite3_vfs* system = sqlite3_vfs_find(nullptr);
    system->xSetSystemCall(system, name, reinterpret_cast<sqlite3_syscall_ptr>(function)); // the form SQLite asks for
}

} // namespace

FullDisk::FullDisk(int writesBefore)
{
    writesLeft() = writesBefore;
    replaceSystemCall("write", &writeOrFail);
    replaceSystemCall("pwrite", &writeAtOrFail);
    replaceSystemCall("pwrite64", &writeAtOrFail);
}

FullDisk::~FullDisk()
{
    for (const char* name : {"write", "pwrite", "pwrite64"}) {
        replaceSystemCall<sqlite3_syscall_ptr>(name, nullptr); // back to the system's own
    }
}

bool FullDisk::wasHit()
{
    return writesLeft() < 0;
}

std::optional<StoreError> failureOnFullDisk(int writesBefore, const std::function<void()>& action)
{
    const FullDisk disk(writesBefore);
    try {
        action();
    } catch (const StoreError& error) {
        return error;
    }
    if (FullDisk::wasHit()) {
        return StoreError(StoreError::Reason::failed, "a failed write went unnoticed");
    }
    return std::nullopt;
}

} // namespace Quillary
