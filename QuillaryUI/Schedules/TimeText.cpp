#include "QuillaryUI/Schedules/TimeText.h"

#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Look/Formats.h"

#include <QCoreApplication>

#include <chrono>

namespace Quillary::TimeText {

namespace {

QString clock(const Calendar& calendar, Instant instant)
{
    const auto minutes = std::chrono::floor<std::chrono::minutes>(calendar.timeOfDay(instant)).count();
    return QStringLiteral("%1:%2").arg(minutes / 60).arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

QString span(const Calendar& calendar, Instant start, Instant end)
{
    return QStringLiteral("%1–%2").arg(clock(calendar, start), clock(calendar, end));
}

QString billed(Context& context, const TimeEntry& entry)
{
    const Document* invoice = entry.invoiceID ? context.find<Document>(*entry.invoiceID) : nullptr;
    if (invoice != nullptr) {
        return invoice->number.empty() ? QCoreApplication::translate("TimeText", "On a draft") : text(invoice->number);
    }
    return entry.isBillable ? QString() : QCoreApplication::translate("TimeText", "Not billable");
}

} // namespace Quillary::TimeText
