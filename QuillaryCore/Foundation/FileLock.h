#pragma once

#include <chrono>
#include <filesystem>

namespace Quillary {

/// The right to change a file that several programs change, for as long as the object lives. Held through a lock on a
/// second file, "<name>.lock" beside it, because the file itself may be replaced meanwhile. The system gives the right
/// back when the program ends, however it ends; the second file stays.
class FileLock
{
public:
    /// Makes missing folders. Waits for a holder for at most `patience`: a change takes milliseconds.
    /// Throws: `UserError`.
    explicit FileLock(const std::filesystem::path& file, std::chrono::milliseconds patience = std::chrono::seconds(2));
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock();

private:
    int m_descriptor;
};

} // namespace Quillary
