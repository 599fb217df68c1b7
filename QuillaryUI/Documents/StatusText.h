#pragma once

#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Billing/StatusActions.h"
#include "QuillaryCore/Model/DocumentKind.h"

#include <QString>

/// The words in which the windows name kinds, statuses and actions.
namespace Quillary::StatusText {

/// "Overdue", or for a paid credit note "Refunded".
[[nodiscard]] QString word(DisplayStatus status, std::optional<DocumentKind> kind);

/// "Overdue by 12 days"; otherwise the word alone.
[[nodiscard]] QString sentence(DisplayStatus status, int daysOverdue, std::optional<DocumentKind> kind);

/// "Mark as Sent".
[[nodiscard]] QString action(StatusAction action, std::optional<DocumentKind> kind);

/// "Invoice", "Invoices".
[[nodiscard]] QString kind(DocumentKind kind);
[[nodiscard]] QString kinds(DocumentKind kind);

/// "New Invoice".
[[nodiscard]] QString makeNew(DocumentKind kind);

} // namespace Quillary::StatusText
