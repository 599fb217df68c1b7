#include "QuillaryCore/Billing/Payments.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/Payment.h"
#include "QuillaryCore/Store/Context.h"

#include <optional>
#include <vector>

namespace Quillary {

namespace {

void setStatus(Document& document, DocumentStatus status, std::optional<Instant> paidAt)
{
    document.statusRaw = static_cast<std::int16_t>(status);
    document.paidAt = paidAt;
}

/// The day on which the last of a document's payments came in. No value: it has none.
std::optional<Instant> lastPaymentDate(Context& context, const Document& document)
{
    const std::vector<const Payment*> payments = sortedPayments(context, document);
    if (payments.empty()) {
        return std::nullopt;
    }
    const Payment& last = *payments.back();
    return last.date ? last.date : last.createdAt;
}

void refreshStatus(Context& context, Document& document)
{
    const std::int64_t due = amountDueMinorUnits(context, document);
    const std::optional<Instant> lastPayment = lastPaymentDate(context, document);
    // An invoice with a negative total is settled by a payment of ours; without it, it is open again.
    const bool isOwed = due > 0 || (due < 0 && !lastPayment);
    if (status(document) == DocumentStatus::sent && !isOwed && lastPayment) {
        setStatus(document, DocumentStatus::paid, lastPayment);
    } else if (status(document) == DocumentStatus::paid && isOwed) {
        setStatus(document, DocumentStatus::sent, std::nullopt);
    } else if (status(document) == DocumentStatus::paid && lastPayment) {
        document.paidAt = lastPayment;
    }
}

} // namespace

Payment& recordPayment(Context& context, const Document& document, const PaymentDetails& details)
{
    precondition(acceptsPayments(document), "a payment is recorded against an invoice");
    Payment& payment = context.insert<Payment>();
    payment.amountMinorUnits = details.amountMinorUnits;
    payment.date = details.date;
    payment.method = rawText(details.method);
    payment.note = details.note;
    payment.document = document.ref;
    refreshPayments(context, document);
    return payment;
}

void deletePayment(Context& context, const Payment& payment)
{
    const Document* document = context.find(payment.document);
    context.erase(payment);
    if (document != nullptr) {
        refreshPayments(context, *document);
    }
}

void removePayments(Context& context, const Document& document)
{
    for (const Payment* payment : context.related<&Payment::document>(document)) {
        context.erase(*payment);
    }
    refreshPayments(context, document);
}

void refreshPayments(Context& context, const Document& document)
{
    Document& edited = context.edit(document);
    edited.cachedPaidMinorUnits = paidMinorUnits(context, document);
    edited.cachedLateFeesMinorUnits = lateFeesMinorUnits(context, document);
    if (acceptsPayments(document)) {
        refreshStatus(context, edited);
    }
}

} // namespace Quillary
