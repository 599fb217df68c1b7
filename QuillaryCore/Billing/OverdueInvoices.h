#pragma once

#include "QuillaryCore/Billing/Reminders.h"
#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Model/ReminderLevel.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace Quillary {

class Context;
struct Business;
struct Document;

/// What comes next for an overdue invoice.
enum class OverdueStep {
    remind,
    wait,     ///< the day that the last reminder asks to pay by has not passed
    markPaid, ///< by the stored amounts nothing is owed any more
};

/// An invoice whose due date has passed, by its stored amounts.
struct OverdueInvoice
{
    const Document* document = nullptr; ///< owned by the context
    int daysOverdue = 0;
    std::int64_t amountDueMinorUnits = 0;   ///< in the document's currency
    std::optional<ReminderLevel> lastLevel; ///< the highest one sent
    std::optional<Instant> waitsUntil;      ///< the latest day that a reminder asks to pay by
    OverdueStep next = OverdueStep::remind;
    ReminderDetails reminder; ///< what the next reminder says if it is sent today
};

/// What shows as `DisplayStatus::overdue`, the longest overdue first.
[[nodiscard]] std::vector<OverdueInvoice>
overdueInvoices(Context& context, const Business& business, Instant today, const Calendar& calendar);

} // namespace Quillary
