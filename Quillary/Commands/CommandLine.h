#pragma once

namespace Quillary {

/// Reads the command line and does what it asks. Returns the exit status: 0, 1 for a failure with one sentence on
/// standard error, 2 for a command line that can't be understood.
[[nodiscard]] int runCommandLine(int argumentCount, char** arguments) noexcept;

} // namespace Quillary
