#include "QuillaryCore/Assistant/Access/ActivityEntry.h"

#include "QuillaryCore/Assistant/Access/AssistantClient.h"
#include "QuillaryCore/Assistant/Access/Refusal.h"
#include "QuillaryCore/Assistant/Access/ShownText.h"
#include "QuillaryCore/Assistant/Tools/AssistantTool.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Foundation/Precondition.h"

#include <source_location>

namespace Quillary {

namespace {

std::string textOf(const JSON& value, std::string_view key, std::size_t longest)
{
    const JSON* member = value.find(key);
    return member == nullptr || member->string() == nullptr ? "" : ShownText::line(*member->string(), longest);
}

std::optional<CallOutcome> outcomeNamed(std::string_view name)
{
    for (const CallOutcome outcome : {CallOutcome::done, CallOutcome::failed, CallOutcome::refused}) {
        if (text(outcome) == name) {
            return outcome;
        }
    }
    return std::nullopt;
}

} // namespace

std::string_view text(CallOutcome outcome)
{
    switch (outcome) {
    case CallOutcome::done:
        return "done";
    case CallOutcome::failed:
        return "failed";
    case CallOutcome::refused:
        return "refused";
    }
    stopProgram("a call is done, failed or refused", std::source_location::current());
}

ActivityEntry
ActivityEntry::of(const AssistantClient& client, const AssistantTool& tool, const ToolResult& result, Instant time)
{
    const std::string told = result.isError ? result.text : result.summary.value_or(tool.title);
    ActivityEntry entry{.time = time,
                        .assistant = ShownText::assistantName(client.displayName),
                        .tool = tool.name,
                        .summary = ShownText::line(told, ShownText::longestSummary),
                        .documentID = result.documentID};
    if (result.isError) {
        entry.outcome = Refusal::isOne(result.text, entry.assistant, tool) ? CallOutcome::refused : CallOutcome::failed;
    }
    return entry;
}

JSON ActivityEntry::json() const
{
    JSON value = JSON::object({{"time", ShownText::timestamp(time)},
                               {"assistant", assistant},
                               {"tool", tool},
                               {"outcome", text(outcome)},
                               {"summary", summary}});
    if (documentID) {
        value.set("document", documentID->text());
    }
    return value;
}

std::optional<ActivityEntry> ActivityEntry::read(std::string_view line)
{
    const auto value = JSON::parse(line);
    if (!value || value->object() == nullptr) {
        return std::nullopt;
    }
    const auto time = ShownText::parseTimestamp(textOf(*value, "time", ShownText::longestName));
    const auto outcome = outcomeNamed(textOf(*value, "outcome", ShownText::longestName));
    ActivityEntry entry{.time = time.value_or(Instant()),
                        .assistant = textOf(*value, "assistant", ShownText::longestName),
                        .tool = textOf(*value, "tool", ShownText::longestName),
                        .summary = textOf(*value, "summary", ShownText::longestSummary),
                        .documentID = UUID::parse(textOf(*value, "document", ShownText::longestName)),
                        .outcome = outcome.value_or(CallOutcome::done)};
    const bool isWhole = time && outcome && !entry.assistant.empty() && !entry.tool.empty();
    return isWhole ? std::optional(std::move(entry)) : std::nullopt;
}

} // namespace Quillary
