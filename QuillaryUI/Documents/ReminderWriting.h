#pragma once

#include "QuillaryCore/Billing/Reminders.h"
#include "QuillaryUI/Library/LibraryAccess.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <variant>

namespace Quillary {

/// A reminder that is about to be written.
struct PlannedReminder
{
    std::int64_t document = 0; ///< the key
    ReminderNotice notice;
};

namespace ReminderWriting {

/// What the settings make of the next reminder of an invoice, written today. No value: the invoice is gone.
[[nodiscard]] std::optional<PlannedReminder> next(const LibraryAccess& library, std::int64_t document);

/// Why it can't be sent, as a finished sentence. No value: it can.
[[nodiscard]] std::optional<QString> refusal(const LibraryAccess& library, const PlannedReminder& planned);

/// The page of the letter. No value: the invoice is gone, or the library away.
[[nodiscard]] std::optional<PageJob> letter(const LibraryAccess& library, const PlannedReminder& planned);

/// Where the letter lies, or the sentence that says why nothing was done.
using Outcome = std::variant<std::filesystem::path, QString>;

/// Prints the letter into a folder under a name of its own, and records the reminder once it lies there. A letter of a
/// reminder that couldn't be recorded is taken away again. Answers later, or at once when it is refused.
void write(LibraryAccess& library,
           const PlannedReminder& planned,
           const std::filesystem::path& folder,
           std::function<void(const Outcome&)> reply);

} // namespace ReminderWriting

} // namespace Quillary
