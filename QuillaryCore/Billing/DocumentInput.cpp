#include "QuillaryCore/Billing/DocumentInput.h"

#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/Fee.h"
#include "QuillaryCore/Model/LineItem.h"

namespace Quillary {

DocumentInput::DocumentInput(Context& context, const Document& document)
    : lineItems(linesInOrder(context, document))
    , discountRecords(sortedDiscounts(context, document))
    , feeRecords(sortedFees(context, document))
    , taxation(document.taxExempt ? Totals::Taxation::exempt : Totals::Taxation::taxed)
{
    lines.reserve(lineItems.size());
    for (const LineItem* line : lineItems) {
        lines.push_back({line->quantityThousandths, line->unitPriceMinorUnits, line->vatBasisPoints});
    }
    for (const Discount* discount : discountRecords) {
        discounts.push_back(
            {Totals::discountKindFromRaw(discount->kindRaw), discount->basisPoints, discount->amountMinorUnits});
    }
    for (const Fee* fee : feeRecords) {
        fees.push_back({fee->amountMinorUnits, fee->vatBasisPoints});
    }
}

} // namespace Quillary
