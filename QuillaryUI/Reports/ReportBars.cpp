#include "QuillaryUI/Reports/ReportBars.h"

#include "QuillaryUI/Charts/BarChart.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Theme.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>

namespace Quillary::ReportBars {

namespace {

using Kind = ReportChart::Place::Kind;
using Meaning = ReportChart::Meaning;

constexpr int basisPointDigits = 2;
constexpr unsigned monthsOfQuarter = 3;

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReportBars)
};

QString monthName(CalendarDate day, bool isWithYear, const Formats& formats)
{
    const QLocale words(text(formats.locale().identifier()));
    const QString month = words.standaloneMonthName(int(unsigned(day.month())), QLocale::ShortFormat);
    return isWithYear ? QStringLiteral("%1 %2").arg(month).arg(int(day.year())) : month;
}

QString placeName(const ReportChart::Place& place, bool isWithYear, const Formats& formats)
{
    switch (place.kind) {
    case Kind::month:
        return monthName(place.day, isWithYear, formats);
    case Kind::quarter:
        return Words::tr("Q%1 %2")
            .arg((unsigned(place.day.month()) - 1) / monthsOfQuarter + 1)
            .arg(int(place.day.year()));
    case Kind::year:
        return QString::number(int(place.day.year()));
    case Kind::rate:
        return Words::tr("%1%", "a tax rate")
            .arg(text(formats.locale().formatDecimal(place.basisPoints, basisPointDigits, 0)));
    case Kind::words:
        return CoreText::word(place.text);
    case Kind::name:
        return text(place.text);
    }
    return {};
}

QColor color(Meaning meaning, const QPalette& palette)
{
    switch (meaning) {
    case Meaning::net:
    case Meaning::gross:
        return palette.color(QPalette::Link);
    case Meaning::tax:
    case Meaning::open:
        return Theme::statusColor(DisplayStatus::partlyPaid);
    case Meaning::paid:
        return Theme::statusColor(DisplayStatus::paid);
    case Meaning::notDue:
        return Theme::statusColor(DisplayStatus::sent);
    case Meaning::overdue:
        return Theme::statusColor(DisplayStatus::overdue);
    }
    return {};
}

} // namespace

void show(const ReportChart& figures, const std::string& currencyCode, const Formats& formats, BarChart& chart)
{
    const bool isWithYear = figures.places.front().day.year() != figures.places.back().day.year();
    QStringList names;
    for (const ReportChart::Place& place : figures.places) {
        names.push_back(placeName(place, isWithYear, formats));
    }
    std::vector<BarChart::Series> series;
    series.reserve(figures.series.size());
    for (const auto& [meaning, amounts] : figures.series) {
        series.push_back({CoreText::word(title(meaning)), color(meaning, chart.palette()), amounts});
    }
    chart.setBars(names,
                  series,
                  currencyCode,
                  figures.isStacked ? BarChart::Arrangement::onOneAnother : BarChart::Arrangement::besideOneAnother);
}

} // namespace Quillary::ReportBars
