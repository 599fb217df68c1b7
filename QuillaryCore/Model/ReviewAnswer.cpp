#include "QuillaryCore/Model/ReviewAnswer.h"

#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Store/Context.h"

#include <vector>

namespace Quillary {

namespace {

std::vector<const ReviewAnswer*> onVATID(Context& context, const Client& client)
{
    if (!client.uuid) {
        return {};
    }
    return context.fetch<ReviewAnswer>(
        "clientID = ? AND topicRaw = ?", *client.uuid, static_cast<std::int16_t>(ReviewTopic::vatID));
}

} // namespace

std::set<std::string, std::less<>> ReviewAnswers::of(Context& context, const Document& document, ReviewTopic topic)
{
    std::set<std::string, std::less<>> answers;
    if (document.uuid) {
        for (const ReviewAnswer* record : context.fetch<ReviewAnswer>(
                 "documentID = ? AND topicRaw = ?", *document.uuid, static_cast<std::int16_t>(topic))) {
            answers.insert(record->answer);
        }
    }
    return answers;
}

void ReviewAnswers::remember(Context& context, const Document& document, ReviewTopic topic, std::string_view answer)
{
    if (!document.uuid || of(context, document, topic).contains(answer)) {
        return;
    }
    ReviewAnswer& record = context.insert<ReviewAnswer>();
    record.documentID = document.uuid;
    record.topicRaw = static_cast<std::int16_t>(topic);
    record.answer = answer;
}

bool ReviewAnswers::hasNoVATID(Context& context, const Client& client)
{
    return !onVATID(context, client).empty();
}

void ReviewAnswers::setHasNoVATID(Context& context, const Client& client, bool hasNone)
{
    const std::vector<const ReviewAnswer*> stored = onVATID(context, client);
    if (!hasNone) {
        for (const ReviewAnswer* record : stored) {
            context.erase(*record);
        }
    } else if (stored.empty() && client.uuid) {
        ReviewAnswer& record = context.insert<ReviewAnswer>();
        record.clientID = client.uuid;
        record.topicRaw = static_cast<std::int16_t>(ReviewTopic::vatID);
        record.answer = "none";
    }
}

} // namespace Quillary
