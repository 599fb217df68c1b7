#pragma once

#include "QuillaryCore/Foundation/JSON.h"

#include <filesystem>
#include <string>
#include <string_view>

/// How an assistant app is told of Quillary: texts to be pasted.
namespace Quillary::AssistantSetup {

/// `quillary-mcp`, which lies beside the program.
[[nodiscard]] std::filesystem::path helperBeside(const std::filesystem::path& program);

/// The settings that most assistant apps take: `{"mcpServers":{"quillary":{"command":…}}}`.
[[nodiscard]] JSON configuration(const std::filesystem::path& helper);

/// What to do in which app, for a terminal.
[[nodiscard]] std::string instructions(const std::filesystem::path& helper);

/// One word for a shell, whatever it holds.
[[nodiscard]] std::string shellWord(std::string_view text);

} // namespace Quillary::AssistantSetup
