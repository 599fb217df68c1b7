#include "QuillaryCore/Documents/CreditNotes.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Documents/CreditSelection.h"
#include "QuillaryCore/Documents/DocumentCopy.h"
#include "QuillaryCore/Documents/DocumentError.h"
#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Documents/Proportion.h"
#include "QuillaryCore/Model/CreditedPart.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Model/Fee.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/Units.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <algorithm>

namespace Quillary {

namespace {

using CreditNotes::Chosen;
using CreditNotes::DiscountLeft;
using CreditNotes::FeeLeft;
using CreditNotes::Left;
using CreditNotes::Request;
using Reason = DocumentError::Reason;

void requireIssuedInvoice(const Document& invoice)
{
    if (kind(invoice).value_or(DocumentKind::invoice) != DocumentKind::invoice) {
        throw DocumentError(Reason::wrongKind,
                            fmt::format("{} can't be credited: only invoices can.", documentName(invoice)));
    }
    if (status(invoice).value_or(DocumentStatus::draft) == DocumentStatus::draft) {
        throw DocumentError(Reason::wrongStatus,
                            fmt::format("{} is still a draft: change it or delete it instead.", documentName(invoice)));
    }
}

void requireSomethingLeft(const Desk& desk, const Document& invoice, const Left& left)
{
    if (!left.isNothing()) {
        return;
    }
    const std::string earlier = derivedNumbers(desk.context, invoice, DocumentKind::creditNote);
    throw DocumentError(Reason::alreadyDone,
                        fmt::format("Nothing is left to credit on {}{}.",
                                    documentName(invoice),
                                    earlier.empty() ? "" : fmt::format(": {} took all of it", earlier)));
}

/// Writes one credit note's parts, negated, each with its link to the invoice's.
class Writer
{
public:
    Writer(const Desk& desk, const Left& left, Document& creditNote)
        : m_desk(desk)
        , m_left(left)
        , m_creditNote(creditNote)
    {
    }

    void addLines(const CreditSelection::Quantities& quantities)
    {
        const UnitLibrary units(m_desk.context, m_desk.business);
        Ref<LineItem> parent; ///< the copy of the line above; empty where that isn't credited
        std::int32_t index = 0;
        for (std::size_t i = 0; i < quantities.size(); ++i) {
            const LineItem& source = *m_left.lines[i].line;
            if (!source.parent) {
                parent = {};
            }
            const auto& quantity = quantities[i];
            if (!quantity) {
                continue;
            }
            LineItem& copy = DocumentCopy::addLine(m_desk, units, source, m_creditNote);
            copy.quantityThousandths = -*quantity;
            copy.sortIndex = index++;
            if (source.parent) {
                copy.parent = parent;
            } else {
                parent = copy.ref;
            }
            link(copy.uuid, source.uuid);
        }
    }

    /// Chosen lines take their share of a fixed discount; who takes all takes the rest of it.
    void addDiscounts(const CreditSelection::Quantities& quantities, bool takesAll)
    {
        for (const DiscountLeft& entry : m_left.discounts) {
            const std::int64_t amount = !entry.isFixed ? 0 : takesAll ? entry.leftMinorUnits : share(entry, quantities);
            if (entry.isFixed && amount == 0) {
                continue;
            }
            Discount& copy = DocumentCopy::addDiscount(m_desk, *entry.discount, m_creditNote);
            if (entry.isFixed) {
                copy.kindRaw = 1;
                copy.basisPoints = 0;
                copy.amountMinorUnits = -amount;
            }
            link(copy.uuid, entry.discount->uuid);
        }
    }

    void addFees()
    {
        for (const FeeLeft& entry : m_left.fees) {
            if (entry.leftMinorUnits != 0) {
                Fee& copy = DocumentCopy::addFee(m_desk, *entry.fee, m_creditNote);
                copy.amountMinorUnits = -entry.leftMinorUnits;
                link(copy.uuid, entry.fee->uuid);
            }
        }
    }

private:
    /// Its part for all lines credited up to and with this note, less what earlier notes had of it.
    [[nodiscard]] std::int64_t share(const DiscountLeft& entry, const CreditSelection::Quantities& quantities) const
    {
        Int128 subtotal = 0;
        Int128 credited = 0;
        for (std::size_t i = 0; i < quantities.size(); ++i) {
            const LineItem& line = *m_left.lines[i].line;
            const std::int64_t before = line.quantityThousandths - m_left.lines[i].quantityThousandths;
            subtotal += amount(line);
            credited += Totals::amount(before + quantities[i].value_or(0), line.unitPriceMinorUnits);
        }
        if (subtotal == 0) {
            return 0;
        }
        const Int128 due = proportion(entry.wholeMinorUnits, credited, subtotal);
        const Int128 before = Int128{entry.wholeMinorUnits} - entry.leftMinorUnits;
        return static_cast<std::int64_t>(std::clamp<Int128>(
            due - before, std::min<Int128>(entry.leftMinorUnits, 0), std::max<Int128>(entry.leftMinorUnits, 0)));
    }

    void link(const std::optional<UUID>& part, const std::optional<UUID>& source)
    {
        auto& link = m_desk.context.insert<CreditedPart>();
        link.creditNoteID = m_creditNote.uuid;
        link.partID = part;
        link.sourceID = source;
    }

    const Desk& m_desk;
    const Left& m_left;
    Document& m_creditNote;
};

/// A credit note that asks for money would be an invoice; only one for a negative invoice does.
void requireOpposite(const Document& creditNote, const Document& invoice)
{
    const std::int64_t credited = creditNote.cachedTotalMinorUnits;
    if ((credited > 0 && invoice.cachedTotalMinorUnits >= 0) || (credited < 0 && invoice.cachedTotalMinorUnits < 0)) {
        throw DocumentError(Reason::badAmount,
                            "These lines together change what is owed the wrong way, so they can't be credited by "
                            "themselves.");
    }
}

} // namespace

const Document& CreditNotes::make(const Desk& desk, const Document& invoice, const Request& request)
{
    requireIssuedInvoice(invoice);
    const Left rest = left(desk, invoice);
    requireSomethingLeft(desk, invoice, rest);
    const bool takesAll = request.lines.empty();
    CreditSelection selection(rest, invoice);
    if (takesAll) {
        selection.takeAll();
    }
    for (const Chosen& chosen : request.lines) {
        selection.take(chosen);
    }
    selection.addHeadings();

    auto scope = desk.context.beginScope("Credit Note");
    Document& creditNote = DocumentCopy::begin(desk,
                                               invoice,
                                               {.kind = DocumentKind::creditNote,
                                                .issueDate = request.issueDate,
                                                .sourceDocumentID = invoice.uuid,
                                                .texts = CopyRequest::Texts::usual,
                                                .delivery = CopyRequest::Delivery::kept,
                                                .madeBy = request.madeBy});
    Writer writer(desk, rest, creditNote);
    writer.addLines(selection.quantities());
    writer.addDiscounts(selection.quantities(), takesAll);
    if (takesAll || request.withFees) {
        writer.addFees();
    }
    DocumentCopy::finish(desk, creditNote);
    requireOpposite(creditNote, invoice);
    scope.commit();
    return creditNote;
}

} // namespace Quillary
