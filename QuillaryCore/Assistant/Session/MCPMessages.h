#pragma once

#include "QuillaryCore/Assistant/Session/MCPPrompts.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Foundation/JSON.h"

#include <span>
#include <string>
#include <string_view>

/// The messages that a session sends, as JSON text: they are appended, never built as a tree.
/// Source: JSON-RPC 2.0 and the Model Context Protocol, revisions 2024-11-05 to 2025-11-25.
namespace Quillary::MCPMessages {

/// The revisions that are spoken, the newest first.
[[nodiscard]] std::span<const std::string_view> protocolVersions();

/// What a request is refused for by the protocol itself.
enum class ErrorCode {
    notJSON = -32700,
    notARequest = -32600,
    unknownMethod = -32601,
    unknownName = -32602,
    internal = -32603,
};

/// `result` is JSON text.
[[nodiscard]] std::string reply(const JSON& id, std::string_view result);
[[nodiscard]] std::string error(const JSON& id, ErrorCode code, std::string_view message);

/// The answer to a line that can't be read.
[[nodiscard]] std::string parseError();

// Results, each the JSON text of an object.

[[nodiscard]] std::string initializeResult(std::string_view protocolVersion, std::string_view serverVersion);

/// Every tool in the order of the catalogue; made once.
[[nodiscard]] const std::string& toolsResult();
[[nodiscard]] const std::string& promptsResult();
[[nodiscard]] std::string promptResult(const MCPPrompt& prompt, const JSON& given);

/// What a tool answered. Its data, an object, stands as structured content and, for apps that show only texts, in the
/// text as well; both with the text as "summary".
[[nodiscard]] std::string toolResult(ToolResult result);

} // namespace Quillary::MCPMessages
