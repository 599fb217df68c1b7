#pragma once

#include "QuillaryCore/Assistant/Access/AssistantClient.h"
#include "QuillaryCore/Assistant/Operations/AssistantActions.h"
#include "QuillaryCore/Assistant/Session/MCPPrompts.h"
#include "QuillaryCore/Assistant/Tools/AssistantTool.h"
#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Foundation/JSON.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

/// One assistant app's conversation: takes its lines and makes the answers. Belongs to the main thread, like the records
/// that the tools work on.
///
/// Everything but a tool call is answered at once. A session must outlive the calls under way in it: who wants to be rid
/// of it earlier calls `abandon` and keeps it until the last answer has come.
class MCPSession
{
public:
    using Prompt = MCPPrompt;

    /// One line of JSON without its newline; no value: there is nothing to answer.
    using Reply = std::function<void(std::optional<std::string>)>;

    /// Whether a client may run a tool now. Answers exactly once, at once or later on the same thread: no value means
    /// yes, a text is the sentence that the assistant reads to the user.
    using Decision = std::function<void(std::optional<std::string> refusal)>;
    using Authorize = std::function<void(const AssistantClient&, const AssistantTool&, Decision)>;

    /// Told of every call with its result, the refused and the failed ones too.
    using DidCall = std::function<void(const AssistantClient&, const AssistantTool&, const ToolResult&)>;

    /// `environment` is what the tools work with; the assistant's name in it is filled in by the session.
    MCPSession(AssistantEnvironment environment, std::string serverVersion, Authorize authorize, DidCall didCall);
    MCPSession(const MCPSession&) = delete;
    MCPSession& operator=(const MCPSession&) = delete;

    /// Answers one line, exactly once, at once or later on the same thread.
    void handle(std::string_view line, const Reply& reply);

    /// Nobody waits for answers any more: a call that still waits for the user's permission is not run, whatever the
    /// user decides.
    void abandon() { m_isAbandoned = true; }

    /// A line that came while a call waits for the user's permission, and is handled in its turn. If it is the
    /// notification that takes that call back, the call gets no answer and is not run, whatever the user decides.
    void cancelIfAsked(std::string_view line);

    [[nodiscard]] const AssistantClient& client() const { return m_client; }
    [[nodiscard]] const std::string& protocolVersion() const { return m_protocolVersion; }
    [[nodiscard]] bool isInitialized() const { return m_isInitialized; }

    /// What another process needs to go on with this conversation, an object.
    [[nodiscard]] JSON state() const;
    void restore(const JSON& state);

    /// The name shown to the user for a client that calls itself `name`; `title` may be empty.
    [[nodiscard]] static std::string displayName(std::string_view name, std::string_view title);

private:
    struct Request;
    struct Call;

    void dispatch(Request request);
    void initialize(const Request& request);
    static void promptText(const Request& request);
    void callTool(Request request);
    void decide(const std::shared_ptr<Call>& call, const std::optional<std::string>& refusal);
    void finish(const Call& call, ToolResult result);
    void meet(AssistantClient client);

    AssistantActions m_actions;
    AssistantClient m_client;
    std::string m_protocolVersion;
    std::string m_serverVersion;
    Authorize m_authorize;
    DidCall m_didCall;
    bool m_isInitialized = false;
    bool m_isAbandoned = false;
    std::weak_ptr<Call> m_waiting; ///< the last one that was put to `m_authorize`
};

} // namespace Quillary
