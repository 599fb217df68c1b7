#pragma once

#include <string>
#include <string_view>

namespace CLI {
class App;
}

namespace Quillary {

/// The manual page of the program, quillary(1), made of what its help says: so neither can be behind the other. The
/// language is man(7) as groff reads it.
[[nodiscard]] std::string manualPage(const CLI::App& app, std::string_view version);

} // namespace Quillary
