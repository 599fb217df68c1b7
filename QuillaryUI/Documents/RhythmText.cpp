#include "QuillaryUI/Documents/RhythmText.h"

#include "QuillaryCore/Schedules/Recurrence.h"
#include "QuillaryCore/Schedules/RecurrenceEnd.h"
#include "QuillaryCore/Schedules/RecurringTemplate.h"

#include <QCoreApplication>

#include <optional>

namespace Quillary::RhythmText {

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(RhythmText)
};

QString ordinal(int day)
{
    const bool isTeen = day >= 11 && day <= 13;
    switch (isTeen ? 0 : day % 10) {
    case 1:
        return Words::tr("%1st").arg(day);
    case 2:
        return Words::tr("%1nd").arg(day);
    case 3:
        return Words::tr("%1rd").arg(day);
    default:
        return Words::tr("%1th").arg(day);
    }
}

QString rhythm(const Recurrence& recurrence)
{
    const int count = recurrence.interval;
    const QString day = ordinal(recurrence.anchorDay);
    switch (recurrence.unit) {
    case RecurrenceUnit::week:
        return count == 1 ? Words::tr("Every week") : Words::tr("Every %1 weeks").arg(count);
    case RecurrenceUnit::month:
        return count == 1 ? Words::tr("Every month on the %1").arg(day)
                          : Words::tr("Every %1 months on the %2").arg(QString::number(count), day);
    case RecurrenceUnit::quarter:
        return count == 1 ? Words::tr("Every quarter on the %1").arg(day)
                          : Words::tr("Every %1 quarters on the %2").arg(QString::number(count), day);
    case RecurrenceUnit::year:
        return count == 1 ? Words::tr("Every year on the %1").arg(day)
                          : Words::tr("Every %1 years on the %2").arg(QString::number(count), day);
    }
    return {};
}

} // namespace

QString sentence(const Document& recurring, const Formats& formats)
{
    const std::optional<Recurrence> schedule = RecurringTemplate::recurrence(recurring, formats.calendar());
    if (!schedule || !RecurringTemplate::isReadable(recurring)) {
        return Words::tr("A schedule of a newer Quillary");
    }
    QString often = rhythm(*schedule);
    switch (recurrenceEndFromRaw(recurring.recurrenceEndRaw).value_or(RecurrenceEnd::never)) {
    case RecurrenceEnd::never:
        break;
    case RecurrenceEnd::afterCount:
        return Words::tr("%1, %2 of %3 made")
            .arg(often, QString::number(recurring.recurrenceCount), QString::number(recurring.recurrenceEndCount));
    case RecurrenceEnd::onDate:
        return recurring.recurrenceEndDate
                   ? Words::tr("%1, until %2").arg(often, formats.date(recurring.recurrenceEndDate))
                   : often;
    }
    return often;
}

} // namespace Quillary::RhythmText
