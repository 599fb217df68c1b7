#include "QuillaryCore/Assistant/Session/MCPSession.h"

#include "QuillaryCore/Assistant/Session/MCPMessages.h"
#include "tests/Assistant/Session/SessionTest.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillary {
namespace {

class MCPSessionTest : public SessionTest
{
protected:
    /// The answer to a line; empty where there is none.
    std::string answer(std::string_view line)
    {
        std::string result;
        int answers = 0;
        session.handle(line, [&](std::optional<std::string> text) {
            answers += 1;
            result = std::move(text).value_or("");
        });
        EXPECT_EQ(answers, 1) << line;
        EXPECT_EQ(result.find('\n'), std::string::npos) << line;
        return result;
    }

    /// The result of a request, which must have one.
    JSON result(std::string_view method, std::string_view params = "{}")
    {
        const std::string line = answer(R"({"jsonrpc":"2.0","id":1,"method":")" + std::string(method) +
                                        R"(","params":)" + std::string(params) + "}");
        const std::optional<JSON> message = JSON::parse(line);
        const JSON* found = message ? message->find("result") : nullptr;
        EXPECT_NE(found, nullptr) << line;
        return found == nullptr ? JSON() : *found;
    }

    std::string firstText(const JSON& toolResult)
    {
        return *toolResult.find("content")->array()->front().find("text")->string();
    }

    std::unique_ptr<MCPSession> ownSession = makeSession();
    MCPSession& session = *ownSession;
};

TEST_F(MCPSessionTest, answersMessagesByTheRulesOfTheProtocol)
{
    const std::string notARequest = R"("error":{"code":-32600,"message":"Not a JSON-RPC 2.0 request."}})";
    const std::string notJSON = R"({"jsonrpc":"2.0","id":null,"error":{"code":-32700,"message":"That isn't JSON."}})";
    const std::string deep = R"({"jsonrpc":"2.0","id":1,"method":"ping","params":)" + std::string(100'000, '[');
    const std::pair<std::string, std::string> cases[] = {
        {R"({"jsonrpc":"2.0","id":7,"method":"ping"})", R"({"jsonrpc":"2.0","id":7,"result":{}})"},
        {R"({"jsonrpc":2.0,"id":"a\"\n","method":"ping"})", R"({"jsonrpc":"2.0","id":"a\"\n","result":{}})"},
        {R"({"jsonrpc":"2.0","id":1.50,"method":"logging/setLevel"})", R"({"jsonrpc":"2.0","id":1.50,"result":{}})"},
        {R"({"jsonrpc":"2.0","id":1,"method":"ping","params":[1]})", R"({"jsonrpc":"2.0","id":1,"result":{}})"},
        {R"({"jsonrpc":"2.0","id":1,"method":"resources/list","params":{"_meta":{"progressToken":1}}})",
         R"({"jsonrpc":"2.0","id":1,"result":{"resources":[]}})"},
        {R"({"jsonrpc":"2.0","id":1,"method":"resources/templates/list"})",
         R"({"jsonrpc":"2.0","id":1,"result":{"resourceTemplates":[]}})"},
        // Notifications.
        {R"({"jsonrpc":"2.0","method":"notifications/initialized"})", ""},
        {R"({"jsonrpc":"2.0","method":"notifications/cancelled","params":{"requestId":1}})", ""},
        {R"({"jsonrpc":"2.0","id":null,"method":"ping"})", ""},
        {R"({"jsonrpc":"2.0","method":"server/discover"})", ""},
        // Unknown names.
        {R"({"jsonrpc":"2.0","id":1,"method":"server/discover"})",
         R"({"jsonrpc":"2.0","id":1,"error":{"code":-32601,"message":"Quillary doesn't know “server/discover”."}})"},
        {R"({"jsonrpc":"2.0","id":1,"method":"Ping"})",
         R"({"jsonrpc":"2.0","id":1,"error":{"code":-32601,"message":"Quillary doesn't know “Ping”."}})"},
        {R"({"jsonrpc":"2.0","id":1,"method":"tools/call","params":{"name":7}})",
         R"({"jsonrpc":"2.0","id":1,"error":{"code":-32602,"message":"There's no tool called “7”."}})"},
        {R"({"jsonrpc":"2.0","id":1,"method":"prompts/get"})",
         R"({"jsonrpc":"2.0","id":1,"error":{"code":-32602,"message":"There's no prompt called “”."}})"},
        // No requests.
        {"{}", R"({"jsonrpc":"2.0","id":null,)" + notARequest},
        {R"([{"jsonrpc":"2.0","id":1,"method":"ping"}])", R"({"jsonrpc":"2.0","id":null,)" + notARequest},
        {"7", R"({"jsonrpc":"2.0","id":null,)" + notARequest},
        {R"({"jsonrpc":"1.0","id":3,"method":"ping"})", R"({"jsonrpc":"2.0","id":3,)" + notARequest},
        {R"({"jsonrpc":2,"id":3,"method":"ping"})", R"({"jsonrpc":"2.0","id":3,)" + notARequest},
        {R"({"jsonrpc":"2.0","id":3,"method":1})", R"({"jsonrpc":"2.0","id":3,)" + notARequest},
        {R"({"jsonrpc":"2.0","id":{},"method":"ping"})", R"({"jsonrpc":"2.0","id":null,)" + notARequest},
        {R"({"jsonrpc":"2.0","id":true,"method":"ping"})", R"({"jsonrpc":"2.0","id":null,)" + notARequest},
        // No JSON.
        {"{", notJSON},
        {"\"\xC3\"", notJSON},
        {deep, notJSON},
        {deep + std::string(100'000, ']') + "}", notJSON},
    };
    for (const auto& [line, expected] : cases) {
        EXPECT_EQ(answer(line), expected) << line.substr(0, 100);
    }
    EXPECT_TRUE(calls.empty());
}

TEST_F(MCPSessionTest, agreesOnAVersionAndKnowsItsClient)
{
    EXPECT_EQ(session.client(), AssistantClient());
    struct Case
    {
        std::string_view params, version, name, clientVersion, displayName;
    };
    const Case cases[] = {
        {R"({"protocolVersion":"2025-03-26","clientInfo":{"name":"claude-ai","version":"1"}})",
         "2025-03-26",
         "claude-ai",
         "1",
         "Claude"},
        {R"({"protocolVersion":"1999-01-01","clientInfo":{"name":"my-own_app","version":1.20}})",
         "2025-11-25",
         "my-own_app",
         "1.20",
         "My Own App"},
        {R"({"protocolVersion":"2024-11-05","clientInfo":{"name":"x","title":"Ada’s\nhelper"}})",
         "2024-11-05",
         "x",
         "",
         "Ada’s helper"}, // a name stays on its line wherever it is shown
        {"{}", "2025-11-25", "assistant", "", "AI assistant"},
        {R"({"clientInfo":"x"})", "2025-11-25", "assistant", "", "AI assistant"},
    };
    for (const Case& example : cases) {
        EXPECT_EQ(result("initialize", example.params).find("protocolVersion")->text(), example.version);
        EXPECT_EQ(session.client().name, example.name);
        EXPECT_EQ(session.client().version, example.clientVersion);
        EXPECT_EQ(session.client().displayName, example.displayName);
        EXPECT_EQ(session.protocolVersion(), example.version);
    }
}

TEST_F(MCPSessionTest, saysOfItselfWhatAssistantsRelyOn)
{
    JSON introduction = result("initialize");
    const std::string instructions = *introduction.find("instructions")->string();
    introduction.set("instructions", "");
    EXPECT_EQ(introduction.dump(),
              R"({"protocolVersion":"2025-11-25","capabilities":{"tools":{"listChanged":false},"prompts":)"
              R"({"listChanged":false}},"serverInfo":{"name":"quillary","title":"Quillary","version":"1.2.3"},)"
              R"("instructions":""})");
    EXPECT_TRUE(instructions.starts_with("Quillary makes invoices and quotes on the user's Mac. To make one:\n1. "));
    EXPECT_TRUE(instructions.ends_with("in the EU; they're not legal advice."));
    const JSON::Array tools = *result("tools/list").find("tools")->array();
    ASSERT_EQ(tools.size(), AssistantActions::tools().size());
    EXPECT_EQ(tools.back(), AssistantActions::tools().back().listing());
}

TEST(MCPClientTest, isShownByTheNameThatPeopleUse)
{
    struct Case
    {
        std::string_view name, title, expected;
    };
    const Case cases[] = {
        {"claude-code", "Something", "Claude Code"}, // the longer key first, and before the title
        {"com.example.CLAUDE", "", "Claude"},
        {"Visual-Studio-Code", "", "VS Code"},
        {"github-copilot", "", "GitHub Copilot"},
        {"authorized", "", "Zed"}, // contained anywhere
        {"my-bot", " My Bot ", " My Bot "},
        {"--my__bot-2", "", "My Bot 2"},
        {"émile", "", "Émile"},
        {"iris", "", "Iris"},
        {"", "", "AI assistant"},
        {"-_", "", "AI assistant"},
        {"", "Helper", "Helper"},
    };
    for (const Case& example : cases) {
        EXPECT_EQ(MCPSession::displayName(example.name, example.title), example.expected) << example.name;
    }
}

TEST_F(MCPSessionTest, offersPromptsAndFillsThemIn)
{
    const JSON list = result("prompts/list");
    ASSERT_EQ(list.find("prompts")->array()->size(), 4U);
    const JSON last = list.find("prompts")->array()->back();
    EXPECT_EQ(
        last.dump(),
        R"({"name":"who_owes_me","title":"Who owes me money?","description":"Open and overdue invoices, and what )"
        R"(to do about them.","arguments":[]})");
    const std::pair<std::string_view, std::string_view> cases[] = {
        {R"({"name":"new_invoice"})", "Make an invoice in Quillary. Start with create_document, ask"},
        {R"({"name":"new_invoice","arguments":{"client":"Acme","details":"2 h"}})",
         "Make an invoice in Quillary for Acme: 2 h. Start with create_document, ask"},
        {R"({"name":"new_quote","arguments":{"details":42,"client":""}})",
         "Make a quote in Quillary: 42. Start with create_document (kind quote), ask"},
        {R"({"name":"invoice_time","arguments":{"client":"Acme","details":"x"}})",
         "Look at my unbilled time in Quillary (get_unbilled_time) for Acme, then make"},
        {R"({"name":"who_owes_me","arguments":[]})", "Use get_money_overview in Quillary and tell me briefly"},
    };
    for (const auto& [params, beginning] : cases) {
        const JSON prompt = result("prompts/get", params);
        const JSON& message = prompt.find("messages")->array()->front();
        const std::string text = *message.find("content")->find("text")->string();
        EXPECT_EQ(text.substr(0, beginning.size()), beginning) << params;
        EXPECT_EQ(*message.find("role"), JSON("user"));
    }
}

TEST_F(MCPSessionTest, answersACallWithTextAndDataThatSayTheSame)
{
    result("initialize", R"({"clientInfo":{"name":"cursor-vscode"}})");
    const JSON created = result("tools/call", R"({"name":"create_client","arguments":{"name":"Ann “A\" Lee"}})");
    EXPECT_EQ(member(created, "isError"), "false");
    const JSON& data = *created.find("structuredContent");
    const std::string summary = *data.find("summary")->string();
    EXPECT_EQ(firstText(created), summary + "\n\nData: " + data.dump());
    std::vector<std::string> keys;
    for (const auto& [key, value] : *created.object()) {
        keys.push_back(key);
    }
    EXPECT_EQ(keys, (std::vector<std::string>{"content", "isError", "structuredContent"}));

    const JSON misfit = result("tools/call", R"({"name":"find_clients","arguments":{"colour":1}})");
    EXPECT_EQ(misfit.dump(),
              R"({"content":[{"type":"text","text":"“colour” isn't known here. The arguments are: query, limit."}],)"
              R"("isError":true})");
    EXPECT_EQ(
        member(result("tools/call", R"({"name":"find_clients","arguments":{"query":4711,"limit":"3"}})"), "isError"),
        "false");
    EXPECT_EQ(calls,
              (std::vector<std::string>{"Cursor: create_client", "Cursor: find_clients!", "Cursor: find_clients"}));
}

TEST_F(MCPSessionTest, writesAnImageAfterTheText)
{
    ToolResult preview{.text = "A\nB"};
    preview.image = Bytes{0xFF, 0x00, 0x10};
    EXPECT_EQ(MCPMessages::toolResult(preview),
              R"({"content":[{"type":"text","text":"A\nB"},{"type":"image","data":"/wAQ","mimeType":"image/png"}],)"
              R"("isError":false})");
}

TEST_F(MCPSessionTest, aRefusedCallIsAnAnswerAndChangesNothing)
{
    userRefusal = "In Quillary, assistants may only look.";
    const JSON refused = result("tools/call", R"({"name":"create_client","arguments":{"name":"Ann"}})");
    EXPECT_EQ(refused.dump(),
              R"({"content":[{"type":"text","text":"In Quillary, assistants may only look."}],"isError":true})");
    // Access is asked for before the arguments are looked at.
    EXPECT_EQ(firstText(result("tools/call", R"({"name":"create_client","arguments":{"x":1}})")), *userRefusal);
    EXPECT_EQ(calls, (std::vector<std::string>(2, "AI assistant: create_client!")));
    EXPECT_EQ(member(library.data("find_clients", "{}"), "clients"), "[]");
}

TEST_F(MCPSessionTest, aCallWaitsForTheUserAndRunsOnce)
{
    isAsking = true;
    std::vector<std::string> answers;
    const std::string line = R"({"jsonrpc":"2.0","id":1,"method":"tools/call","params":)"
                             R"({"name":"create_client","arguments":{"name":"Ann"}}})";
    const auto keep = [&](std::optional<std::string> text) {
        answers.push_back(std::move(text).value_or(""));
    };
    session.handle(line, keep);
    EXPECT_TRUE(answers.empty());
    questions.at(0)(std::nullopt);
    questions.at(0)(std::nullopt);
    EXPECT_EQ(answers.size(), 1U);
    EXPECT_EQ(calls.size(), 1U);

    // Given up before the user has answered: never run.
    session.handle(line, keep);
    session.abandon();
    questions.at(1)(std::nullopt);
    EXPECT_EQ(answers.size(), 2U);
    EXPECT_EQ(answers.back(), "");
    EXPECT_EQ(calls.size(), 1U);
}

TEST_F(MCPSessionTest, anotherSessionGoesOnWhereOneStopped)
{
    const JSON untouched = session.state();
    result("initialize", R"({"protocolVersion":"2025-06-18","clientInfo":{"name":"goose","version":"2"}})");
    const JSON state = session.state();
    const AssistantClient goose = session.client();
    session.restore(untouched);
    EXPECT_EQ(session.client(), goose) << "nothing to restore";
    result("initialize", "{}");
    session.restore(JSON::parse(state.dump()).value());
    EXPECT_EQ(session.client(), goose);
    EXPECT_EQ(session.protocolVersion(), "2025-06-18");
    EXPECT_TRUE(session.isInitialized());
}

TEST_F(MCPSessionTest, keepsResultsShortWithTheirData)
{
    // Only the words were counted: with the data behind them a result came to four times the limit.
    std::string lines;
    for (int number = 0; number < 200; ++number) {
        lines += (lines.empty() ? "" : ",") + std::string(R"({"title":"Work","details":")") + std::string(8000, 'w') +
                 R"(","unit_price":1})";
    }
    const std::string client(R"({"name":"create_client","arguments":{"name":")" + std::string(450, 'n') + R"("}})");
    static_cast<void>(result("tools/call", client));
    const JSON made = result("tools/call",
                             R"({"name":"create_document","arguments":{"kind":"invoice","client":"nnn","intro":")" +
                                 std::string(9000, 'i') + R"(","add_lines":[)" + lines + "]}}");
    const JSON shown = result("tools/call", R"({"name":"get_document","arguments":{"document":"INV-2026-001"}})");
    for (const JSON& answer : {made, shown}) {
        const std::string text = firstText(answer);
        EXPECT_LE(text.size(), 50'000U);
        EXPECT_TRUE(text.contains("\n\nData: {"));
        const JSON& data = *answer.find("structuredContent");
        const std::size_t listed = data.find("lines")->array()->size();
        EXPECT_GT(listed, 5U);
        EXPECT_EQ(data.find("more_lines")->integer(), 200 - static_cast<std::int64_t>(listed));
        EXPECT_TRUE(text.contains("\nTotal: 238.00\n")) << "what stands below the lines is always there";
    }
}

} // namespace
} // namespace Quillary
