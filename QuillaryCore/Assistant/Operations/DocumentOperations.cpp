#include "QuillaryCore/Assistant/Description/DocumentDescription.h"
#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/DocumentSession.h"
#include "QuillaryCore/Assistant/Operations/Operations.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/Limits.h"

#include <fmt/format.h>

#include <utility>

namespace Quillary {

namespace {

/// A document in full, and what a draft still lacks. What was issued lacks nothing any more, and a template is sent to
/// nobody.
DocumentDescription describedWithReview(const AssistantEnvironment& environment,
                                        const Document& document,
                                        const std::vector<std::string>& filledIn)
{
    const auto describe = [&](std::size_t reserve) {
        return DocumentDescription::describe(
            environment.context, document, environment.clock.now(), environment.calendar, reserve);
    };
    if (status(document).value_or(DocumentStatus::draft) != DocumentStatus::draft ||
        kind(document) == DocumentKind::recurring) {
        return describe(0);
    }
    const DocumentReview review = DocumentOperations::reviewed(environment, document, filledIn);
    const std::string text = "\n" + review.text();
    JSON data = review.json();
    DocumentDescription description = describe(roomFor(text, data));
    description.text += text;
    description.data.set("review", std::move(data));
    return description;
}

ToolResult described(const AssistantEnvironment& environment, const DocumentSession& session, std::string_view verb)
{
    const Document& document = session.document();
    DocumentDescription description = describedWithReview(environment, document, session.filledIn());
    ToolResult result;
    result.text = fmt::format("{} {}", verb, description.text);
    result.data = std::move(description.data);
    result.documentID = document.uuid;
    result.summary = fmt::format("{} {}", verb, description.heading);
    return result;
}

} // namespace

DocumentReview DocumentOperations::reviewed(const AssistantEnvironment& environment,
                                            const Document& document,
                                            const std::vector<std::string>& filledIn)
{
    const Instant today = environment.calendar.startOfDay(environment.clock.now());
    return DocumentReview::review(
        environment.context, document, environment.ownBusiness(), today, environment.locale, filledIn);
}

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
    DocumentSession session = DocumentSession::open(environment, Lookup::document(environment, named));
    session.apply(arguments);
    return described(environment, session, "Changed the draft:");
}

ToolResult DocumentOperations::show(const AssistantEnvironment& environment, const Arguments& arguments)
{
    const std::string named = arguments.line("document", Limits::lineLength).value_or("");
    const Document& document = Lookup::document(environment, named);
    DocumentDescription description = describedWithReview(environment, document, {});
    ToolResult result;
    result.text = std::move(description.text);
    result.data = std::move(description.data);
    result.documentID = document.uuid;
    return result;
}

} // namespace Quillary
