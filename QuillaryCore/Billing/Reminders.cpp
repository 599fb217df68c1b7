#include "QuillaryCore/Billing/Reminders.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Billing/LateFees.h"
#include "QuillaryCore/Billing/Payments.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/Reminder.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>

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

ReminderDetails nextReminder(
    Context& context, const Document& document, const Business& business, Instant today, const Calendar& calendar)
{
    const ReminderLevel next = nextReminderLevel(context, document);
    return {.level = next,
            .feeMinorUnits = lateFee(business, next, amountDueMinorUnits(context, document), document.currencyCode),
            .payBy = calendar.addingDays(today, std::max<int>(0, business.reminderPaymentDays))};
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
