#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
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

} // namespace Quillary
