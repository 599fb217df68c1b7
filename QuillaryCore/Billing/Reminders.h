#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Model/ReminderLevel.h"

#include <cstdint>
#include <optional>
#include <string>

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

/// A reminder as a letter or an email tells of it.
struct ReminderNotice
{
    ReminderDetails details;
    Instant date;            ///< the day it is written on
    bool isRecorded = false; ///< its fee is among the document's late fees already
};

/// What a reminder asks for, and how it comes about. Unit: minor units of the document's currency.
struct ReminderFigures
{
    std::int64_t invoiceTotal = 0;
    std::int64_t lateFees = 0; ///< of all reminders, this one's included
    std::int64_t paid = 0;
    std::int64_t amountDue = 0; ///< total and late fees less what was paid

    friend bool operator==(const ReminderFigures&, const ReminderFigures&) = default;
};

/// Only a sent invoice (or a document of unreadable kind) on which something is still owed can be reminded of.
[[nodiscard]] bool canSendReminder(Context& context, const Document& document);

/// The highest level sent so far. No value: none, or no readable one.
[[nodiscard]] std::optional<ReminderLevel> lastReminderLevel(Context& context, const Document& document);

/// The level after the highest one sent; the final level repeats.
[[nodiscard]] ReminderLevel nextReminderLevel(Context& context, const Document& document);

/// The day by which a reminder of today asks to be paid: `Business::reminderPaymentDays` ahead.
[[nodiscard]] Instant reminderDeadline(const Business& business, Instant today, const Calendar& calendar);

/// What the next reminder says unless the user changes it: the next level, its late fee on what is due now, and
/// `reminderDeadline`.
[[nodiscard]] ReminderDetails nextReminder(
    Context& context, const Document& document, const Business& business, Instant today, const Calendar& calendar);

/// The same for a level that the user chose.
[[nodiscard]] ReminderDetails reminderOfLevel(Context& context,
                                              const Document& document,
                                              const Business& business,
                                              ReminderLevel level,
                                              Instant today,
                                              const Calendar& calendar);

/// Why a reminder can't be sent, as a finished sentence: the document can't be reminded of, the fee is refused by
/// `checkLateFee`, or the new deadline has passed or lies more than ten years ahead. No value: it can.
[[nodiscard]] std::optional<std::string> checkReminder(Context& context,
                                                       const Document& document,
                                                       const ReminderDetails& details,
                                                       Instant today,
                                                       const Calendar& calendar);

[[nodiscard]] ReminderFigures
reminderFigures(Context& context, const Document& document, const ReminderNotice& reminder);

/// The reminder sent last. Null: none.
[[nodiscard]] const Reminder* lastReminder(Context& context, const Document& document);

/// A recorded reminder as a letter tells of it. One without dates is of the day it was entered and to be paid by then.
[[nodiscard]] ReminderNotice recordedNotice(const Reminder& reminder);

/// Attaches a reminder; its fee is owed from then on. Fees are checked before: `checkLateFee`.
Reminder& addReminder(
    Context& context, const Document& document, ReminderLevel level, std::int64_t fee, Instant date, Instant payBy);

/// Takes a reminder and its fee back. A sent invoice on which nothing is left owed becomes paid.
void deleteReminder(Context& context, const Reminder& reminder);

} // namespace Quillary
