#pragma once

#include <filesystem>

namespace Quillary {

/// The right to write a library, held through a lock on "Library.lock" in its folder. The system gives it back when the
/// program ends, however it ends; the file stays, because removing it would let two programs lock two files of one name.
class LibraryLock
{
public:
    static constexpr const char* fileName = "Library.lock";

    /// Throws: `StoreError` when another program holds the library, or the file can't be made.
    explicit LibraryLock(const std::filesystem::path& folder);
    LibraryLock(const LibraryLock&) = delete;
    LibraryLock& operator=(const LibraryLock&) = delete;
    ~LibraryLock();

private:
    int m_descriptor;
};

} // namespace Quillary
