#pragma once

#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Model/DocumentKind.h"

#include <optional>
#include <string_view>
#include <vector>

namespace Quillary {

class Context;
struct Document;

/// What a user may do to a document's status.
enum class StatusAction {
    markSent,
    markPaid,
    markUnpaid,
    markDraft,
    markAccepted,
    markDeclined,
    reopen,
};

/// The English wording for a kind: a credit note is marked refunded. Without a kind, that of an invoice.
[[nodiscard]] std::string_view title(StatusAction action, std::optional<DocumentKind> kind);

/// The actions open to a document now, the usual next step first; the table is in docs/status-actions.md. A recurring
/// template has none.
[[nodiscard]] std::vector<StatusAction> statusActions(const Document& document);

/// Carries out one of the document's `statusActions`. Marking an invoice paid records a payment of the amount due, by
/// bank transfer, dated `now`; marking it unpaid removes its payments.
void apply(Context& context, const Document& document, StatusAction action, Instant now);

} // namespace Quillary
