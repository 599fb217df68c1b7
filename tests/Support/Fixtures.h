#pragma once

#include <filesystem>
#include <string_view>

namespace Quillary {

/// A file of tests/Fixtures in the source tree, such as "logo.webp". To be read only: copy it to change it.
[[nodiscard]] std::filesystem::path fixture(std::string_view name);

} // namespace Quillary
