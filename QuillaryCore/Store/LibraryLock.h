#pragma once

#include <filesystem>
#include <memory>

namespace Quillary {

/// The right to write a library, held through a lock on "Library.lock" in its folder. The system gives it back when the
/// program ends, however it ends; the file stays, because removing it would let two programs lock two files of one name.
class LibraryLock
{
public:
    static constexpr const char* fileName = "Library.lock";

    /// Throws: `StoreError` when another program holds the library, or the file can't be made.
    explicit LibraryLock(const std::filesystem::path& folder);

    /// A lock that another program took and passed on: `descriptor` is its lock file, which this object then owns. The
    /// library is free again when both have let go.
    [[nodiscard]] static std::unique_ptr<LibraryLock> adopted(int descriptor);

    LibraryLock(const LibraryLock&) = delete;
    LibraryLock& operator=(const LibraryLock&) = delete;
    ~LibraryLock();

    /// To pass on; stays this object's own.
    [[nodiscard]] int descriptor() const { return m_descriptor; }

private:
    struct Adopted
    {
        int descriptor;
    };

    explicit LibraryLock(Adopted adopted)
        : m_descriptor(adopted.descriptor)
    {
    }

    int m_descriptor;
};

} // namespace Quillary
