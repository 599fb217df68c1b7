#include "QuillaryCore/Assistant/Operations/ServiceDate.h"

#include "QuillaryCore/Assistant/Tools/Arguments.h"
#include "QuillaryCore/Foundation/Text.h"

namespace Quillary {

namespace {

using std::chrono::days;
using std::chrono::sys_days;

ServiceDate week(CalendarDate day)
{
    const auto sinceMonday = std::chrono::weekday(sys_days(day)) - std::chrono::Monday;
    const sys_days monday = sys_days(day) - sinceMonday;
    return {.start = monday, .end = CalendarDate(monday + days(6))};
}

ServiceDate month(std::chrono::year_month month)
{
    return {.start = month / 1, .end = CalendarDate(sys_days(month / std::chrono::last))};
}

std::optional<ServiceDate> period(std::string_view from, std::string_view to)
{
    const std::optional<CalendarDate> start = documentDate(trimmed(from));
    const std::optional<CalendarDate> end = documentDate(trimmed(to));
    if (!start || !end || *end < *start) {
        return std::nullopt;
    }
    return ServiceDate{.start = *start, .end = *start == *end ? std::nullopt : end};
}

} // namespace

std::optional<ServiceDate> ServiceDate::parse(std::string_view text, CalendarDate today, CalendarDate invoiceDate)
{
    const std::string lowered = lowerCasedASCII(trimmed(text));
    const std::string_view word = lowered;
    if (word == "today") {
        return ServiceDate{.start = today, .end = {}};
    }
    if (word == "yesterday") {
        return ServiceDate{.start = sys_days(today) - days(1), .end = {}};
    }
    if (word == "invoice_date") {
        return ServiceDate{.start = invoiceDate, .end = {}};
    }
    if (word == "this_week") {
        return week(today);
    }
    if (word == "last_week") {
        return week(sys_days(today) - days(7));
    }
    if (word == "this_month") {
        return month(today.year() / today.month());
    }
    if (word == "last_month") {
        return month(today.year() / today.month() - std::chrono::months(1));
    }
    if (const std::size_t dots = word.find(".."); dots != std::string_view::npos) {
        return period(word.substr(0, dots), word.substr(dots + 2));
    }
    const std::optional<CalendarDate> date = documentDate(word);
    return date ? std::optional(ServiceDate{.start = *date, .end = {}}) : std::nullopt;
}

} // namespace Quillary
