#pragma once

#include "QuillaryCore/Assistant/Session/MCPSession.h"
#include "tests/Assistant/AssistantLibrary.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Quillary {

/// Sessions on a library, with a user who answers `userRefusal` at once, or later when `isAsking`.
class SessionTest : public testing::Test
{
protected:
    std::unique_ptr<MCPSession> makeSession()
    {
        return std::make_unique<MCPSession>(
            library.environment(),
            "1.2.3",
            [this](const AssistantClient&, const AssistantTool&, MCPSession::Decision decide) {
                if (isAsking) {
                    questions.push_back(std::move(decide));
                } else {
                    decide(userRefusal);
                }
            },
            [this](const AssistantClient& client, const AssistantTool& tool, const ToolResult& outcome) {
                calls.push_back(client.displayName + ": " + tool.name + (outcome.isError ? "!" : ""));
            });
    }

    AssistantLibrary library;
    std::optional<std::string> userRefusal;
    bool isAsking = false;
    std::vector<MCPSession::Decision> questions;
    std::vector<std::string> calls; ///< "Assistant: tool", with "!" behind when it failed
};

} // namespace Quillary
