#include "QuillaryUI/Look/DateField.h"

#include <QDateEdit>
#include <QLocale>

#include <chrono>

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

CalendarDate DateField::day(const QDateEdit& field)
{
    const QDate date = field.date();
    return CalendarDate(std::chrono::year(date.year()),
                        std::chrono::month(unsigned(date.month())),
                        std::chrono::day(unsigned(date.day())));
}

} // namespace Quillary
