#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Model/ReminderLevel.h"

#include <cstdint>
#include <optional>

namespace Quillary {

class Context;
struct Business;
struct Document;
struct Reminder;

/// A reminder about to be sent.
struct ReminderDetails
{
    ReminderLevel level = ReminderLevel::first;
    std::int64_t feeMinorUnits = 0; ///< in the document's currency
    Instant payBy;                  ///< the new deadline

    friend bool operator==(const ReminderDetails&, const ReminderDetails&) = default;
};

/// Only a sent invoice (or a document of unreadable kind) on which something is still owed can be reminded of.
[[nodiscard]] bool canSendReminder(Context& context, const Document& document);

/// The highest level sent so far. No value: none, or no readable one.
[[nodiscard]] std::optional<ReminderLevel> lastReminderLevel(Context& context, const Document& document);

/// The level after the highest one sent; the final level repeats.
[[nodiscard]] ReminderLevel nextReminderLevel(Context& context, const Document& document);

/// What the next reminder says unless the user changes it: the next level, its late fee on what is due now, and
/// `Business::reminderPaymentDays` from today to pay.
[[nodiscard]] ReminderDetails nextReminder(
    Context& context, const Document& document, const Business& business, Instant today, const Calendar& calendar);

/// Attaches a reminder; its fee is owed from then on. Fees are checked before: `checkLateFee`.
Reminder& addReminder(
    Context& context, const Document& document, ReminderLevel level, std::int64_t fee, Instant date, Instant payBy);

/// Takes a reminder and its fee back. A sent invoice on which nothing is left owed becomes paid.
void deleteReminder(Context& context, const Reminder& reminder);

} // namespace Quillary
