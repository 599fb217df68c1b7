#include "QuillaryUI/Schedules/ScheduleSheet.h"

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Schedules/RecurringSetup.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/RecurringForm.h"

namespace Quillary {

ScheduleSheet::ScheduleSheet(LibraryAccess& library, std::int64_t recurring, QWidget* host)
    : Sheet(tr("Schedule and Client"), tr("Change"), host)
    , m_library(library)
    , m_template(recurring)
    , m_form(new RecurringForm(
          library, *this, [this](const RecurringChoices& choices) -> const Document& { return change(choices); }))
{
    onAnswer([this] {
        std::int64_t key = 0;
        return m_form->carryOut(key);
    });
}

void ScheduleSheet::begin()
{
    setExplanation(tr("For the invoices to come; those that were made stay as they are. Another rhythm or day begins "
                      "with the next invoice."));
    m_form->refresh();
    open(m_form->firstField());
}

const Document& ScheduleSheet::change(const RecurringChoices& choices) const
{
    const Document* recurring = m_library.context().find(Ref<Document>(m_template));
    if (recurring == nullptr) {
        throw UserError(utf8(tr("The recurring invoice isn't there any more.")));
    }
    RecurringSetup::change(m_library.desk(), *recurring, choices);
    return *recurring;
}

} // namespace Quillary
