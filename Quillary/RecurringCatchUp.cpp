#include "Quillary/RecurringCatchUp.h"

#include "Quillary/ErrorOutput.h"
#include "QuillaryCore/Assistant/Access/ShownText.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Schedules/RecurringInvoices.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

namespace {

constexpr std::size_t longestSentence = 1000; ///< Unit: characters

void tell(std::string_view sentence)
{
    ErrorOutput::writeLine(ShownText::line(sentence, longestSentence));
}

std::int64_t keyOf(Context& context, const RecurringError& failure)
{
    const std::optional<UUID> uuid = failure.templateID();
    const Document* recurring = uuid ? context.find<Document>(*uuid) : nullptr;
    return recurring == nullptr ? 0 : recurring->ref.key();
}

} // namespace

RecurringCatchUp::Outcome RecurringCatchUp::run(Context& context, Instant now, const Calendar& calendar)
{
    try {
        const RecurringInvoices::Run run =
            RecurringInvoices::catchUp(context, now, RecurringInvoices::mostPerRun, calendar);
        Outcome outcome{.made = {}, .failures = {}, .isComplete = run.isComplete};
        for (const Document* invoice : run.made) {
            outcome.made.push_back(invoice->ref.key());
            const Client* client = context.find(invoice->client);
            tell(fmt::format("Made the recurring invoice {} for {}.",
                             invoice->number,
                             client == nullptr ? "nobody" : displayName(*client)));
        }
        outcome.failures.reserve(run.failures.size());
        for (const RecurringError& failure : run.failures) {
            outcome.failures.push_back({.recurring = keyOf(context, failure), .message = failure.message()});
            tell(failure.message());
        }
        return outcome;
    } catch (const UserError& error) {
        const std::string sentence = fmt::format("The recurring invoices were not made: {}", error.message());
        tell(sentence);
        return {.made = {}, .failures = {{.message = sentence}}};
    }
}

} // namespace Quillary
