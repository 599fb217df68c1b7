#include "QuillaryUI/Schedules/OwedInvoice.h"

#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Schedules/RecurringInvoices.h"
#include "QuillaryCore/Schedules/RecurringTemplate.h"
#include "QuillaryUI/Look/CoreText.h"

#include <QCoreApplication>

namespace Quillary {

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(OwedInvoice)
};

} // namespace

std::optional<OwedInvoice> OwedInvoice::of(LibraryAccess& library, std::int64_t recurring)
{
    const Calendar& calendar = library.formats().calendar();
    const Document* document = library.context().find(Ref<Document>(recurring));
    if (document == nullptr || RecurringTemplate::state(*document, calendar) != RecurringState::active ||
        !document->nextIssueDate || calendar.date(document->nextIssueDate.value()) > calendar.date(library.now())) {
        return std::nullopt;
    }
    OwedInvoice owed{.day = library.formats().date(document->nextIssueDate), .obstacle = {}};
    library.tryOut([&] {
        if (const auto error = RecurringInvoices::obstacle(library.context(), *document, library.now(), calendar)) {
            owed.obstacle = CoreText::sentence(error->message());
        }
    });
    return owed;
}

QString OwedInvoice::notice(const std::string& first, std::size_t count)
{
    const QString sentence = CoreText::sentence(first);
    return count < 2    ? sentence
           : count == 2 ? Words::tr("%1 Another recurring invoice can't be made, either.").arg(sentence)
                        : Words::tr("%1 Nor can %2 other recurring invoices be made.").arg(sentence).arg(count - 1);
}

} // namespace Quillary
