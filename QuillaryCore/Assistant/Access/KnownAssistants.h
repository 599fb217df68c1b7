#pragma once

#include "QuillaryCore/Assistant/Access/AssistantClient.h"
#include "QuillaryCore/Foundation/JSON.h"

#include <string>
#include <string_view>

/// What assistant apps call themselves, and what people call them.
namespace Quillary::KnownAssistants {

/// The name to show for a client that calls itself `name`: a known one's own, else its title, else the words of its name.
[[nodiscard]] std::string displayName(std::string_view name, std::string_view title);

/// Reads the "clientInfo" of an "initialize"; null: there is none. Its texts are shown in terminals and kept in the
/// settings, so they are cut to one line of a sensible length.
[[nodiscard]] AssistantClient client(const JSON* info);

} // namespace Quillary::KnownAssistants
