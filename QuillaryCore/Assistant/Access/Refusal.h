#pragma once

#include "QuillaryCore/Assistant/Tools/AssistantAccess.h"

#include <string>
#include <string_view>

namespace Quillary {

struct AssistantTool;

/// Why a call may not run, as sentences that the assistant reads to the user.
namespace Refusal {

[[nodiscard]] std::string turnedOff();
[[nodiscard]] std::string locked();
[[nodiscard]] std::string notAllowed(std::string_view assistant);

/// The level that the user chose is below what the tool needs.
[[nodiscard]] std::string beyond(AssistantAccess chosen, const AssistantTool& tool);

/// Whether a text is one of the sentences above, for this assistant and tool.
[[nodiscard]] bool isOne(std::string_view text, std::string_view assistant, const AssistantTool& tool);

} // namespace Refusal

} // namespace Quillary
