#include "QuillaryUI/Documents/StatusText.h"

#include "QuillaryUI/Look/CoreText.h"

#include <QCoreApplication>

namespace Quillary::StatusText {

QString word(DisplayStatus status, std::optional<DocumentKind> kind)
{
    return CoreText::word(title(status, kind));
}

QString sentence(DisplayStatus status, int daysOverdue, std::optional<DocumentKind> kind)
{
    if (status == DisplayStatus::overdue && daysOverdue > 0) {
        return daysOverdue == 1 ? QCoreApplication::translate("StatusText", "Overdue since yesterday")
                                : QCoreApplication::translate("StatusText", "Overdue by %1 days").arg(daysOverdue);
    }
    return word(status, kind);
}

QString action(StatusAction action, std::optional<DocumentKind> kind)
{
    return CoreText::word(title(action, kind));
}

QString kind(DocumentKind kind)
{
    return CoreText::word(title(kind));
}

QString kinds(DocumentKind kind)
{
    switch (kind) {
    case DocumentKind::invoice:
        return QCoreApplication::translate("StatusText", "Invoices");
    case DocumentKind::quote:
        return QCoreApplication::translate("StatusText", "Quotes");
    case DocumentKind::creditNote:
        return QCoreApplication::translate("StatusText", "Credit Notes");
    case DocumentKind::recurring:
        return QCoreApplication::translate("StatusText", "Recurring");
    }
    return {};
}

QString makeNew(DocumentKind kind)
{
    switch (kind) {
    case DocumentKind::invoice:
        return QCoreApplication::translate("StatusText", "New Invoice");
    case DocumentKind::quote:
        return QCoreApplication::translate("StatusText", "New Quote");
    case DocumentKind::creditNote:
        return QCoreApplication::translate("StatusText", "New Credit Note");
    case DocumentKind::recurring:
        return QCoreApplication::translate("StatusText", "New Recurring Invoice");
    }
    return {};
}

} // namespace Quillary::StatusText
