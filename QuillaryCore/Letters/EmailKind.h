#pragma once

#include "QuillaryCore/Model/ReminderLevel.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace Quillary {

struct Document;

/// What an email is about. The values are stored in `EmailTemplate::kindRaw`; reminders begin at 11, so that kinds of
/// documents may be added below.
enum class EmailKind : std::int16_t {
    invoice = 0,
    quote = 1,
    creditNote = 2,
    reminder = 11,
    secondReminder = 12,
    finalNotice = 13,
};

inline constexpr std::array allEmailKinds = {EmailKind::invoice,
                                             EmailKind::quote,
                                             EmailKind::creditNote,
                                             EmailKind::reminder,
                                             EmailKind::secondReminder,
                                             EmailKind::finalNotice};

/// No value: a stored number that no kind has.
[[nodiscard]] std::optional<EmailKind> emailKindFromRaw(std::int16_t raw);

/// "Credit Note", "Payment Reminder": the English word of the screen.
[[nodiscard]] std::string_view title(EmailKind kind);

/// The email that a document is sent with. A template is written about as the invoices made from it, and so is a
/// document whose kind can't be read.
[[nodiscard]] EmailKind emailKind(const Document& document);

/// The email that a reminder is sent with.
[[nodiscard]] EmailKind emailKind(ReminderLevel level);

/// The level of a reminder's email. No value: an email with a document.
[[nodiscard]] std::optional<ReminderLevel> reminderLevel(EmailKind kind);

} // namespace Quillary
