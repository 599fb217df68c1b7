#pragma once

#include "QuillaryCore/Billing/Reminders.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Output/PrintedDocument.h"

#include <string_view>

namespace Quillary {

class Calendar;
class Context;
struct Business;
struct Document;

/// The letter that asks to pay an overdue invoice: a page of its own, in the look of the business's documents.
namespace ReminderLetter {

/// "Payment Reminder", "Letzte Mahnung": what the letter is headed with.
[[nodiscard]] std::string_view heading(ReminderLevel level, DocumentLanguage language);

/// The letter in the invoice's language: what is reminded of, the invoice's total with late fees and payments down to
/// the amount due, and the payment section for that amount by the new deadline. `DocumentHTML::render` makes the page.
/// `business` need not be stored. A reminder that is not recorded yet adds its fee.
[[nodiscard]] PrintedDocument printed(Context& context,
                                      const Document& document,
                                      const Business& business,
                                      const ReminderNotice& reminder,
                                      const Calendar& calendar);

} // namespace ReminderLetter

} // namespace Quillary
