#include "QuillaryCore/Assistant/Session/MCPSession.h"

#include "QuillaryCore/Assistant/Access/KnownAssistants.h"
#include "QuillaryCore/Assistant/Session/MCPMessages.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <memory>
#include <new>
#include <utility>

namespace Quillary {

namespace {

using MCPMessages::ErrorCode;

/// A method whose result never changes.
struct PreparedMethod
{
    std::string_view name;
    std::string_view (*result)();
};

std::string_view nothing()
{
    return "{}";
}

constexpr std::array preparedMethods = {
    PreparedMethod{"ping", nothing},
    PreparedMethod{"tools/list",
                   [] {
                       return std::string_view(MCPMessages::toolsResult());
                   }},
    PreparedMethod{"prompts/list",
                   [] {
                       return std::string_view(MCPMessages::promptsResult());
                   }},
    PreparedMethod{"resources/list",
                   [] {
                       return std::string_view(R"({"resources":[]})");
                   }},
    PreparedMethod{"resources/templates/list",
                   [] {
                       return std::string_view(R"({"resourceTemplates":[]})");
                   }},
    PreparedMethod{"logging/setLevel", nothing},
};

/// Moves a member out of an object. Null: there is none.
JSON taken(JSON& value, std::string_view key)
{
    JSON::Object* members = value.object();
    if (members == nullptr) {
        return {};
    }
    const auto found = std::ranges::find(*members, key, &JSON::Member::first);
    return found == members->end() ? JSON() : std::move(found->second);
}

/// A text, or a number as text; empty where there is neither.
std::string textMember(const JSON& value, std::string_view key)
{
    const JSON* member = value.find(key);
    return member == nullptr ? "" : member->text().value_or("");
}

bool isIDOrNull(const JSON& id)
{
    return id.isNull() || id.string() != nullptr || id.number() != nullptr;
}

bool isRequest(const JSON& message)
{
    const JSON* method = message.find("method");
    const JSON* id = message.find("id");
    return textMember(message, "jsonrpc") == "2.0" && method != nullptr && method->string() != nullptr &&
           (id == nullptr || isIDOrNull(*id));
}

} // namespace

/// A message that was found to be a request, or a notification: that has no id and gets no answer.
struct MCPSession::Request
{
    JSON id;
    std::string method;
    JSON params;
    Reply reply;

    /// `result` is JSON text.
    void answer(std::string_view result) const
    {
        send([&] { return MCPMessages::reply(id, result); });
    }

    void refuse(ErrorCode code, std::string_view message) const
    {
        send([&] { return MCPMessages::error(id, code, message); });
    }

private:
    template <class MakeLine>
    void send(const MakeLine& makeLine) const
    {
        reply(id.isNull() ? std::nullopt : std::optional<std::string>(makeLine()));
    }
};

/// A tool call under way. Shared by the question whether it is allowed and by the tool that works later.
struct MCPSession::Call
{
    Request request;
    const AssistantTool& tool;
    AssistantClient client; ///< as it was when it called
    bool isDecided = false;
};

MCPSession::MCPSession(AssistantEnvironment environment,
                       std::string serverVersion,
                       Authorize authorize,
                       DidCall didCall)
    : m_actions(std::move(environment))
    , m_protocolVersion(MCPMessages::protocolVersions().front())
    , m_serverVersion(std::move(serverVersion))
    , m_authorize(std::move(authorize))
    , m_didCall(std::move(didCall))
{
    meet(AssistantClient());
}

void MCPSession::handle(std::string_view line, const Reply& reply)
{
    std::optional<JSON> message;
    try {
        message = JSON::parse(line);
    } catch (const std::bad_alloc&) { // a line may become a tree of forty times its size
        reply(MCPMessages::error(JSON(), ErrorCode::internal, "There isn't enough memory for this."));
        return;
    }
    if (!message) {
        reply(MCPMessages::parseError());
        return;
    }
    const JSON* given = message->find("id");
    JSON id = given != nullptr && isIDOrNull(*given) ? *given : JSON();
    if (!isRequest(*message)) {
        reply(MCPMessages::error(id, ErrorCode::notARequest, "Not a JSON-RPC 2.0 request."));
        return;
    }
    dispatch({.id = std::move(id),
              .method = *message->find("method")->string(),
              .params = taken(*message, "params"),
              .reply = reply});
}

void MCPSession::dispatch(Request request)
{
    const auto prepared = std::ranges::find(preparedMethods, request.method, &PreparedMethod::name);
    if (prepared != preparedMethods.end()) {
        request.answer(prepared->result());
    } else if (request.method == "initialize") {
        initialize(request);
    } else if (request.method == "tools/call") {
        callTool(std::move(request));
    } else if (request.method == "prompts/get") {
        promptText(request);
    } else {
        request.refuse(ErrorCode::unknownMethod, fmt::format("Quillary doesn't know “{}”.", request.method));
    }
}

void MCPSession::initialize(const Request& request)
{
    const auto versions = MCPMessages::protocolVersions();
    const std::string wanted = textMember(request.params, "protocolVersion");
    const auto known = std::ranges::find(versions, wanted);
    m_protocolVersion = known == versions.end() ? versions.front() : *known;
    meet(KnownAssistants::client(request.params.find("clientInfo")));
    m_isInitialized = true;
    request.answer(MCPMessages::initializeResult(m_protocolVersion, m_serverVersion));
}

void MCPSession::promptText(const Request& request)
{
    const std::string name = textMember(request.params, "name");
    const MCPPrompt* prompt = MCPPrompts::find(name);
    if (prompt == nullptr) {
        request.refuse(ErrorCode::unknownName, fmt::format("There's no prompt called “{}”.", name));
        return;
    }
    const JSON* given = request.params.find("arguments");
    request.answer(MCPMessages::promptResult(*prompt, given == nullptr ? JSON() : *given));
}

void MCPSession::callTool(Request request)
{
    const std::string name = textMember(request.params, "name");
    const AssistantTool* tool = ToolCatalogue::find(name);
    if (tool == nullptr) {
        request.refuse(ErrorCode::unknownName, fmt::format("There's no tool called “{}”.", name));
        return;
    }
    const auto call = std::make_shared<Call>(Call{.request = std::move(request), .tool = *tool, .client = m_client});
    m_waiting = call;
    m_authorize(call->client, *tool, [this, call](const std::optional<std::string>& refusal) {
        if (!std::exchange(call->isDecided, true)) {
            decide(call, refusal);
        }
    });
}

void MCPSession::cancelIfAsked(std::string_view line)
{
    const std::shared_ptr<Call> call = m_waiting.lock();
    if (call == nullptr || call->isDecided) {
        return;
    }
    const JSON message = JSON::parse(line).value_or(JSON());
    const JSON* params = message.find("params");
    const JSON* id = params == nullptr ? nullptr : params->find("requestId");
    if (id != nullptr && *id == call->request.id && isRequest(message) && message.find("id") == nullptr &&
        textMember(message, "method") == "notifications/cancelled") {
        call->isDecided = true;
        call->request.reply(std::nullopt);
    }
}

void MCPSession::decide(const std::shared_ptr<Call>& call, const std::optional<std::string>& refusal)
{
    if (m_isAbandoned) {
        call->request.reply(std::nullopt);
        return;
    }
    if (refusal) {
        finish(*call, ToolResult::error(*refusal));
        return;
    }
    const JSON* arguments = call->request.params.find("arguments");
    m_actions.call(call->tool.name, arguments == nullptr ? JSON() : *arguments, [this, call](ToolResult result) {
        finish(*call, std::move(result));
    });
}

void MCPSession::finish(const Call& call, ToolResult result)
{
    m_didCall(call.client, call.tool, result);
    call.request.answer(MCPMessages::toolResult(std::move(result)));
}

JSON MCPSession::state() const
{
    return JSON::object({{"name", m_client.name},
                         {"version", m_client.version},
                         {"displayName", m_client.displayName},
                         {"protocolVersion", m_protocolVersion},
                         {"isInitialized", m_isInitialized}});
}

void MCPSession::restore(const JSON& state)
{
    const JSON* isInitialized = state.find("isInitialized");
    m_isInitialized = isInitialized != nullptr && *isInitialized == JSON(true);
    if (!m_isInitialized) {
        return; // as it was made
    }
    const auto versions = MCPMessages::protocolVersions();
    const auto version = std::ranges::find(versions, textMember(state, "protocolVersion"));
    m_protocolVersion = version == versions.end() ? versions.front() : *version;
    meet({.name = textMember(state, "name"),
          .version = textMember(state, "version"),
          .displayName = textMember(state, "displayName")});
}

std::string MCPSession::displayName(std::string_view name, std::string_view title)
{
    return KnownAssistants::displayName(name, title);
}

void MCPSession::meet(AssistantClient client)
{
    m_client = std::move(client);
    m_actions.setAssistantName(m_client.displayName);
}

} // namespace Quillary
