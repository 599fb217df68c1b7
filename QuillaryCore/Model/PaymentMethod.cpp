#include "QuillaryCore/Model/PaymentMethod.h"

#include "QuillaryCore/Model/Payment.h"

namespace Quillary {

std::string_view rawText(PaymentMethod method)
{
    switch (method) {
    case PaymentMethod::bankTransfer:
        return "bankTransfer";
    case PaymentMethod::cash:
        return "cash";
    case PaymentMethod::card:
        return "card";
    case PaymentMethod::paypal:
        return "paypal";
    case PaymentMethod::cheque:
        return "cheque";
    case PaymentMethod::other:
        return "other";
    }
    return {};
}

std::optional<PaymentMethod> paymentMethodFromRaw(std::string_view text)
{
    for (const PaymentMethod method : allPaymentMethods) {
        if (rawText(method) == text) {
            return method;
        }
    }
    return std::nullopt;
}

std::optional<PaymentMethod> method(const Payment& payment)
{
    return paymentMethodFromRaw(payment.method);
}

std::string_view title(PaymentMethod method)
{
    switch (method) {
    case PaymentMethod::bankTransfer:
        return "Bank transfer";
    case PaymentMethod::cash:
        return "Cash";
    case PaymentMethod::card:
        return "Card";
    case PaymentMethod::paypal:
        return "PayPal";
    case PaymentMethod::cheque:
        return "Cheque";
    case PaymentMethod::other:
        return "Other";
    }
    return {};
}

} // namespace Quillary
