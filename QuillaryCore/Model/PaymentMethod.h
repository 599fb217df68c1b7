#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace Quillary {

struct Payment;

/// How money came in. Stored in `Payment::method` as text.
enum class PaymentMethod : std::uint8_t {
    bankTransfer,
    cash,
    card,
    paypal,
    cheque,
    other,
};

inline constexpr std::array allPaymentMethods = {PaymentMethod::bankTransfer,
                                                 PaymentMethod::cash,
                                                 PaymentMethod::card,
                                                 PaymentMethod::paypal,
                                                 PaymentMethod::cheque,
                                                 PaymentMethod::other};

/// "bankTransfer", "cash": the stored text.
[[nodiscard]] std::string_view rawText(PaymentMethod method);

/// No value: a text that no method has.
[[nodiscard]] std::optional<PaymentMethod> paymentMethodFromRaw(std::string_view text);

[[nodiscard]] std::optional<PaymentMethod> method(const Payment& payment);

/// "Bank transfer", "Cash": the English word of the screen.
[[nodiscard]] std::string_view title(PaymentMethod method);

} // namespace Quillary
