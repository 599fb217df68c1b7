#pragma once

#include "QuillaryCore/Assistant/Tools/AssistantAccess.h"

#include <optional>
#include <string_view>

/// What assistants may do, as it is typed: "look", "drafts" or "everything".
namespace Quillary::AccessWord {

/// No value: no such word.
[[nodiscard]] std::optional<AssistantAccess> read(std::string_view word);
[[nodiscard]] std::string_view of(AssistantAccess access);

} // namespace Quillary::AccessWord
