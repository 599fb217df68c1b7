#pragma once

#include <string>

/// The application that lies beside the helper.
namespace Quillary::ApplicationStart {

/// Where `quillary` should be: beside the program that a link such as "/proc/self/exe" names.
/// Throws: `AssistantChannel::Error`.
[[nodiscard]] std::string programBeside(const std::string& linkToSelf);

/// Starts `quillary serve --background` as a process of its own: it outlives the helper, belongs to no terminal, and has
/// none of the helper's descriptors, so that nothing it says can end up among the answers. Returns as soon as it runs.
/// Throws: `AssistantChannel::Error` when it can't be run.
void inBackground(const std::string& program);

} // namespace Quillary::ApplicationStart
