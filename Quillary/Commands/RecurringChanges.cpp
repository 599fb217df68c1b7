#include "Quillary/Commands/RecurringChanges.h"

#include "Quillary/Commands/CommandSession.h"
#include "Quillary/Commands/RecurringList.h"
#include "QuillaryCore/Assistant/Access/ShownText.h"
#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Tools/Arguments.h"
#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Schedules/RecurringInvoices.h"
#include "QuillaryCore/Schedules/RecurringSetup.h"
#include "QuillaryCore/Schedules/RecurringTemplate.h"

#include <fmt/format.h>

#include <cstddef>
#include <string_view>

namespace Quillary {

namespace {

using MissedDates = RecurringTemplate::MissedDates;

constexpr std::size_t longestName = 1000; ///< Unit: characters

std::string shownName(CommandSession& session, const Document& recurring)
{
    return ShownText::line(RecurringInvoices::name(session.context(), recurring), longestName);
}

/// What was done, and the template as it is now.
CommandAnswer changed(CommandSession& session, const std::string& what, const Document& recurring)
{
    const RecurringList list(session.context(), session.environment().calendar);
    return {.text = fmt::format("{}\n{}", what, list.text(recurring, session.now())),
            .data = list.data(recurring, session.now())};
}

CalendarDate typedDay(const CommandSession& session, const std::string& typed)
{
    return session.environment().calendar.date(session.day(typed));
}

RecurrenceUnit typedUnit(const std::string& typed)
{
    for (const RecurrenceUnit unit : allRecurrenceUnits) {
        if (title(unit, 1) == typed || title(unit, 2) == typed) {
            return unit;
        }
    }
    throw UserError(fmt::format("“{}” is no unit; there are week, month, quarter and year.", typed));
}

BillingPeriod typedPeriod(const std::string& typed)
{
    for (const BillingPeriod period : allBillingPeriods) {
        if (RecurringList::word(period) == typed) {
            return period;
        }
    }
    throw UserError(fmt::format("“{}” is no service period; there are none, current and previous.", typed));
}

std::optional<RecurringEnd> typedEnd(const CommandSession& session, const RecurringRequest& request)
{
    if (request.count) {
        return RecurringEnd{.rule = RecurrenceEnd::afterCount, .count = *request.count};
    }
    if (!request.until.empty()) {
        return RecurringEnd{.rule = RecurrenceEnd::onDate, .lastDay = typedDay(session, request.until)};
    }
    return request.isEndless ? std::optional(RecurringEnd()) : std::nullopt;
}

RecurringChoices choices(CommandSession& session, const RecurringRequest& request)
{
    RecurringChoices choices;
    if (request.title) {
        const JSON given = JSON::object({{"title", *request.title}});
        choices.title = Arguments(given).line("title", Limits::lineLength);
    }
    if (!request.client.empty()) {
        choices.client = &session.client(request.client);
    }
    if (!request.unit.empty()) {
        choices.unit = typedUnit(request.unit);
    }
    choices.interval = request.interval;
    choices.anchorDay = request.day;
    if (!request.next.empty()) {
        choices.next = typedDay(session, request.next);
    }
    choices.end = typedEnd(session, request);
    if (request.sends || request.drafts) {
        choices.createsSent = request.sends;
    }
    if (!request.servicePeriod.empty()) {
        choices.billingPeriod = typedPeriod(request.servicePeriod);
    }
    return choices;
}

} // namespace

bool RecurringRequest::changesAnything() const
{
    return title || interval || day || count || isEndless || sends || drafts || !client.empty() || !unit.empty() ||
           !next.empty() || !until.empty() || !servicePeriod.empty();
}

CommandAnswer RecurringChanges::create(CommandSession& session, const RecurringRequest& request)
{
    const Document& invoice = session.document(request.document);
    const CalendarDate today = session.environment().calendar.date(session.now());
    const Document& made = RecurringSetup::create(session.desk(), invoice, choices(session, request), today);
    return changed(session, fmt::format("{} was made from {}.", shownName(session, made), documentName(invoice)), made);
}

CommandAnswer RecurringChanges::edit(CommandSession& session, const RecurringRequest& request)
{
    const Document& recurring = findRecurring(session.context(), request.recurring);
    if (!request.changesAnything()) {
        throw UserError("Change what? `quillary recurring edit --help` lists what can be changed.");
    }
    RecurringSetup::change(session.desk(), recurring, choices(session, request));
    return changed(session, fmt::format("{} was changed.", shownName(session, recurring)), recurring);
}

CommandAnswer RecurringChanges::pause(CommandSession& session, const RecurringRequest& request)
{
    const Document& recurring = findRecurring(session.context(), request.recurring);
    auto scope = session.context().beginScope("Pause recurring invoice");
    session.context().edit(recurring).isPaused = true;
    scope.commit();
    return changed(session,
                   fmt::format("{} is paused. Dates that pass meanwhile are skipped when it is resumed.",
                               shownName(session, recurring)),
                   recurring);
}

CommandAnswer RecurringChanges::resume(CommandSession& session, const RecurringRequest& request)
{
    const Calendar& calendar = session.environment().calendar;
    const Document& recurring = findRecurring(session.context(), request.recurring);
    const std::string name = shownName(session, recurring);
    if (!recurring.isPaused) {
        return changed(session, fmt::format("{} isn't paused.", name), recurring);
    }
    auto scope = session.context().beginScope("Resume recurring invoice");
    const std::size_t skipped = RecurringTemplate::resume(session.context().edit(recurring),
                                                          calendar.date(session.now()),
                                                          request.makesUp ? MissedDates::madeUp : MissedDates::skipped,
                                                          calendar);
    scope.commit();
    const std::string past = skipped == 0   ? ""
                             : skipped == 1 ? " One date that passed was skipped."
                                            : fmt::format(" {} dates that passed were skipped.", skipped);
    return changed(session, fmt::format("{} goes on.{}", name, past), recurring);
}

CommandAnswer RecurringChanges::remove(CommandSession& session, const RecurringRequest& request)
{
    const Document& recurring = findRecurring(session.context(), request.recurring);
    const std::string name = shownName(session, recurring);
    const std::string id = Lookup::idText(recurring.uuid);
    RecurringSetup::remove(session.desk(), recurring);
    return {.text = fmt::format("{} is deleted. The invoices that were made from it stay.\n", name),
            .data = JSON::object({{"id", id}})};
}

} // namespace Quillary
