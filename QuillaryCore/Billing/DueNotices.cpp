#include "QuillaryCore/Billing/DueNotices.h"

#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Store/Context.h"

#include <chrono>

namespace Quillary {

std::vector<DueNotice>
dueNotices(Context& context, std::optional<CalendarDate> lastTold, Instant now, const Calendar& calendar)
{
    using std::chrono::days;
    using std::chrono::sys_days;
    const CalendarDate today = calendar.date(now);
    const sys_days last = lastTold ? sys_days(*lastTold) : sys_days(today) - days(1);
    if (last >= sys_days(today)) {
        return {};
    }
    // What was due on the day of the last look has become overdue since.
    const Instant from = calendar.startOfDay(CalendarDate(last));
    const Instant end = calendar.startOfDay(CalendarDate(sys_days(today) + days(1)));
    std::vector<DueNotice> notices;
    for (const Document* document : context.fetch<Document>(
             "statusRaw = 1 AND kindRaw NOT IN (1, 2, 3) AND dueDate >= ? AND dueDate < ? ORDER BY dueDate, id",
             from,
             end)) {
        if (cachedAmountDueMinorUnits(*document) > 0) {
            notices.push_back({.document = document->ref, .daysOverdue = daysOverdue(*document, now, calendar)});
        }
    }
    return notices;
}

} // namespace Quillary
