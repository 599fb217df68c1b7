#include "QuillaryUI/Documents/DraftCharges.h"

#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentTaxTreatment.h"
#include "QuillaryUI/Documents/ChargesTable.h"
#include "QuillaryUI/Documents/DiscountsModel.h"
#include "QuillaryUI/Documents/DraftFields.h"
#include "QuillaryUI/Documents/FeesModel.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>

namespace Quillary {

DraftCharges::DraftCharges(DraftDesk& desk, DraftFields& fields, QFormLayout& form, QObject* parent)
    : QObject(parent)
    , m_desk(desk)
    , m_fields(fields)
    , m_form(form)
    , m_discounts(new DiscountsModel(desk, this))
    , m_fees(new FeesModel(desk, this))
{
    addTable(tr("Discounts"), "discounts", *m_discounts);
    addTable(tr("Fees"), "fees", *m_fees);
    addTax();
}

void DraftCharges::addTable(const QString& label, const char* field, ChargesModel& model)
{
    m_fields.addRow(m_form, label, field, new ChargesTable(model));
    connect(&model, &ChargesModel::refused, this, [this, field](const QString& sentence) {
        m_fields.tell(field, sentence);
    });
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
    m_discounts->reload();
    m_fees->reload();
    m_tax->setCurrentIndex(int(taxTreatment(m_desk.library().context(), draft)));
    m_fields.put(*m_taxNote, text(draft.taxExemptNote));
    m_form.setRowVisible(m_taxNote, draft.taxExempt);
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
    m_fields.touch("tax");
    m_fields.tell("tax", m_desk.change(tr("Change Tax"), arguments).value_or(QString()));
}

} // namespace Quillary
