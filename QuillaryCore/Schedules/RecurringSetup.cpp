#include "QuillaryCore/Schedules/RecurringSetup.h"

#include "QuillaryCore/Documents/DocumentActions.h"
#include "QuillaryCore/Documents/DocumentCopy.h"
#include "QuillaryCore/Documents/DocumentError.h"
#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/DeliveryKind.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Schedules/Recurrence.h"
#include "QuillaryCore/Schedules/RecurringTemplate.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstdint>

namespace Quillary {

namespace {

using Reason = DocumentError::Reason;
using std::chrono::days;
using std::chrono::sys_days;

constexpr int lastAnchorDay = 31;

DocumentError badSchedule(const std::string& sentence)
{
    return {Reason::badSchedule, sentence};
}

void requireRepeatable(const Desk& desk, const Document& invoice)
{
    if (kind(invoice) == DocumentKind::recurring) {
        throw DocumentError(Reason::wrongKind, "That is a recurring invoice already. Duplicate it to make another.");
    }
    if (kind(invoice) != DocumentKind::invoice) {
        throw DocumentError(
            Reason::wrongKind,
            fmt::format("{} is no invoice, so no recurring one is made from it.", documentName(invoice)));
    }
    if (desk.context.find(invoice.client) == nullptr) {
        throw DocumentError(Reason::isNeeded,
                            fmt::format("{} has no client, and a recurring invoice needs one.", documentName(invoice)));
    }
    if (linesInOrder(desk.context, invoice).empty()) {
        throw DocumentError(Reason::isNeeded,
                            fmt::format("{} has no lines yet, so there is nothing to repeat.", documentName(invoice)));
    }
}

void requireTemplate(const Document& document)
{
    if (kind(document) != DocumentKind::recurring) {
        throw DocumentError(Reason::wrongKind, fmt::format("{} is no recurring invoice.", documentName(document)));
    }
}

void requirePossible(const RecurringChoices& choices, RecurrenceUnit unit)
{
    if (choices.interval && (*choices.interval < 1 || *choices.interval > RecurringSetup::mostUnits)) {
        throw badSchedule(fmt::format(
            "The interval must be 1 to {} {}.", RecurringSetup::mostUnits, title(unit, RecurringSetup::mostUnits)));
    }
    if (choices.anchorDay && unit == RecurrenceUnit::week) {
        throw badSchedule("A schedule of weeks has no day of the month; its next date says the day of the week.");
    }
    if (choices.anchorDay && (*choices.anchorDay < 1 || *choices.anchorDay > lastAnchorDay)) {
        throw badSchedule("The day of the month must be 1 to 31; a shorter month uses its last day.");
    }
    if (!choices.end) {
        return;
    }
    if (choices.end->rule == RecurrenceEnd::afterCount &&
        (choices.end->count < 1 || choices.end->count > RecurringSetup::mostInvoices)) {
        throw badSchedule(fmt::format("The number of invoices must be 1 to {}.", RecurringSetup::mostInvoices));
    }
    if (choices.end->rule == RecurrenceEnd::onDate && !choices.end->lastDay) {
        throw badSchedule("The last day is missing.");
    }
}

CalendarDate dayBefore(CalendarDate day)
{
    return sys_days(day) - days(1);
}

int dayOfMonth(CalendarDate day)
{
    return static_cast<int>(unsigned{day.day()});
}

/// The first anchor day of a month that is not before a day; for weeks the day itself.
CalendarDate anchored(const Recurrence& recurrence, CalendarDate from)
{
    if (recurrence.unit == RecurrenceUnit::week) {
        return from;
    }
    const Recurrence monthly{.unit = RecurrenceUnit::month, .interval = 1, .anchorDay = recurrence.anchorDay};
    return monthly.date(monthly.firstIndexAfter(dayBefore(from), from).value_or(0), from);
}

/// The schedule's first date after that of the invoice which doesn't lie before today.
CalendarDate dateAfterInvoice(const Recurrence& recurrence, CalendarDate invoice, CalendarDate today)
{
    const std::optional<std::int64_t> index = recurrence.firstIndexAfter(dayBefore(today), invoice);
    const CalendarDate first = recurrence.date(std::max<std::int64_t>(index.value_or(1), 1), invoice);
    if (first <= invoice) { // outside the years there is no other
        throw badSchedule("No such date comes any more.");
    }
    return first;
}

/// What the invoices of a template state when their model states a period of its own.
BillingPeriod usualPeriod(const Document& invoice, const Calendar& calendar)
{
    if (!isPeriod(deliveryKind(invoice)) || !invoice.deliveryEnd || !invoice.issueDate) {
        return BillingPeriod::none;
    }
    return calendar.daysBetween(*invoice.deliveryEnd, *invoice.issueDate) > 0 ? BillingPeriod::previous
                                                                              : BillingPeriod::current;
}

void setSchedule(Document& recurring, const Recurrence& recurrence, CalendarDate first, const Calendar& calendar)
{
    recurring.recurrenceUnitRaw = static_cast<std::int16_t>(recurrence.unit);
    recurring.recurrenceInterval = static_cast<std::int16_t>(recurrence.interval);
    recurring.recurrenceAnchorDay = static_cast<std::int16_t>(recurrence.anchorDay);
    recurring.issueDate = calendar.storedDay(first);
    recurring.nextIssueDate = recurring.issueDate;
}

void setEnd(Document& recurring, const RecurringEnd& end, const Calendar& calendar)
{
    recurring.recurrenceEndRaw = static_cast<std::int16_t>(end.rule);
    recurring.recurrenceEndCount = static_cast<std::int16_t>(end.rule == RecurrenceEnd::afterCount ? end.count : 0);
    recurring.recurrenceEndDate.reset();
    if (end.rule == RecurrenceEnd::onDate && end.lastDay) {
        recurring.recurrenceEndDate = calendar.storedDay(*end.lastDay);
    }
}

/// All choices but those of the dates.
void setOthers(Document& recurring, const RecurringChoices& choices, const Calendar& calendar)
{
    recurring.title = choices.title.value_or(recurring.title);
    recurring.client = choices.client == nullptr ? recurring.client : choices.client->ref;
    recurring.recurringCreatesSent = choices.createsSent.value_or(recurring.recurringCreatesSent);
    if (choices.billingPeriod) {
        recurring.billingPeriodRaw = id(*choices.billingPeriod);
    }
    if (choices.end) {
        setEnd(recurring, *choices.end, calendar);
    }
}

void changeDates(Document& recurring, const RecurringChoices& choices, const Calendar& calendar)
{
    const std::optional<Recurrence> before = RecurringTemplate::recurrence(recurring, calendar);
    if (!before && !choices.unit) {
        throw badSchedule(
            "Its schedule was made by a newer Quillary: choose whether it goes by weeks, months, quarters "
            "or years.");
    }
    const std::optional<CalendarDate> next = choices.next ? choices.next
                                             : recurring.nextIssueDate
                                                 ? std::optional(calendar.date(*recurring.nextIssueDate))
                                                 : std::nullopt;
    if (!next) {
        throw badSchedule("It has no next date any more: choose one.");
    }
    Recurrence recurrence = before.value_or(Recurrence());
    recurrence.unit = choices.unit.value_or(recurrence.unit);
    recurrence.interval = choices.interval.value_or(recurrence.interval);
    const bool hasDay = before && before->unit != RecurrenceUnit::week;
    recurrence.anchorDay = choices.anchorDay.value_or(hasDay ? recurrence.anchorDay : dayOfMonth(*next));
    requirePossible(choices, recurrence.unit);
    if (recurrence.unit == RecurrenceUnit::week && before) {
        recurrence.anchorDay = before->anchorDay; // says nothing, so it changes nothing
    }
    if (before != recurrence) {
        setSchedule(recurring, recurrence, anchored(recurrence, *next), calendar);
    } else if (choices.next) {
        recurring.nextIssueDate = calendar.storedDay(*choices.next);
    }
}

} // namespace

const Document&
RecurringSetup::create(const Desk& desk, const Document& invoice, const RecurringChoices& choices, CalendarDate today)
{
    requireRepeatable(desk, invoice);
    Recurrence recurrence{.unit = choices.unit.value_or(RecurrenceUnit::month)};
    requirePossible(choices, recurrence.unit);
    const CalendarDate last = invoice.issueDate ? desk.calendar.date(*invoice.issueDate) : today;
    recurrence.interval = choices.interval.value_or(1);
    recurrence.anchorDay = choices.anchorDay.value_or(dayOfMonth(choices.next.value_or(last)));
    const CalendarDate first =
        choices.next ? anchored(recurrence, *choices.next) : dateAfterInvoice(recurrence, last, today);

    auto scope = desk.context.beginScope("Make Recurring");
    Document& made = DocumentCopy::make(
        desk, invoice, {.kind = DocumentKind::recurring, .issueDate = desk.calendar.storedDay(first)});
    made.deliveryKindRaw = invoice.deliveryKindRaw; // the word for the periods that its invoices state
    made.billingPeriodRaw = id(usualPeriod(invoice, desk.calendar));
    setSchedule(made, recurrence, first, desk.calendar);
    setOthers(made, choices, desk.calendar);
    if (RecurringTemplate::hasEnded(made, desk.calendar)) {
        throw badSchedule(fmt::format("It would end before its first invoice, that of {}.", isoText(first)));
    }
    scope.commit();
    return made;
}

void RecurringSetup::change(const Desk& desk, const Document& recurring, const RecurringChoices& choices)
{
    requireTemplate(recurring);
    requirePossible({.end = choices.end}, RecurrenceUnit::month);
    auto scope = desk.context.beginScope("Change Recurring Invoice");
    Document& edited = desk.context.edit(recurring);
    if (choices.unit || choices.interval || choices.anchorDay || choices.next) {
        changeDates(edited, choices, desk.calendar);
    }
    setOthers(edited, choices, desk.calendar);
    scope.commit();
}

void RecurringSetup::remove(const Desk& desk, const Document& recurring)
{
    requireTemplate(recurring);
    auto scope = desk.context.beginScope("Delete Recurring Invoice");
    DocumentActions::deleteDraft(desk, recurring);
    scope.commit();
}

} // namespace Quillary
