#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Store/Ref.h"

#include <optional>
#include <vector>

namespace Quillary {

class Context;
struct Document;

/// One invoice that the user is to hear of.
struct DueNotice
{
    Ref<Document> document;
    int daysOverdue = 0; ///< 0: it is due today
};

/// What the user hears of on a day, each thing once: an invoice on the day that it is due, and on the first day looked at
/// after that. `lastTold` is the day of the last look, which is all that has to be remembered; without one, only what
/// happened since yesterday is news. Nothing where that day lies ahead: the clock was set back.
/// The longest overdue first. Throws: `StoreError`.
[[nodiscard]] std::vector<DueNotice>
dueNotices(Context& context, std::optional<CalendarDate> lastTold, Instant now, const Calendar& calendar);

} // namespace Quillary
