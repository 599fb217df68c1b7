#include "QuillaryCore/Reports/ReportSpans.h"

#include <algorithm>
#include <chrono>

namespace Quillary {

namespace {

constexpr int monthsOfYear = 12;
constexpr int monthsOfQuarter = 3;
constexpr int mostMonths = 18;
constexpr int mostQuarters = 20;

/// Months since the year 0, so that spans are plain numbers.
int monthNumber(CalendarDate date)
{
    return static_cast<int>(date.year()) * monthsOfYear + static_cast<int>(static_cast<unsigned>(date.month())) - 1;
}

CalendarDate firstDay(int monthNumber)
{
    return std::chrono::year(monthNumber / monthsOfYear) /
           std::chrono::month(static_cast<unsigned>(monthNumber % monthsOfYear) + 1) / 1;
}

ReportSpans::Length fitting(int first, int last)
{
    if (last - first < mostMonths) {
        return ReportSpans::Length::month;
    }
    return last / monthsOfQuarter - first / monthsOfQuarter < mostQuarters ? ReportSpans::Length::quarter
                                                                           : ReportSpans::Length::year;
}

int months(ReportSpans::Length length)
{
    switch (length) {
    case ReportSpans::Length::month:
        return 1;
    case ReportSpans::Length::quarter:
        return monthsOfQuarter;
    case ReportSpans::Length::year:
        return monthsOfYear;
    }
    return 1;
}

} // namespace

std::optional<ReportSpans> ReportSpans::of(const ReportPeriod& period, const Calendar& calendar)
{
    const int first = monthNumber(period.first);
    const int last = monthNumber(period.last);
    ReportSpans spans;
    spans.m_length = fitting(first, last);
    const int step = months(spans.m_length);
    const int begin = first / step;
    const int end = last / step;
    if (end <= begin || end - begin >= static_cast<int>(most)) {
        return std::nullopt;
    }
    const DateRange whole = period.range(calendar);
    spans.m_borders.push_back(whole.start);
    for (int span = begin; span <= end; ++span) {
        spans.m_firstDays.push_back(firstDay(span * step));
        spans.m_borders.push_back(span == end ? whole.end : calendar.startOfDay(firstDay((span + 1) * step)));
    }
    return spans;
}

DateRange ReportSpans::range(std::size_t span) const
{
    return {m_borders.at(span), m_borders.at(span + 1)};
}

std::optional<std::size_t> ReportSpans::find(Instant instant) const
{
    if (instant < m_borders.front() || instant >= m_borders.back()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(std::ranges::upper_bound(m_borders, instant) - m_borders.begin()) - 1;
}

} // namespace Quillary
