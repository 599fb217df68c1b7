#include "QuillaryCore/Assistant/DocumentDescription.h"
#include "QuillaryCore/Assistant/DocumentSession.h"
#include "QuillaryCore/Assistant/Lookup.h"
#include "QuillaryCore/Assistant/Operations.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/Limits.h"

#include <fmt/format.h>

#include <utility>

namespace Quillary {

namespace {

/// What a draft still lacks, appended to the answer that shows it. What was issued lacks nothing any more.
void appendReview(const AssistantEnvironment& environment,
                  const Document& document,
                  const std::vector<std::string>& filledIn,
                  DocumentDescription& description)
{
    if (status(document).value_or(DocumentStatus::draft) != DocumentStatus::draft) {
        return;
    }
    const DocumentReview review = DocumentOperations::reviewed(environment, document, filledIn);
    description.text += "\n" + review.text();
    description.data.set("review", review.json());
}

ToolResult described(const AssistantEnvironment& environment, const DocumentSession& session, std::string_view verb)
{
    const Document& document = session.document();
    DocumentDescription description =
        DocumentDescription::describe(environment.context, document, environment.clock.now(), environment.calendar);
    appendReview(environment, document, session.filledIn(), description);
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
    DocumentDescription description =
        DocumentDescription::describe(environment.context, document, environment.clock.now(), environment.calendar);
    appendReview(environment, document, {}, description);
    ToolResult result;
    result.text = std::move(description.text);
    result.data = std::move(description.data);
    result.documentID = document.uuid;
    return result;
}

} // namespace Quillary
