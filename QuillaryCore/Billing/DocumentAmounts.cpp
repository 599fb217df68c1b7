#include "QuillaryCore/Billing/DocumentAmounts.h"

#include "QuillaryCore/Billing/DocumentInput.h"
#include "QuillaryCore/Foundation/CheckedInteger.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/Payment.h"
#include "QuillaryCore/Model/Reminder.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>
#include <limits>

namespace Quillary {

Totals::Result calculateTotals(Context& context, const Document& document)
{
    const DocumentInput input(context, document);
    return Totals::calculate(input.lines, input.discounts, input.fees, input.taxation);
}

std::int64_t amount(const LineItem& line)
{
    return Totals::amount(line.quantityThousandths, line.unitPriceMinorUnits);
}

std::int64_t amountWithChildren(Context& context, const LineItem& line)
{
    Int128 sum = amount(line);
    for (const LineItem* child : sortedChildren(context, line)) {
        sum += amount(*child);
    }
    using Limits = std::numeric_limits<std::int64_t>;
    return static_cast<std::int64_t>(std::clamp<Int128>(sum, Limits::min(), Limits::max()));
}

std::int64_t lateFeesMinorUnits(Context& context, const Document& document)
{
    std::int64_t sum = 0;
    for (const Reminder* reminder : context.related<&Reminder::document>(document)) {
        sum = checkedAdd(sum, reminder->feeMinorUnits);
    }
    return sum;
}

std::int64_t owedMinorUnits(Context& context, const Document& document)
{
    return checkedAdd(calculateTotals(context, document).total, lateFeesMinorUnits(context, document));
}

std::int64_t paidMinorUnits(Context& context, const Document& document)
{
    std::int64_t sum = 0;
    for (const Payment* payment : context.related<&Payment::document>(document)) {
        sum = checkedAdd(sum, payment->amountMinorUnits);
    }
    return sum;
}

std::int64_t amountPaid(Context& context, const Document& document, Instant start, Instant end)
{
    std::int64_t sum = 0;
    for (const Payment* payment : context.related<&Payment::document>(document)) {
        if (payment->date && *payment->date >= start && *payment->date < end) {
            sum = checkedAdd(sum, payment->amountMinorUnits);
        }
    }
    return sum;
}

std::int64_t amountDueMinorUnits(Context& context, const Document& document)
{
    return checkedSubtract(owedMinorUnits(context, document), paidMinorUnits(context, document));
}

void updateCachedTotals(Context& context, const Document& document)
{
    const Totals::Result totals = calculateTotals(context, document);
    if (document.cachedNetMinorUnits != totals.net || document.cachedTotalMinorUnits != totals.total) {
        Document& edited = context.edit(document);
        edited.cachedNetMinorUnits = totals.net;
        edited.cachedTotalMinorUnits = totals.total;
    }
}

} // namespace Quillary
