#pragma once

#include <string>
#include <string_view>

namespace Quillary {

/// "0.1.0"
[[nodiscard]] std::string_view version();

/// The version, the compiler and the libraries that this program was built with and runs with, a line each.
[[nodiscard]] std::string buildInfo();

} // namespace Quillary
