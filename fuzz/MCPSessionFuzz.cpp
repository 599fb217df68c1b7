// Whatever lines an assistant app sends, each is answered once, with a line of valid JSON or with nothing, and the
// library stays one that can be asked.

#include "QuillaryCore/Assistant/Session/LineBuffer.h"
#include "QuillaryCore/Assistant/Session/MCPSession.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/BusinessDefaults.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

using namespace Quillary;

namespace {

class Library
{
public:
    Library()
        : business(makeFirstBusiness(context, Locale("en_DE")).ref)
    {
        context.save();
    }

    [[nodiscard]] AssistantEnvironment environment()
    {
        return {.context = context,
                .business = business,
                .host = nullptr,
                .assistantName = "",
                .clock = clock,
                .calendar = Calendar("Europe/Berlin"),
                .locale = Locale("en_DE")};
    }

    FixedClock clock{Instant(std::chrono::milliseconds(1'773'655'200'000))};
    CountingUUIDSource uuids;
    Store store{Store::Location::inMemory(), DataModel::records(), DataModel::history(), clock, uuids};
    Context context{store, clock, uuids};
    Ref<Business> business;
};

bool isRequestWithID(const JSON& message)
{
    const JSON* id = message.find("id");
    return id != nullptr && (id->string() != nullptr || id->number() != nullptr);
}

void requireAnswer(std::string_view line, const std::optional<std::string>& text)
{
    const std::optional<JSON> message = JSON::parse(line);
    if (!text) {
        precondition(message && !isRequestWithID(*message), "a request is answered");
        return;
    }
    precondition(text->find('\n') == std::string::npos, "an answer is one line");
    const std::optional<JSON> answer = JSON::parse(*text);
    precondition(answer.has_value(), "an answer is JSON");
    precondition(*answer->find("jsonrpc") == JSON("2.0"), "an answer is JSON-RPC 2.0");
    precondition((answer->find("result") != nullptr) != (answer->find("error") != nullptr), "an answer says one thing");
    const JSON& id = *answer->find("id");
    precondition(id == (message && isRequestWithID(*message) ? *message->find("id") : JSON()), "an answer has its id");
    if (const JSON* result = answer->find("result")) {
        const JSON* data = result->find("structuredContent");
        precondition(data == nullptr || data->object() != nullptr, "structured content is an object");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Library library; // kept: making one takes longer than a thousand lines
    MCPSession session(
        library.environment(),
        "1",
        [](const AssistantClient&, const AssistantTool&, const MCPSession::Decision& decide) { decide(std::nullopt); },
        [](const AssistantClient&, const AssistantTool&, const ToolResult&) {});
    LineBuffer lines;
    lines.append({reinterpret_cast<const char*>(data), size});
    lines.append("\n");
    while (const auto line = lines.next()) {
        int answers = 0;
        session.handle(line->text, [&](const std::optional<std::string>& text) {
            answers += 1;
            requireAnswer(line->text, text);
        });
        precondition(answers == 1, "a line is answered once");
    }
    const JSON state = session.state();
    session.restore(state);
    precondition(session.state() == state, "a conversation can be handed over");
    return 0;
}
