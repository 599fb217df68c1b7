#include "QuillaryUI/Reports/ReportBars.h"

#include "QuillaryUI/Charts/BarChart.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Theme.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <chrono>
#include <optional>
#include <vector>

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

unsigned quarter(CalendarDate day)
{
    return (unsigned(day.month()) - 1) / monthsOfQuarter + 1;
}

QString placeName(const ReportChart::Place& place, bool isWithYear, const Formats& formats)
{
    switch (place.kind) {
    case Kind::month:
        return monthName(place.day, isWithYear, formats);
    case Kind::quarter:
        return Words::tr("Q%1 %2").arg(quarter(place.day)).arg(int(place.day.year()));
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

/// Under the bars of a longer time there is room for the months or quarters, and for each year once.
QStringList shortLabels(const std::vector<ReportChart::Place>& places, const Formats& formats)
{
    QStringList labels;
    std::optional<std::chrono::year> known;
    for (const auto& [kind, day, basisPoints, words] : places) {
        const QString label = kind == Kind::month ? monthName(day, false, formats) : Words::tr("Q%1").arg(quarter(day));
        labels.push_back(known == day.year() ? label : QStringLiteral("%1\n%2").arg(label).arg(int(day.year())));
        known = day.year();
    }
    return labels;
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
    const Kind kind = figures.places.front().kind;
    const bool isOverYears = (kind == Kind::month && isWithYear) || kind == Kind::quarter;
    chart.setBars(names,
                  series,
                  currencyCode,
                  figures.isStacked ? BarChart::Arrangement::onOneAnother : BarChart::Arrangement::besideOneAnother,
                  isOverYears ? shortLabels(figures.places, formats) : QStringList());
}

} // namespace Quillary::ReportBars
