#include "Quillary/Commands/TimeCommand.h"
#include "Quillary/Commands/TimeDesk.h"
#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/DocumentSession.h"
#include "QuillaryCore/Assistant/Tools/Arguments.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Schedules/TimeBilling.h"
#include "QuillaryCore/Schedules/TimeInvoicing.h"
#include "QuillaryCore/Schedules/TimeTracking.h"

#include <fmt/format.h>

#include <algorithm>

namespace Quillary {

namespace {

TimeInvoicing::Grouping groupingNamed(const std::string& text)
{
    for (const TimeInvoicing::Grouping grouping : TimeInvoicing::allGroupings) {
        if (lowerCasedASCII(TimeInvoicing::rawText(grouping)) == lowerCasedASCII(text)) {
            return grouping;
        }
    }
    throw UserError(fmt::format("“{}” is no grouping.", text));
}

/// The draft to bill on: the one named, or a new one for the client.
DocumentSession openDraft(const AssistantEnvironment& environment,
                          const std::optional<std::string>& document,
                          const std::optional<std::string>& client)
{
    if (document) {
        DocumentSession session = DocumentSession::open(environment, Lookup::document(environment, *document));
        if (client && Lookup::client(environment, *client).ref != session.document().client) {
            throw UserError("The draft is another client's.");
        }
        return session;
    }
    DocumentSession session = DocumentSession::create(environment, "invoice");
    const JSON arguments = JSON::object({{"client", client.value_or("")}});
    session.apply(Arguments(arguments));
    return session;
}

/// What else a person should know about this bill.
std::string warnings(const AssistantEnvironment& environment, const Document& draft)
{
    std::string text;
    const Client* client = environment.context.find(draft.client);
    if (TimeBilling::hourlyRate(client, environment.ownBusiness()) == 0) {
        text += "No hourly rate is set, neither for the client nor for the business, so the hours cost nothing.\n";
    }
    const auto running = TimeTracking::running(environment.context);
    if (std::ranges::any_of(running, [&](const TimeEntry* entry) { return entry->client == draft.client; })) {
        text += "A timer is running for this client; its time is not billed before it is stopped.\n";
    }
    return text;
}

} // namespace

TimeCommand::Answer TimeCommand::invoice(TimeDesk& desk) const
{
    const AssistantEnvironment& environment = desk.environment();
    const Calendar& calendar = environment.calendar;
    if (!m_client && !m_document) {
        throw UserError("Whose time? Give --client, or --document for a draft that is there.");
    }
    DocumentSession::Time time;
    if (m_project) {
        time.project = desk.project(*m_project);
    }
    if (m_from) {
        time.from = calendar.startOfDay(desk.day(*m_from));
    }
    if (m_until) {
        time.until = calendar.startOfDay(calendar.addingDays(calendar.storedDay(desk.day(*m_until)), 1));
    }
    if (m_grouping) {
        time.grouping = groupingNamed(*m_grouping);
    }
    if (m_rounding) {
        time.roundingMinutes = *m_rounding;
    }
    auto scope = environment.context.beginScope("Bill time");
    DocumentSession session = openDraft(environment, m_document, m_client);
    const std::size_t count = session.addTime(time);
    scope.commit();

    const Document& draft = session.document();
    const Money total(draft.cachedTotalMinorUnits, draft.currencyCode);
    Answer answer{.text = {}, .warning = warnings(environment, draft)};
    if (isJSON()) {
        answer.text = JSON::object({{"document", Lookup::idText(draft.uuid)},
                                    {"number", draft.number},
                                    {"entries", count},
                                    {"total", JSON::Number{total.plainText()}},
                                    {"currency", draft.currencyCode}})
                          .pretty() +
                      "\n";
    } else {
        answer.text = fmt::format("{} time {} billed on {}, now {}.\n",
                                  count,
                                  count == 1 ? "entry" : "entries",
                                  Lookup::reference(draft),
                                  total.formatted(environment.locale));
    }
    return answer;
}

} // namespace Quillary
