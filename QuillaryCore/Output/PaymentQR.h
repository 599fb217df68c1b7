#pragma once

#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Store/Field.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

class Context;
struct Business;
struct Document;

/// The code on an invoice that a banking app reads to fill in the payment.
namespace PaymentQR {

/// What the code of a document says: a credit transfer for invoices in euros, a UPI link for those in rupees. Asks for
/// `amountMinorUnits`, or for the amount due while none is given. No value: another kind or currency, or a rule of the
/// code's standard is not met.
[[nodiscard]] std::optional<std::string> payload(Context& context,
                                                 const Document& document,
                                                 const Business& business,
                                                 std::optional<std::int64_t> amountMinorUnits = std::nullopt);

/// What the business has to mend before its invoices can carry a code.
enum class Obstacle {
    otherCurrency, ///< its own is neither the euro nor the rupee
    noName,
    noIBAN,
    wrongIBAN, ///< fails its check
    noUPI,
    wrongUPI, ///< isn't of the form name@bank
};

/// Why no invoice in the business's own currency gets a code, whatever it asks for. No value: nothing is in the way.
[[nodiscard]] std::optional<Obstacle> obstacle(const Business& business);

/// A SEPA credit transfer. No value: another currency than the euro, an amount that is not between 0.01 and
/// 999,999,999.99, an IBAN that fails its check, an empty name. A BIC that fails its check is left out; line breaks
/// inside a text become spaces, since each line has a meaning. Source: EPC069-12, version 002.
[[nodiscard]] std::optional<std::string> epcPayload(std::string_view name,
                                                    std::string_view iban,
                                                    std::string_view bic,
                                                    const Money& amount,
                                                    std::string_view reference);

/// A payment link. No value: another currency than the rupee, nothing to pay, an ID that fails its check.
/// Source: NPCI, UPI linking specification.
[[nodiscard]] std::optional<std::string>
upiPayload(std::string_view upiID, std::string_view name, const Money& amount, std::string_view note);

/// The code as PNG: black on white, `scale` pixels to the module, four modules of white around it (ISO/IEC 18004), error
/// correction M as the credit transfer's standard asks. The same text gives the same bytes.
/// No value: more text than a code can hold.
[[nodiscard]] std::optional<Bytes> png(std::string_view payload, int scale = 4);

} // namespace PaymentQR

} // namespace Quillary
