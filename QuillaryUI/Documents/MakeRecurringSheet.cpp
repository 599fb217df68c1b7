#include "QuillaryUI/Documents/MakeRecurringSheet.h"

#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Schedules/RecurringSetup.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/RecurringForm.h"
#include "QuillaryUI/Look/CoreText.h"

namespace Quillary {

MakeRecurringSheet::MakeRecurringSheet(LibraryAccess& library, std::int64_t invoice, QWidget* host)
    : Sheet(tr("Make Recurring"), tr("Make Recurring"), host)
    , m_library(library)
    , m_invoice(invoice)
    , m_form(new RecurringForm(
          library, *this, [this](const RecurringChoices& choices) -> const Document& { return repeat(choices); }))
{
    onAnswer([this] { return make(); });
}

void MakeRecurringSheet::begin()
{
    const Document& invoice = *m_library.context().find(Ref<Document>(m_invoice));
    setExplanation(
        tr("Invoices with the contents of %1 are made by themselves, beginning with the next one. %1 stays as "
           "it is.")
            .arg(CoreText::sentence(documentName(invoice))));
    m_form->refresh();
    open(m_form->firstField());
}

const Document& MakeRecurringSheet::repeat(const RecurringChoices& choices) const
{
    const Document* invoice = m_library.context().find(Ref<Document>(m_invoice));
    if (invoice == nullptr) {
        throw UserError(utf8(tr("The invoice isn't there any more.")));
    }
    const CalendarDate today = m_library.formats().calendar().date(m_library.now());
    return RecurringSetup::create(m_library.desk(), *invoice, choices, today);
}

std::optional<QString> MakeRecurringSheet::make()
{
    std::int64_t key = 0;
    auto refusal = m_form->carryOut(key);
    if (!refusal) {
        Q_EMIT made(key);
    }
    return refusal;
}

} // namespace Quillary
