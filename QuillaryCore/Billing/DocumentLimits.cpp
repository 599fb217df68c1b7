#include "QuillaryCore/Billing/DocumentLimits.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Billing/DocumentInput.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Money/Quantity.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace Quillary {

namespace {

using Sentence = std::optional<std::string>;

bool isWithin(Int128 value, Int128 limit)
{
    return value >= -limit && value <= limit;
}

std::string amountText(std::int64_t minorUnits, const Document& document)
{
    return Money(minorUnits, document.currencyCode).plainText() + " " + document.currencyCode;
}

Sentence checkCounts(const DocumentInput& input)
{
    if (input.lines.size() > Limits::linesPerDocument) {
        return fmt::format("A document can have at most {} lines.", Limits::linesPerDocument);
    }
    if (input.discounts.size() > Limits::discountsPerDocument) {
        return fmt::format("A document can have at most {} discounts.", Limits::discountsPerDocument);
    }
    if (input.fees.size() > Limits::feesPerDocument) {
        return fmt::format("A document can have at most {} fees.", Limits::feesPerDocument);
    }
    return std::nullopt;
}

bool isRate(std::int32_t basisPoints)
{
    return basisPoints >= 0 && basisPoints <= Limits::rateBasisPoints;
}

Sentence checkLine(const Totals::Line& line, std::size_t number, const Document& document)
{
    if (!isWithin(line.quantityThousandths, Limits::quantityThousandths)) {
        return fmt::format("The quantity of line {} is too large: at most {}.",
                           number,
                           Quantity::plainText(Limits::quantityThousandths));
    }
    if (!isWithin(line.unitPriceMinorUnits, Limits::unitPriceMinorUnits)) {
        return fmt::format("The price of line {} is too large: at most {}.",
                           number,
                           amountText(Limits::unitPriceMinorUnits, document));
    }
    if (!isRate(line.vatBasisPoints)) {
        return fmt::format("The tax rate of line {} isn't between 0 and 100 %.", number);
    }
    if (!isWithin(Totals::amount(line.quantityThousandths, line.unitPriceMinorUnits), Limits::documentMinorUnits)) {
        return fmt::format("The amount of line {} is too large: at most {}.",
                           number,
                           amountText(Limits::documentMinorUnits, document));
    }
    return std::nullopt;
}

Sentence checkDiscountsAndFees(const DocumentInput& input, const Document& document)
{
    for (const Totals::Discount& discount : input.discounts) {
        if (discount.kind == Totals::DiscountKind::percentage && !isRate(discount.basisPoints)) {
            return "A discount isn't between 0 and 100 %.";
        }
        if (!isWithin(discount.amountMinorUnits, Limits::discountMinorUnits)) {
            return fmt::format("A discount is too large: at most {}.",
                               amountText(Limits::discountMinorUnits, document));
        }
    }
    for (const Totals::Fee& fee : input.fees) {
        if (!isRate(fee.vatBasisPoints)) {
            return "The tax rate of a fee isn't between 0 and 100 %.";
        }
        if (!isWithin(fee.amountMinorUnits, Limits::feeMinorUnits)) {
            return fmt::format("A fee is too large: at most {}.", amountText(Limits::feeMinorUnits, document));
        }
    }
    return std::nullopt;
}

bool areWithin(const Totals::Result& totals)
{
    const auto isSmall = [](std::int64_t figure) {
        return isWithin(figure, Limits::documentMinorUnits);
    };
    const auto isSmallTax = [&](const Totals::TaxLine& line) {
        return isSmall(line.base) && isSmall(line.tax);
    };
    return isSmall(totals.subtotal) && isSmall(totals.totalDiscount) && isSmall(totals.totalFees) &&
           isSmall(totals.net) && isSmall(totals.totalTax) && isSmall(totals.total) &&
           std::ranges::all_of(totals.discountAmounts, isSmall) && std::ranges::all_of(totals.taxLines, isSmallTax);
}

} // namespace

Sentence checkAggregates(Context& context, const Document& document)
{
    const DocumentInput input(context, document);
    if (Sentence sentence = checkCounts(input)) {
        return sentence;
    }
    std::size_t number = 0;
    for (const Totals::Line& line : input.lines) {
        if (Sentence sentence = checkLine(line, ++number, document)) {
            return sentence;
        }
    }
    if (Sentence sentence = checkDiscountsAndFees(input, document)) {
        return sentence;
    }
    const std::optional<Totals::Result> totals =
        Totals::calculateIfRepresentable(input.lines, input.discounts, input.fees, input.taxation);
    if (!totals || !areWithin(*totals)) {
        return fmt::format("The document's figures are too large: at most {} each.",
                           amountText(Limits::documentMinorUnits, document));
    }
    return std::nullopt;
}

Sentence checkPayment(Context& context, const Document& document, std::int64_t amountMinorUnits)
{
    if (!acceptsPayments(document)) {
        return "Only invoices take payments.";
    }
    if (amountMinorUnits == 0) {
        return "A payment needs an amount.";
    }
    if (!isWithin(amountMinorUnits, Limits::paymentMinorUnits)) {
        return fmt::format("The payment is too large: at most {}.", amountText(Limits::paymentMinorUnits, document));
    }
    const Int128 together = Int128{paidMinorUnits(context, document)} + amountMinorUnits;
    if (!isWithin(together, Limits::paymentsPerDocumentMinorUnits)) {
        return fmt::format("The payments of a document can be at most {} together.",
                           amountText(Limits::paymentsPerDocumentMinorUnits, document));
    }
    return std::nullopt;
}

Sentence checkLateFee(Context& context, const Document& document, std::int64_t feeMinorUnits)
{
    if (feeMinorUnits < 0) {
        return "A late fee can't be negative.";
    }
    if (feeMinorUnits > Limits::lateFeeMinorUnits ||
        Int128{lateFeesMinorUnits(context, document)} + feeMinorUnits > Limits::lateFeesPerDocumentMinorUnits) {
        return fmt::format("The late fees of a document can be at most {} together.",
                           amountText(Limits::lateFeesPerDocumentMinorUnits, document));
    }
    return std::nullopt;
}

} // namespace Quillary
