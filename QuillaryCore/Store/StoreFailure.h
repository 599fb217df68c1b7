#pragma once

#include "QuillaryCore/Store/StoreError.h"

#include <filesystem>
#include <string>

namespace Quillary {

/// The error for a result code of SQLite, in words for the user.
///
/// `code` may be an extended result code; `details` goes to the log unchanged.
[[nodiscard]] StoreError storeFailure(int code, const std::filesystem::path& file, const std::string& details);

/// The error for a failed call of the operating system (`errno`) on a file or folder of the library.
[[nodiscard]] StoreError systemFailure(int errorNumber, const std::filesystem::path& path);

} // namespace Quillary
