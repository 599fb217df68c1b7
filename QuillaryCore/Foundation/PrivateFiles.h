#pragma once

#include <filesystem>
#include <string_view>

namespace Quillary {

/// As `replaceFile`, but the file is its owner's alone to read from its first byte on (mode 0600).
/// Throws: `UserError` that names the file and the cause.
std::filesystem::path replacePrivateFile(const std::filesystem::path& path, std::string_view text);

} // namespace Quillary
