#include "QuillaryCore/Billing/StatusActions.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Billing/Payments.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>

namespace Quillary {

namespace {

std::vector<StatusAction> invoiceActions(const Document& document, DocumentStatus status)
{
    switch (status) {
    case DocumentStatus::draft:
        return {StatusAction::markSent, StatusAction::markPaid};
    case DocumentStatus::sent:
        // Money and fees belong to what the client has in hand; it can't quietly become a draft again.
        if (document.cachedPaidMinorUnits != 0 || document.cachedLateFeesMinorUnits != 0) {
            return {StatusAction::markPaid};
        }
        return {StatusAction::markPaid, StatusAction::markDraft};
    case DocumentStatus::paid:
        return {StatusAction::markUnpaid};
    case DocumentStatus::accepted:
    case DocumentStatus::declined:
        return {StatusAction::reopen};
    }
    return {};
}

std::vector<StatusAction> quoteActions(DocumentStatus status)
{
    switch (status) {
    case DocumentStatus::draft:
        return {StatusAction::markSent};
    case DocumentStatus::sent:
        return {StatusAction::markAccepted, StatusAction::markDeclined, StatusAction::markDraft};
    case DocumentStatus::paid:
    case DocumentStatus::accepted:
    case DocumentStatus::declined:
        return {StatusAction::reopen};
    }
    return {};
}

std::vector<StatusAction> creditNoteActions(DocumentStatus status)
{
    switch (status) {
    case DocumentStatus::draft:
        return {StatusAction::markSent};
    case DocumentStatus::sent:
        return {StatusAction::markPaid, StatusAction::markDraft};
    case DocumentStatus::paid:
        return {StatusAction::markUnpaid};
    case DocumentStatus::accepted:
    case DocumentStatus::declined:
        return {StatusAction::reopen};
    }
    return {};
}

void setStatus(Document& document, DocumentStatus status)
{
    document.statusRaw = static_cast<std::int16_t>(status);
}

void markSent(Context& context, Document& document, Instant now)
{
    setStatus(document, DocumentStatus::sent);
    if (!document.sentAt) {
        document.sentAt = now;
    }
    refreshPayments(context, document);
}

void markPaid(Context& context, Document& document, Instant now)
{
    if (acceptsPayments(document)) {
        if (status(document) != DocumentStatus::sent) {
            markSent(context, document, now);
        }
        refreshPayments(context, document);
        if (status(document) == DocumentStatus::paid) {
            return; // what came in already pays it, or more than that: no refund is invented
        }
        if (const std::int64_t due = amountDueMinorUnits(context, document); due != 0) {
            recordPayment(context, document, {due, now, PaymentMethod::bankTransfer, ""});
        }
    }
    if (status(document) != DocumentStatus::paid) {
        setStatus(document, DocumentStatus::paid);
        document.paidAt = now;
    }
}

void markUnpaid(Context& context, Document& document)
{
    if (acceptsPayments(document)) {
        removePayments(context, document);
    }
    setStatus(document, DocumentStatus::sent);
    document.paidAt.reset();
}

void decide(Document& document, DocumentStatus decision, Instant now)
{
    setStatus(document, decision);
    document.decidedAt = now;
}

/// Back to an earlier status: what came after it never happened.
void goBack(Document& document, DocumentStatus status)
{
    setStatus(document, status);
    document.paidAt.reset();
    document.decidedAt.reset();
    if (status == DocumentStatus::draft) {
        document.sentAt.reset();
    }
}

} // namespace

std::string_view title(StatusAction action, std::optional<DocumentKind> kind)
{
    const bool isCreditNote = kind == DocumentKind::creditNote;
    switch (action) {
    case StatusAction::markSent:
        return "Mark as Sent";
    case StatusAction::markPaid:
        return isCreditNote ? "Mark as Refunded" : "Mark as Paid";
    case StatusAction::markUnpaid:
        return isCreditNote ? "Mark as Not Refunded" : "Mark as Unpaid";
    case StatusAction::markDraft:
        return "Back to Draft";
    case StatusAction::markAccepted:
        return "Mark as Accepted";
    case StatusAction::markDeclined:
        return "Mark as Declined";
    case StatusAction::reopen:
        return "Reopen";
    }
    return {};
}

std::vector<StatusAction> statusActions(const Document& document)
{
    const DocumentStatus stored = status(document).value_or(DocumentStatus::draft);
    switch (kind(document).value_or(DocumentKind::invoice)) {
    case DocumentKind::invoice:
        return invoiceActions(document, stored);
    case DocumentKind::quote:
        return quoteActions(stored);
    case DocumentKind::creditNote:
        return creditNoteActions(stored);
    case DocumentKind::recurring:
        return {};
    }
    return {};
}

void apply(Context& context, const Document& document, StatusAction action, Instant now)
{
    const std::vector<StatusAction> open = statusActions(document);
    precondition(std::ranges::find(open, action) != open.end(), "a status action is open to its document");
    Document& edited = context.edit(document);
    switch (action) {
    case StatusAction::markSent:
        return markSent(context, edited, now);
    case StatusAction::markPaid:
        return markPaid(context, edited, now);
    case StatusAction::markUnpaid:
        return markUnpaid(context, edited);
    case StatusAction::markDraft:
        return goBack(edited, DocumentStatus::draft);
    case StatusAction::markAccepted:
        return decide(edited, DocumentStatus::accepted, now);
    case StatusAction::markDeclined:
        return decide(edited, DocumentStatus::declined, now);
    case StatusAction::reopen:
        return goBack(edited, DocumentStatus::sent);
    }
}

} // namespace Quillary
