#pragma once

#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Model/PaymentMethod.h"

#include <cstdint>
#include <string>

namespace Quillary {

class Context;
struct Document;
struct Payment;

/// Money that came in. A negative amount is money paid back.
struct PaymentDetails
{
    std::int64_t amountMinorUnits = 0; ///< in the document's currency
    Instant date;
    PaymentMethod method = PaymentMethod::bankTransfer;
    std::string note;
};

// Payments decide the status of an invoice: with nothing left owed a sent one becomes paid, with `paidAt` the date of
// its last payment; when something is owed again it goes back to sent. A draft stays a draft until it is sent.

/// Attaches a payment to a document that accepts payments. Amounts are checked before: `checkPayment`.
Payment& recordPayment(Context& context, const Document& document, const PaymentDetails& details);

void deletePayment(Context& context, const Payment& payment);

void removePayments(Context& context, const Document& document);

/// Brings `cachedPaidMinorUnits`, `cachedLateFeesMinorUnits` and the status in line with the payments and reminders. To
/// be called after a payment, or anything that is owed, was changed directly.
void refreshPayments(Context& context, const Document& document);

} // namespace Quillary
