#include "QuillaryUI/Documents/DraftCharges.h"

#include "QuillaryCore/Billing/Totals.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Discount.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Model/DocumentTaxTreatment.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Money/Percent.h"
#include "QuillaryUI/Documents/DraftFields.h"
#include "QuillaryUI/Documents/FeesModel.h"
#include "QuillaryUI/Documents/FeesTable.h"
#include "QuillaryUI/Documents/TypedNumber.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>

namespace Quillary {

namespace {

QString discountText(const Discount& discount, const Document& draft, const Formats& formats)
{
    return Totals::discountKindFromRaw(discount.kindRaw) == Totals::DiscountKind::percentage
               ? formats.percent(discount.basisPoints)
               : formats.amount(discount.amountMinorUnits, draft.currencyCode);
}

} // namespace

DraftCharges::DraftCharges(DraftDesk& desk, DraftFields& fields, QFormLayout& form, QObject* parent)
    : QObject(parent)
    , m_desk(desk)
    , m_fields(fields)
    , m_form(form)
    , m_fees(new FeesModel(desk, this))
{
    addDiscount();
    addFees();
    addTax();
}

void DraftCharges::addDiscount()
{
    m_discount = m_fields.addReadLine(
        m_form,
        tr("Discount"),
        "discount",
        [this](const QString& typed) { return readDiscount(typed); },
        [] { return tr("Write a discount as a percentage from 0% to 100%, or as an amount such as 50.00."); });
    m_discount->setPlaceholderText(tr("10% or an amount"));
}

void DraftCharges::addFees()
{
    m_fields.addRow(m_form, tr("Fees"), "fees", new FeesTable(*m_fees));
    connect(m_fees, &FeesModel::refused, this, [this](const QString& sentence) { m_fields.tell("fees", sentence); });
}

void DraftCharges::addTax()
{
    m_tax = new QComboBox;
    m_tax->addItems({tr("Taxed"), tr("Reverse charge (EU)"), tr("Outside the EU"), tr("Exempt")});
    connect(m_tax, &QComboBox::activated, this, &DraftCharges::changeTax);
    m_fields.addRow(m_form, tr("Tax"), "tax", m_tax);
    m_taxNote = m_fields.addLine(m_form, tr("Why there's no tax"), "tax_exempt_note");
}

void DraftCharges::fill(const Document& draft)
{
    Context& context = m_desk.library().context();
    const auto discounts = sortedDiscounts(context, draft);
    m_fields.put(*m_discount,
                 discounts.empty() ? QString() : discountText(*discounts.front(), draft, m_desk.library().formats()));
    m_discount->setEnabled(discounts.size() < 2);
    m_fees->reload();
    m_tax->setCurrentIndex(int(taxTreatment(context, draft)));
    m_fields.put(*m_taxNote, text(draft.taxExemptNote));
    m_form.setRowVisible(m_taxNote, draft.taxExempt);
}

std::optional<JSON> DraftCharges::readDiscount(const QString& typed) const
{
    const Document* draft = m_desk.document();
    if (draft == nullptr) {
        return std::nullopt;
    }
    if (typed.isEmpty() || typed.endsWith(QChar(u'%'))) {
        const auto rate = typed.isEmpty() ? std::optional(0) : Percent::basisPoints(utf8(typed));
        return rate ? std::optional(JSON::object({{"discount_percent", Decimal::fromInteger(*rate, 2).text()}}))
                    : std::nullopt;
    }
    const auto amount = TypedNumber::amount(typed, draft->currencyCode, m_desk.library().formats().locale());
    return amount ? std::optional(JSON::object({{"discount_amount", Money(*amount, draft->currencyCode).plainText()}}))
                  : std::nullopt;
}

void DraftCharges::changeTax(int choice)
{
    const auto treatment = taxTreatmentFromRaw(std::int16_t(choice)).value_or(TaxTreatment::standard);
    JSON arguments = JSON::object({{"tax_exempt", false}});
    if (treatment == TaxTreatment::reverseCharge) {
        arguments = JSON::object({{"reverse_charge", true}});
    } else if (treatment == TaxTreatment::outsideEU) {
        arguments = JSON::object({{"outside_eu", true}});
    } else if (treatment == TaxTreatment::exempt) {
        arguments = JSON::object({{"tax_exempt", true}});
    }
    m_fields.tell("tax", m_desk.change(tr("Change Tax"), arguments).value_or(QString()));
}

} // namespace Quillary
