#include "QuillaryCore/Letters/EmailKind.h"

#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"

#include <algorithm>

namespace Quillary {

std::optional<EmailKind> emailKindFromRaw(std::int16_t raw)
{
    const auto* const kind =
        std::ranges::find(allEmailKinds, raw, [](EmailKind each) { return static_cast<std::int16_t>(each); });
    return kind == allEmailKinds.end() ? std::nullopt : std::optional(*kind);
}

std::string_view title(EmailKind kind)
{
    switch (kind) {
    case EmailKind::invoice:
        return "Invoice";
    case EmailKind::quote:
        return "Quote";
    case EmailKind::creditNote:
        return "Credit Note";
    case EmailKind::reminder:
        return "Payment Reminder";
    case EmailKind::secondReminder:
        return "Second Reminder";
    case EmailKind::finalNotice:
        return "Final Notice";
    }
    return {};
}

EmailKind emailKind(const Document& document)
{
    switch (kind(document).value_or(DocumentKind::invoice)) {
    case DocumentKind::quote:
        return EmailKind::quote;
    case DocumentKind::creditNote:
        return EmailKind::creditNote;
    case DocumentKind::invoice:
    case DocumentKind::recurring:
        break;
    }
    return EmailKind::invoice;
}

EmailKind emailKind(ReminderLevel level)
{
    switch (level) {
    case ReminderLevel::first:
        return EmailKind::reminder;
    case ReminderLevel::second:
        return EmailKind::secondReminder;
    case ReminderLevel::final:
        break;
    }
    return EmailKind::finalNotice;
}

std::optional<ReminderLevel> reminderLevel(EmailKind kind)
{
    switch (kind) {
    case EmailKind::invoice:
    case EmailKind::quote:
    case EmailKind::creditNote:
        break;
    case EmailKind::reminder:
        return ReminderLevel::first;
    case EmailKind::secondReminder:
        return ReminderLevel::second;
    case EmailKind::finalNotice:
        return ReminderLevel::final;
    }
    return std::nullopt;
}

} // namespace Quillary
