#include "QuillaryCore/Assistant/DocumentDescription.h"
#include "QuillaryCore/Assistant/DocumentSession.h"
#include "QuillaryCore/Assistant/Lookup.h"
#include "QuillaryCore/Assistant/Operations.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/Limits.h"

#include <fmt/format.h>

namespace Quillary {

namespace {

ToolResult described(const AssistantEnvironment& environment, const DocumentSession& session, std::string_view verb)
{
    const Document& document = session.document();
    DocumentDescription description =
        DocumentDescription::describe(environment.context, document, environment.clock.now(), environment.calendar);
    ToolResult result;
    result.text = fmt::format("{} {}", verb, description.text);
    JSON::Array filledIn;
    if (!session.filledIn().empty()) {
        result.text += fmt::format("Filled in: {}\n", fmt::join(session.filledIn(), "; "));
    }
    for (const std::string& text : session.filledIn()) {
        filledIn.emplace_back(text);
    }
    description.data.set("filled_in", std::move(filledIn));
    result.data = std::move(description.data);
    result.documentID = document.uuid;
    result.summary = fmt::format("{} {}", verb, description.heading);
    return result;
}

} // namespace

ToolResult DocumentOperations::create(const AssistantEnvironment& environment, const Arguments& arguments)
{
    DocumentSession session =
        DocumentSession::create(environment, arguments.line("kind", Limits::lineLength).value_or("invoice"));
    session.apply(arguments);
    return described(environment, session, "Made the draft:");
}

ToolResult DocumentOperations::update(const AssistantEnvironment& environment, const Arguments& arguments)
{
    const std::string named = arguments.line("document", Limits::lineLength).value_or("");
    DocumentSession session = DocumentSession::open(environment, Lookup::document(environment.context, named));
    session.apply(arguments);
    return described(environment, session, "Changed the draft:");
}

ToolResult DocumentOperations::show(const AssistantEnvironment& environment, const Arguments& arguments)
{
    const std::string named = arguments.line("document", Limits::lineLength).value_or("");
    const Document& document = Lookup::document(environment.context, named);
    DocumentDescription description =
        DocumentDescription::describe(environment.context, document, environment.clock.now(), environment.calendar);
    ToolResult result;
    result.text = std::move(description.text);
    result.data = std::move(description.data);
    result.documentID = document.uuid;
    return result;
}

} // namespace Quillary
