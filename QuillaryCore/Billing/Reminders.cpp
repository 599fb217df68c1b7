#include "QuillaryCore/Billing/Reminders.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Billing/DocumentLimits.h"
#include "QuillaryCore/Billing/LateFees.h"
#include "QuillaryCore/Billing/Payments.h"
#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/Reminder.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>
#include <vector>

namespace Quillary {

bool canSendReminder(Context& context, const Document& document)
{
    return acceptsPayments(document) && status(document) == DocumentStatus::sent &&
           amountDueMinorUnits(context, document) > 0;
}

std::optional<ReminderLevel> lastReminderLevel(Context& context, const Document& document)
{
    std::optional<ReminderLevel> last;
    for (const Reminder* reminder : context.related<&Reminder::document>(document)) {
        last = std::max(last, level(*reminder));
    }
    return last;
}

ReminderLevel nextReminderLevel(Context& context, const Document& document)
{
    int highest = 0;
    for (const Reminder* reminder : context.related<&Reminder::document>(document)) {
        highest = std::max<int>(highest, reminder->level);
    }
    switch (highest) {
    case 0:
        return ReminderLevel::first;
    case 1:
        return ReminderLevel::second;
    default:
        return ReminderLevel::final;
    }
}

Instant reminderDeadline(const Business& business, Instant today, const Calendar& calendar)
{
    return calendar.addingDays(today, std::max<int>(0, business.reminderPaymentDays));
}

ReminderDetails nextReminder(
    Context& context, const Document& document, const Business& business, Instant today, const Calendar& calendar)
{
    return reminderOfLevel(context, document, business, nextReminderLevel(context, document), today, calendar);
}

ReminderDetails reminderOfLevel(Context& context,
                                const Document& document,
                                const Business& business,
                                ReminderLevel level,
                                Instant today,
                                const Calendar& calendar)
{
    return {.level = level,
            .feeMinorUnits = lateFee(business, level, amountDueMinorUnits(context, document), document.currencyCode),
            .payBy = reminderDeadline(business, today, calendar)};
}

std::optional<std::string> checkReminder(
    Context& context, const Document& document, const ReminderDetails& details, Instant today, const Calendar& calendar)
{
    if (!acceptsPayments(document)) {
        return "Only invoices are reminded of.";
    }
    switch (status(document).value_or(DocumentStatus::draft)) {
    case DocumentStatus::draft:
        return "It is still a draft: nobody was asked to pay it yet.";
    case DocumentStatus::paid:
        return "It is paid.";
    case DocumentStatus::accepted:
    case DocumentStatus::declined:
        return "It isn't marked as sent.";
    case DocumentStatus::sent:
        break;
    }
    if (!canSendReminder(context, document)) {
        return "Nothing is owed on it.";
    }
    if (calendar.daysBetween(today, details.payBy) < 0) {
        return "The day to pay by has passed.";
    }
    if (calendar.daysBetween(today, details.payBy) > Limits::paymentTermsDays) {
        return "The day to pay by lies more than ten years ahead.";
    }
    return checkLateFee(context, document, details.feeMinorUnits);
}

ReminderFigures reminderFigures(Context& context, const Document& document, const ReminderNotice& reminder)
{
    const std::int64_t recorded = lateFeesMinorUnits(context, document);
    ReminderFigures figures{.invoiceTotal = calculateTotals(context, document).total,
                            .lateFees =
                                reminder.isRecorded ? recorded : checkedAdd(recorded, reminder.details.feeMinorUnits),
                            .paid = paidMinorUnits(context, document)};
    figures.amountDue = checkedSubtract(checkedAdd(figures.invoiceTotal, figures.lateFees), figures.paid);
    return figures;
}

const Reminder* lastReminder(Context& context, const Document& document)
{
    const std::vector<const Reminder*> reminders = sortedReminders(context, document);
    return reminders.empty() ? nullptr : reminders.back();
}

ReminderNotice recordedNotice(const Reminder& reminder)
{
    const Instant entered = reminder.createdAt.value_or(Instant());
    const Instant date = reminder.date.value_or(entered);
    // A level that can't be read counts as the nearest one, as it does for the level that comes next.
    const ReminderLevel nearest = reminder.level < 1 ? ReminderLevel::first : ReminderLevel::final;
    return {.details = {.level = level(reminder).value_or(nearest),
                        .feeMinorUnits = reminder.feeMinorUnits,
                        .payBy = reminder.payBy.value_or(date)},
            .date = date,
            .isRecorded = true};
}

Reminder& addReminder(
    Context& context, const Document& document, ReminderLevel level, std::int64_t fee, Instant date, Instant payBy)
{
    Reminder& reminder = context.insert<Reminder>();
    reminder.level = static_cast<std::int16_t>(level);
    reminder.feeMinorUnits = fee;
    reminder.date = date;
    reminder.payBy = payBy;
    reminder.document = document.ref;
    refreshPayments(context, document);
    return reminder;
}

void deleteReminder(Context& context, const Reminder& reminder)
{
    const Document* document = context.find(reminder.document);
    context.erase(reminder);
    if (document != nullptr) {
        refreshPayments(context, *document);
    }
}

} // namespace Quillary
