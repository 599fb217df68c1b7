#include "QuillaryCore/Billing/OverdueInvoices.h"

#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Billing/LateFees.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/Reminder.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>
#include <span>

namespace Quillary {

namespace {

std::optional<Instant> latestPayBy(Context& context, const Document& document)
{
    std::optional<Instant> latest;
    for (const Reminder* reminder : context.related<&Reminder::document>(document)) {
        latest = std::max(latest, reminder->payBy);
    }
    return latest;
}

OverdueStep nextStep(const OverdueInvoice& invoice, Instant today, const Calendar& calendar)
{
    if (invoice.amountDueMinorUnits <= 0) {
        return OverdueStep::markPaid;
    }
    const bool mayStillCome = invoice.waitsUntil && calendar.daysBetween(today, *invoice.waitsUntil) >= 0;
    return mayStillCome ? OverdueStep::wait : OverdueStep::remind;
}

} // namespace

std::vector<OverdueInvoice>
overdueInvoices(Context& context, const Business& business, Instant today, const Calendar& calendar)
{
    const Instant startOfToday = calendar.startOfDay(today);
    // Other kinds than quotes, credit notes and templates are invoices, the unreadable ones included.
    const std::vector<const Document*> documents = context.fetch<Document>(
        "statusRaw = 1 AND kindRaw NOT IN (1, 2, 3) AND dueDate < ? ORDER BY dueDate, id", startOfToday);
    context.prefetch<&Reminder::document>(std::span(documents));
    std::vector<OverdueInvoice> result;
    result.reserve(documents.size());
    for (const Document* document : documents) {
        OverdueInvoice& invoice = result.emplace_back();
        invoice.document = document;
        invoice.daysOverdue = daysOverdue(*document, today, calendar);
        invoice.amountDueMinorUnits = cachedAmountDueMinorUnits(*document);
        invoice.lastLevel = lastReminderLevel(context, *document);
        invoice.waitsUntil = latestPayBy(context, *document);
        invoice.next = nextStep(invoice, today, calendar);
        const ReminderLevel level = nextReminderLevel(context, *document);
        invoice.reminder = {.level = level,
                            .feeMinorUnits =
                                lateFee(business, level, invoice.amountDueMinorUnits, document->currencyCode),
                            .payBy = reminderDeadline(business, today, calendar)};
    }
    return result;
}

} // namespace Quillary
