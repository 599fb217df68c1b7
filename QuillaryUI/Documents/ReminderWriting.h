#pragma once

#include "QuillaryCore/Assistant/Tools/AssistantHost.h"
#include "QuillaryCore/Billing/Reminders.h"
#include "QuillaryUI/Library/LibraryAccess.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <variant>

namespace Quillary {

/// A reminder that is about to be written.
struct PlannedReminder
{
    std::int64_t document = 0; ///< the key
    ReminderNotice notice;
    /// With a draft of an email to these addresses; empty text: to the client's own. No value: without an email.
    std::optional<std::string> emailTo = {};
};

/// A reminder that is recorded.
struct WrittenReminder
{
    std::filesystem::path file; ///< the letter
    std::optional<PreparedEmail> email;
};

namespace ReminderWriting {

/// What the settings make of the next reminder of an invoice, written today. No value: the invoice is gone.
[[nodiscard]] std::optional<PlannedReminder> next(const LibraryAccess& library, std::int64_t document);

/// Why it can't be sent, as a finished sentence. No value: it can.
[[nodiscard]] std::optional<QString> refusal(const LibraryAccess& library, const PlannedReminder& planned);

/// The page of the letter. No value: the invoice is gone, or the library away.
[[nodiscard]] std::optional<PageJob> letter(const LibraryAccess& library, const PlannedReminder& planned);

/// What was written, or the sentence that says what could not be done.
using Outcome = std::variant<WrittenReminder, QString>;

/// Prints the letter into a folder under a name of its own, and records the reminder once it lies there. A letter of a
/// reminder that couldn't be recorded is taken away again. Then the mail program gets its draft, in the words of the
/// user's template for the level; nothing is sent. Answers later, or at once when it is refused.
void write(LibraryAccess& library,
           const PlannedReminder& planned,
           const std::filesystem::path& folder,
           std::function<void(const Outcome&)> reply);

} // namespace ReminderWriting

} // namespace Quillary
