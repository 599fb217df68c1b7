#include "QuillaryCore/Output/PrintedFigures.h"

#include "QuillaryCore/Billing/DocumentInput.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/Fee.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Model/Payment.h"
#include "QuillaryCore/Model/Reminder.h"
#include "QuillaryCore/Model/TaxLabel.h"
#include "QuillaryCore/Model/Units.h"
#include "QuillaryCore/Money/Quantity.h"
#include "QuillaryCore/Output/PrintSource.h"
#include "QuillaryCore/Output/PrintedDocument.h"
#include "QuillaryCore/Output/PrintedLines.h"
#include "QuillaryCore/Output/PrintedPayment.h"
#include "QuillaryCore/Output/PrintedTerms.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary::PrintedFigures {

namespace {

using Key = DocumentStrings::Key;
using Emphasis = PrintedDocument::Emphasis;

/// The word after a quantity. A built-in unit speaks the document's language; a unit of the user's own has the words that
/// were kept with the line.
std::string_view unitWord(const LineItem& item, DocumentLanguage language)
{
    if (item.unit.empty()) {
        return {};
    }
    const bool isSingular = Units::isSingular(item.quantityThousandths, language);
    if (const BuiltInUnit* unit = Units::builtIn(item.unit)) {
        return isSingular ? unit->singular(language) : unit->plural(language);
    }
    const bool takesSingular = item.unitPlural.empty() || (isSingular && !item.unitSingular.empty());
    return takesSingular ? item.unitSingular : item.unitPlural;
}

std::string quantity(const LineItem& item, const PrintSource& source)
{
    std::string text = Quantity::format(item.quantityThousandths, source.locale);
    if (const std::string_view unit = unitWord(item, source.strings.language()); !unit.empty()) {
        text.append(1, ' ').append(unit);
    }
    return text;
}

/// A heading (a line without a price above its sub-lines, or without price and quantity) shows no figures.
bool isHeading(const LineItem& item, const LineItem* next)
{
    const bool hasSubLines = next != nullptr && next->parent == item.ref;
    return item.unitPriceMinorUnits == 0 && (hasSubLines || item.quantityThousandths == 0);
}

void reserveLines(PrintedLines& lines, const std::vector<const LineItem*>& items)
{
    constexpr std::size_t figures = 60; // bytes of a line
    std::size_t bytes = items.size() * figures;
    for (const LineItem* item : items) {
        bytes += item->title.size() + item->details.size();
    }
    lines.reserve(items.size(), bytes);
}

/// No amount: the line shows no figures.
void addLine(PrintedDocument& printed,
             const PrintSource& source,
             const LineItem& item,
             std::optional<std::int64_t> amountMinorUnits)
{
    PrintedLines::Line line;
    line.title = item.title;
    line.details = item.details;
    line.isSubLine = static_cast<bool>(item.parent);
    if (!amountMinorUnits) {
        printed.lines.add(line);
        return;
    }
    const std::string unitPrice = source.money(item.unitPriceMinorUnits);
    line.unitPrice = unitPrice;
    std::string taxRate;
    if (printed.hasTaxRateColumn) {
        taxRate = source.locale.formatDecimal(item.vatBasisPoints, 2, 0);
        line.taxRate = taxRate;
    }
    std::string shownQuantity;
    std::string amount;
    if (item.quantityThousandths != 0) { // an option names its price and adds nothing
        shownQuantity = quantity(item, source);
        amount = source.money(*amountMinorUnits);
        line.quantity = shownQuantity;
        line.amount = amount;
    }
    printed.lines.add(line);
}

void addLines(PrintedDocument& printed,
              const PrintSource& source,
              const std::vector<const LineItem*>& items,
              const Totals::Result& totals)
{
    const auto differs = [&](const LineItem* item) {
        return item->vatBasisPoints != items.front()->vatBasisPoints;
    };
    printed.hasTaxRateColumn = !source.document.taxExempt && std::ranges::any_of(items, differs);
    reserveLines(printed.lines, items);
    for (std::size_t index = 0; index < items.size(); ++index) {
        const LineItem& item = *items[index];
        const LineItem* const next = index + 1 < items.size() ? items[index + 1] : nullptr;
        addLine(printed, source, item, isHeading(item, next) ? std::nullopt : std::optional(totals.lineAmounts[index]));
    }
}

/// Writes the rows below the lines.
class TotalsTable
{
public:
    TotalsTable(PrintedDocument& printed,
                const PrintSource& source,
                const DocumentInput& input,
                const Totals::Result& totals)
        : m_printed(printed)
        , m_source(source)
        , m_input(input)
        , m_totals(totals)
    {
    }

    void addNet()
    {
        if (!m_input.discountRecords.empty() || !m_input.feeRecords.empty()) {
            add(Emphasis::figure, text(Key::subtotal), m_totals.subtotal);
            addDiscounts();
            addFees();
            add(Emphasis::figure, text(Key::net), m_totals.net);
        } else {
            // Where sales tax is added, what stands before it is called the subtotal.
            const bool isSalesTax = taxLabel(m_source.business) == TaxLabel::salesTax;
            add(Emphasis::figure, text(isSalesTax ? Key::subtotal : Key::net), m_totals.net);
        }
    }

    void addTaxes()
    {
        const std::string label = PrintedTerms::tax(m_source.business, m_source.strings.language());
        for (const Totals::TaxLine& tax : m_totals.taxLines) {
            const std::string rate = m_source.percentage(tax.basisPoints);
            const std::string base = m_source.money(tax.base);
            add(Emphasis::figure,
                m_source.strings.format(Key::taxOn, {{"label", label}, {"rate", rate}, {"base", base}}),
                tax.tax);
        }
    }

    /// The total and what has become of it. Returns the amount due.
    std::int64_t addTotal()
    {
        add(Emphasis::total, text(Key::total), m_totals.total);
        std::int64_t lateFees = 0;
        for (const Reminder* reminder : sortedReminders(m_source.context, m_source.document)) {
            lateFees = checkedAdd(lateFees, reminder->feeMinorUnits);
        }
        const auto payments = sortedPayments(m_source.context, m_source.document);
        std::int64_t paid = 0;
        for (const Payment* payment : payments) {
            paid = checkedAdd(paid, payment->amountMinorUnits);
        }
        const std::int64_t due = checkedSubtract(checkedAdd(m_totals.total, lateFees), paid);
        if (lateFees != 0) {
            add(Emphasis::figure, text(Key::lateFee), lateFees);
        }
        if (!payments.empty()) {
            add(Emphasis::paid, text(Key::paid), checkedSubtract(0, paid));
        }
        if (lateFees != 0 || !payments.empty()) {
            add(Emphasis::due, text(Key::amountDue), due);
        }
        return due;
    }

private:
    [[nodiscard]] std::string_view text(Key key) const { return m_source.strings.text(key); }

    void add(Emphasis emphasis, std::string_view label, std::int64_t minorUnits)
    {
        m_printed.totals.push_back({emphasis, std::string(label), m_source.money(minorUnits)});
    }

    void addDiscounts()
    {
        for (std::size_t index = 0; index < m_input.discountRecords.size(); ++index) {
            const Discount& discount = *m_input.discountRecords[index];
            const std::string_view title = trimmed(discount.title);
            std::string label(title.empty() ? text(Key::discount) : title);
            if (Totals::discountKindFromRaw(discount.kindRaw) == Totals::DiscountKind::percentage) {
                label.append(1, ' ').append(m_source.percentage(discount.basisPoints));
            }
            add(Emphasis::figure, label, checkedSubtract(0, m_totals.discountAmounts.at(index)));
        }
    }

    void addFees()
    {
        for (const Fee* fee : m_input.feeRecords) {
            const std::string_view title = trimmed(fee->title);
            add(Emphasis::figure,
                title.empty() ? PrintedTerms::fee(m_source.strings.language()) : title,
                fee->amountMinorUnits);
        }
    }

    PrintedDocument& m_printed;
    const PrintSource& m_source;
    const DocumentInput& m_input;
    const Totals::Result& m_totals;
};

} // namespace

void add(PrintedDocument& printed, const PrintSource& source)
{
    const DocumentInput input(source.context, source.document);
    const Totals::Result totals = Totals::calculate(input.lines, input.discounts, input.fees, input.taxation);
    addLines(printed, source, input.lineItems, totals);
    constexpr std::size_t fixedRows = 6; // subtotal, net, total, late fee, paid, due
    printed.totals.reserve(totals.discountAmounts.size() + input.fees.size() + totals.taxLines.size() + fixedRows);
    TotalsTable table(printed, source, input, totals);
    table.addNet();
    table.addTaxes();
    const std::int64_t due = table.addTotal();
    if (source.document.taxExempt) {
        const std::string_view note = trimmed(source.document.taxExemptNote);
        printed.exemptNote = note.empty() && source.business.taxExempt ? trimmed(source.business.taxExemptNote) : note;
    }
    PrintedPayment::add(printed, source, due);
}

} // namespace Quillary::PrintedFigures
