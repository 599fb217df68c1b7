#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Billing/DocumentLimits.h"
#include "QuillaryCore/Documents/CreditNotes.h"
#include "QuillaryCore/Documents/DocumentError.h"
#include "QuillaryCore/Documents/Proportion.h"
#include "QuillaryCore/Model/CreditedPart.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/Fee.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Store/Context.h"

#include <algorithm>
#include <map>

namespace Quillary {

namespace {

using CreditNotes::DiscountLeft;
using CreditNotes::FeeLeft;
using CreditNotes::Left;
using CreditNotes::LineLeft;

/// What is left of `whole` when `taken` is gone: between none and all of it, whatever its sign.
std::int64_t remaining(std::int64_t whole, Int128 taken)
{
    const Int128 rest = Int128{whole} - taken;
    return static_cast<std::int64_t>(std::clamp<Int128>(rest, std::min<Int128>(whole, 0), std::max<Int128>(whole, 0)));
}

bool isAlike(const LineItem& part, const LineItem& source)
{
    return part.title == source.title && part.unitPriceMinorUnits == source.unitPriceMinorUnits;
}

bool isAlike(const Discount& part, const Discount& source)
{
    return part.title == source.title && part.kindRaw == source.kindRaw;
}

bool isAlike(const Fee& part, const Fee& source)
{
    return part.title == source.title && part.vatBasisPoints == source.vatBasisPoints;
}

/// How much of its source a part of a credit note takes, in the source's unit.
Int128 taken(const LineItem& part, const LineItem& source)
{
    if (part.unitPriceMinorUnits == source.unitPriceMinorUnits || source.unitPriceMinorUnits == 0) {
        return -Int128{part.quantityThousandths};
    }
    return proportion(-Int128{part.quantityThousandths}, part.unitPriceMinorUnits, source.unitPriceMinorUnits);
}

Int128 taken(const Discount& part, const Discount& /*source*/)
{
    return -Int128{part.amountMinorUnits};
}

Int128 taken(const Fee& part, const Fee& /*source*/)
{
    return -Int128{part.amountMinorUnits};
}

/// What the parts of earlier credit notes took of one invoice's parts, by the key of the invoice's part.
class Takings
{
public:
    /// Finds the parts of one credit note among those of the invoice.
    void add(Context& context, const Document& creditNote, const Document& invoice)
    {
        std::map<UUID, UUID> sources;
        if (creditNote.uuid) {
            for (const CreditedPart* link : context.fetch<CreditedPart>("creditNoteID = ?", *creditNote.uuid)) {
                if (link->partID && link->sourceID) {
                    sources.emplace(*link->partID, *link->sourceID);
                }
            }
        }
        note(linesInOrder(context, creditNote), linesInOrder(context, invoice), sources, m_lines);
        note(sortedDiscounts(context, creditNote), sortedDiscounts(context, invoice), sources, m_discounts);
        note(sortedFees(context, creditNote), sortedFees(context, invoice), sources, m_fees);
    }

    [[nodiscard]] Int128 of(const LineItem& line) const { return found(m_lines, line.ref.key()); }
    [[nodiscard]] Int128 of(const Discount& discount) const { return found(m_discounts, discount.ref.key()); }
    [[nodiscard]] Int128 of(const Fee& fee) const { return found(m_fees, fee.ref.key()); }

private:
    using Amounts = std::map<std::int64_t, Int128>;

    static Int128 found(const Amounts& amounts, std::int64_t key)
    {
        const auto entry = amounts.find(key);
        return entry == amounts.end() ? Int128{0} : entry->second;
    }

    template <class Part>
    static void note(const std::vector<const Part*>& parts,
                     const std::vector<const Part*>& invoiced,
                     const std::map<UUID, UUID>& sources,
                     Amounts& amounts)
    {
        for (const Part* part : parts) {
            const auto link = part->uuid ? sources.find(*part->uuid) : sources.end();
            const auto source = std::ranges::find_if(invoiced, [&](const Part* candidate) {
                return link == sources.end() ? isAlike(*part, *candidate) : candidate->uuid == link->second;
            });
            if (source != invoiced.end()) {
                amounts[(*source)->ref.key()] += taken(*part, **source);
            }
        }
    }

    Amounts m_lines;
    Amounts m_discounts;
    Amounts m_fees;
};

/// Whether the discounts count in full: percentages can then stay percentages.
bool isCapped(const Totals::Result& totals, const std::vector<const Discount*>& discounts)
{
    for (std::size_t index = 0; index < discounts.size(); ++index) {
        const Discount& discount = *discounts[index];
        const bool isFixed = Totals::discountKindFromRaw(discount.kindRaw) == Totals::DiscountKind::fixed;
        const Int128 whole =
            isFixed ? Int128{discount.amountMinorUnits} : proportion(totals.subtotal, discount.basisPoints, 10000);
        if (whole != totals.discountAmounts[index]) {
            return true;
        }
    }
    return false;
}

void addDiscountsLeft(Left& left, const Desk& desk, const Document& invoice, const Takings& takings)
{
    const std::vector<const Discount*> discounts = sortedDiscounts(desk.context, invoice);
    if (discounts.empty()) {
        return;
    }
    const Totals::Result totals = calculateTotals(desk.context, invoice);
    const bool capped = isCapped(totals, discounts);
    for (std::size_t index = 0; index < discounts.size(); ++index) {
        const Discount& discount = *discounts[index];
        DiscountLeft entry{.discount = &discount};
        entry.isFixed = capped || Totals::discountKindFromRaw(discount.kindRaw) == Totals::DiscountKind::fixed;
        if (entry.isFixed) {
            entry.wholeMinorUnits = totals.discountAmounts[index];
            entry.leftMinorUnits = remaining(entry.wholeMinorUnits, takings.of(discount));
        }
        left.discounts.push_back(entry);
    }
}

} // namespace

bool CreditNotes::Left::isNothing() const
{
    const bool hasLines = std::ranges::any_of(lines, [](const LineLeft& entry) {
        return entry.quantityThousandths != 0 && entry.line->unitPriceMinorUnits != 0;
    });
    return !hasLines && std::ranges::all_of(fees, [](const FeeLeft& entry) { return entry.leftMinorUnits == 0; });
}

CreditNotes::Left CreditNotes::left(const Desk& desk, const Document& invoice)
{
    // Figures from elsewhere may be larger than anything below could add up.
    if (const std::optional<std::string> sentence = checkAggregates(desk.context, invoice)) {
        throw DocumentError(DocumentError::Reason::outsideLimits, *sentence);
    }
    Left left;
    Takings takings;
    for (const Document* derived : derivedDocuments(desk.context, invoice)) {
        if (kind(*derived) == DocumentKind::creditNote) {
            takings.add(desk.context, *derived, invoice);
            left.creditNotes.push_back(derived);
        }
    }
    for (const LineItem* line : linesInOrder(desk.context, invoice)) {
        left.lines.push_back(
            {.line = line, .quantityThousandths = remaining(line->quantityThousandths, takings.of(*line))});
    }
    addDiscountsLeft(left, desk, invoice, takings);
    for (const Fee* fee : sortedFees(desk.context, invoice)) {
        left.fees.push_back({.fee = fee, .leftMinorUnits = remaining(fee->amountMinorUnits, takings.of(*fee))});
    }
    return left;
}

} // namespace Quillary
