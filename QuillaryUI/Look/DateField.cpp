#include "QuillaryUI/Look/DateField.h"

#include <QDateEdit>
#include <QLocale>

namespace Quillary {

void DateField::dress(QDateEdit& field)
{
    QString format = QLocale().dateFormat(QLocale::ShortFormat);
    if (!format.contains(QLatin1String("yyyy"))) {
        format.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    }
    field.setCalendarPopup(true);
    field.setDisplayFormat(format);
}

} // namespace Quillary
