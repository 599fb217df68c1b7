#include "QuillaryUI/Settings/PaymentCodeHint.h"

#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Output/PaymentQR.h"
#include "QuillaryUI/Look/Formats.h"

#include <QCoreApplication>

namespace Quillary::PaymentCodeHint {

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(PaymentCodeHint)
};

QString reason(PaymentQR::Obstacle obstacle, const Business& business)
{
    using enum PaymentQR::Obstacle;
    switch (obstacle) {
    case otherCurrency:
        return Words::tr("Your invoices are usually in %1: they don't get one.").arg(text(business.currencyCode));
    case noName:
        return Words::tr("It isn't printed yet: the account holder and the name of your business are missing.");
    case noIBAN:
        return Words::tr("It isn't printed yet: your IBAN is missing.");
    case wrongIBAN:
        return Words::tr("It isn't printed: your IBAN is wrong, its check digits or its length.");
    case noUPI:
        return Words::tr("It isn't printed yet: your UPI ID is missing.");
    case wrongUPI:
        return Words::tr("It isn't printed: your UPI ID is wrong.");
    }
    return {};
}

} // namespace

QString about(const Business& business)
{
    const QString always =
        Words::tr("The QR code appears on invoices in euros (with your IBAN) and rupees (with your UPI ID); banking "
                  "apps fill in the payment from it.");
    const auto obstacle = business.showPaymentQRCode ? PaymentQR::obstacle(business) : std::nullopt;
    return obstacle ? QStringLiteral("%1\n%2").arg(always, reason(*obstacle, business)) : always;
}

QString aboutUPI()
{
    return QStringLiteral("%1 %2").arg(
        Words::tr("For invoices in Indian rupees, so clients can pay by scanning a QR code."),
        Words::tr("A UPI ID looks like name@bank."));
}

} // namespace Quillary::PaymentCodeHint
