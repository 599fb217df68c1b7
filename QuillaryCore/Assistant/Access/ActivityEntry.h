#pragma once

#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Foundation/UUID.h"

#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

struct AssistantClient;
struct AssistantTool;
struct ToolResult;

/// How a call ended.
enum class CallOutcome {
    done,
    failed,  ///< it ran, and couldn't do what was asked
    refused, ///< the user doesn't allow it, so it didn't run
};

/// "done", "failed" or "refused".
[[nodiscard]] std::string_view text(CallOutcome outcome);

/// What the user sees later of one call of an assistant. All texts are lines as `ShownText` makes them.
struct ActivityEntry
{
    Instant time;
    std::string assistant;
    std::string tool; ///< its name in the catalogue
    std::string summary;
    std::optional<UUID> documentID = {};
    CallOutcome outcome = CallOutcome::done;

    /// Of a call and its result. Without a summary of its own, a call is told by its tool's title, and a failed one by
    /// what was answered.
    [[nodiscard]] static ActivityEntry
    of(const AssistantClient& client, const AssistantTool& tool, const ToolResult& result, Instant time);

    [[nodiscard]] JSON json() const;

    /// No value: not what `json` writes. Texts are made lines again, whatever a file says.
    [[nodiscard]] static std::optional<ActivityEntry> read(std::string_view line);

    friend bool operator==(const ActivityEntry&, const ActivityEntry&) = default;
};

} // namespace Quillary
