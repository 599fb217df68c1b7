#include "QuillaryUI/Documents/PaymentSheet.h"

#include "QuillaryCore/Billing/DocumentAmounts.h"
#include "QuillaryCore/Documents/DocumentActions.h"
#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/PaymentMethod.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/TypedNumber.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/DateField.h"

#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QLineEdit>

namespace Quillary {

PaymentSheet::PaymentSheet(LibraryAccess& library, std::int64_t document, QWidget* host)
    : Sheet(tr("Record Payment"), tr("Record"), host)
    , m_library(library)
    , m_document(document)
    , m_amount(new QLineEdit(this))
    , m_date(new QDateEdit(this))
    , m_method(new QComboBox(this))
    , m_note(new QLineEdit(this))
{
    m_amount->setObjectName(QStringLiteral("paymentAmount"));
    DateField::dress(*m_date);
    for (const PaymentMethod method : allPaymentMethods) {
        m_method->addItem(CoreText::word(title(method)), int(method));
    }
    form().addRow(tr("Amount"), m_amount);
    form().addRow(tr("Received on"), m_date);
    form().addRow(tr("By"), m_method);
    form().addRow(tr("Note"), m_note);
    onAnswer([this] { return record(); });
}

void PaymentSheet::begin()
{
    const Document* document = m_library.context().find(Ref<Document>(m_document));
    const Formats& formats = m_library.formats();
    const std::int64_t due = amountDueMinorUnits(m_library.context(), *document);
    setExplanation(tr("%1: %2 is due.")
                       .arg(CoreText::sentence(documentName(*document)), formats.money(due, document->currencyCode)));
    m_amount->setText(formats.amount(due, document->currencyCode));
    m_date->setDate(formats.qDate(m_library.now()));
    m_date->setMaximumDate(formats.qDate(m_library.now()));
    open(m_amount);
    m_amount->selectAll();
}

std::optional<QString> PaymentSheet::record()
{
    const Document* document = m_library.isOpen() ? m_library.context().find(Ref<Document>(m_document)) : nullptr;
    if (document == nullptr) {
        return tr("The invoice isn't there any more.");
    }
    const Formats& formats = m_library.formats();
    const auto amount = TypedNumber::amount(m_amount->text(), document->currencyCode, formats.locale());
    if (!amount) {
        return tr("Write the amount as a number such as %1.").arg(formats.amount(125'050, document->currencyCode));
    }
    return m_library.attempt([&] {
        DocumentActions::pay(m_library.desk(),
                             *document,
                             {.amountMinorUnits = *amount,
                              .date = formats.stored(m_date->date()),
                              .method = PaymentMethod(m_method->currentData().toInt()),
                              .note = utf8(m_note->text().trimmed())},
                             m_library.now());
    });
}

} // namespace Quillary
