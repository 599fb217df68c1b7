#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace Quillary {

/// Writes a file that the user named: beside its place first, then renamed over it, so that it is whole or as it was.
/// On disk when the call returns. Missing folders are made. Returns the path.
/// Throws: `UserError` that names the file and the cause; then nothing is left of the attempt but folders.
std::filesystem::path replaceFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);
std::filesystem::path replaceFile(const std::filesystem::path& path, std::string_view text);

/// The content of a file. Throws: `UserError`; also for a file above `limit` bytes.
[[nodiscard]] std::string readFile(const std::filesystem::path& path, std::size_t limit);

/// Appends a line to a text file, which is made when missing, for its owner alone. A last line that was torn off is ended
/// first. In the system's hands when the call returns, not yet on disk. Returns the file's size.
/// The caller keeps other writers away. Throws: `UserError`.
std::uint64_t appendLine(const std::filesystem::path& path, std::string_view line);

/// Tells one state of a file from another without reading it: what a replacement or a change of its content changes.
struct FileStamp
{
    std::uint64_t device = 0;
    std::uint64_t node = 0;
    std::int64_t modifiedNanoseconds = 0;
    std::int64_t changedNanoseconds = 0;
    std::uint64_t size = 0;

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// No value: there is no such file. Throws: `UserError` when that can't be told.
[[nodiscard]] std::optional<FileStamp> fileStamp(const std::filesystem::path& path);

} // namespace Quillary
