#include "QuillaryCore/Reports/ReportPeriod.h"

#include "QuillaryCore/Foundation/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <utility>

namespace Quillary {

namespace {

using std::chrono::day;
using std::chrono::days;
using std::chrono::month;
using std::chrono::months;
using std::chrono::sys_days;
using std::chrono::year;

constexpr int longestCount = 1000;

/// A whole number of nothing but digits, of `fewest` to `most` of them.
std::optional<int> number(std::string_view text, std::size_t fewest, std::size_t most)
{
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isWhole = error == std::errc() && end == text.data() + text.size() && !text.starts_with('-');
    return isWhole && text.size() >= fewest && text.size() <= most ? std::optional(value) : std::nullopt;
}

std::optional<ReportPeriod> checked(const ReportPeriod& period)
{
    const bool isUsable = period.first.ok() && period.last.ok() && period.first <= period.last &&
                          period.first >= ReportPeriod::all().first && period.last <= ReportPeriod::all().last;
    return isUsable ? std::optional(period) : std::nullopt;
}

/// `count` months, counted from a month that is `offset` months after the first of the group of `size` months in which
/// `date` lies.
std::optional<ReportPeriod> monthsAround(CalendarDate date, int size, int offset, int count)
{
    const int monthOfYear = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
    const auto start = date.year() / month(1) + months(monthOfYear / size * size + offset);
    const auto end = start + months(count);
    return checked({start / day(1), CalendarDate(sys_days(end / day(1)) - days(1))});
}

std::optional<ReportPeriod> daysAround(CalendarDate date, int offset, int count)
{
    const sys_days start = sys_days(date) + days(offset);
    return checked({CalendarDate(start), CalendarDate(start + days(count - 1))});
}

struct Unit
{
    std::string_view word;
    int months; ///< 0: days
};

constexpr std::array units = {
    Unit{"day", 0}, Unit{"month", 1}, Unit{"quarter", 3}, Unit{"half-year", 6}, Unit{"year", 12}};

const Unit* unitNamed(std::string_view word)
{
    const auto found = std::ranges::find(units, word, &Unit::word);
    return found == units.end() ? nullptr : found;
}

/// `count` units, the first of them `offset` units after the one of today.
std::optional<ReportPeriod> unitsAround(CalendarDate today, const Unit& unit, int offset, int count)
{
    return unit.months == 0 ? daysAround(today, offset, count)
                            : monthsAround(today, unit.months, offset * unit.months, count * unit.months);
}

bool removePrefix(std::string_view& text, std::string_view prefix)
{
    const bool hasPrefix = text.starts_with(prefix);
    text.remove_prefix(hasPrefix ? prefix.size() : 0);
    return hasPrefix;
}

/// "3-months", after "last-".
std::optional<ReportPeriod> lastSeveral(std::string_view text, CalendarDate today)
{
    const std::size_t hyphen = text.find('-');
    const std::optional<int> count = number(text.substr(0, hyphen), 1, 4);
    if (!count || *count < 1 || *count > longestCount || hyphen == std::string_view::npos) {
        return std::nullopt;
    }
    std::string_view word = text.substr(hyphen + 1);
    word.remove_suffix(word.ends_with('s') ? 1 : 0);
    const Unit* unit = unitNamed(word);
    return unit == nullptr ? std::nullopt : unitsAround(today, *unit, -*count, *count);
}

/// "this-month", "last-quarter", "last-3-months".
std::optional<ReportPeriod> relative(std::string_view text, CalendarDate today)
{
    constexpr std::array<std::pair<std::string_view, int>, 3> words = {{{"this-", 0}, {"last-", -1}, {"next-", 1}}};
    for (const auto& [word, offset] : words) {
        std::string_view rest = text;
        if (removePrefix(rest, word)) {
            if (const Unit* unit = unitNamed(rest)) {
                return unitsAround(today, *unit, offset, 1);
            }
            return offset < 0 ? lastSeveral(rest, today) : std::nullopt;
        }
    }
    return std::nullopt;
}

std::optional<ReportPeriod> named(std::string_view text, CalendarDate today)
{
    if (text == "all") {
        return ReportPeriod::all();
    }
    if (text == "today") {
        return daysAround(today, 0, 1);
    }
    if (text == "yesterday") {
        return daysAround(today, -1, 1);
    }
    struct ToDate
    {
        std::string_view word;
        std::string_view shortWord;
        int months;
    };
    constexpr std::array toDate = {
        ToDate{"month-to-date", "mtd", 1}, ToDate{"quarter-to-date", "qtd", 3}, ToDate{"year-to-date", "ytd", 12}};
    for (const ToDate& period : toDate) {
        if (text == period.word || text == period.shortWord) {
            const auto whole = monthsAround(today, period.months, 0, period.months);
            return whole ? checked({whole->first, today}) : std::nullopt;
        }
    }
    return std::nullopt;
}

/// "q3" or "h2" of a year.
std::optional<ReportPeriod> partOfYear(std::string_view text, int inYear)
{
    const std::optional<int> part = number(text.substr(std::min<std::size_t>(1, text.size())), 1, 1);
    const int size = text.starts_with('q') ? 3 : 6;
    if ((!text.starts_with('q') && !text.starts_with('h')) || !part || *part < 1 || *part > 12 / size) {
        return std::nullopt;
    }
    return monthsAround(year(inYear) / 1 / 1, 12, (*part - 1) * size, size);
}

/// "2026", "2026-q3", "q3-2026", "2026-07", "2026-07-15".
std::optional<ReportPeriod> dated(std::string_view text, CalendarDate today)
{
    if (const std::optional<CalendarDate> date = parseISODate(text)) {
        return checked({*date, *date});
    }
    const std::size_t hyphen = text.find('-');
    const std::string_view head = text.substr(0, hyphen);
    const std::string_view tail = hyphen == std::string_view::npos ? std::string_view() : text.substr(hyphen + 1);
    const std::optional<int> headYear = number(head, 4, 4);
    if (headYear && hyphen == std::string_view::npos) {
        return monthsAround(year(*headYear) / 1 / 1, 12, 0, 12);
    }
    if (const std::optional<int> inMonth = number(tail, 2, 2); headYear && inMonth) {
        return *inMonth >= 1 && *inMonth <= 12 ? monthsAround(year(*headYear) / 1 / 1, 12, *inMonth - 1, 1)
                                               : std::nullopt;
    }
    if (headYear) {
        return partOfYear(tail, *headYear);
    }
    const std::optional<int> tailYear =
        hyphen == std::string_view::npos ? std::optional(static_cast<int>(today.year())) : number(tail, 4, 4);
    return tailYear ? partOfYear(head, *tailYear) : std::nullopt;
}

std::optional<ReportPeriod> single(std::string_view text, CalendarDate today)
{
    if (const auto period = named(text, today)) {
        return period;
    }
    if (const auto period = relative(text, today)) {
        return period;
    }
    return dated(text, today);
}

} // namespace

DateRange ReportPeriod::range(const Calendar& calendar) const
{
    return {calendar.startOfDay(first), calendar.startOfDay(CalendarDate(sys_days(last) + days(1)))};
}

std::optional<ReportPeriod> ReportPeriod::parse(std::string_view text, CalendarDate today)
{
    std::string plain = lowerCasedASCII(trimmed(text));
    std::ranges::replace_if(plain, [](char character) { return character == ' ' || character == '_'; }, '-');
    constexpr std::string_view between = "..";
    const std::size_t dots = plain.find(between);
    if (dots == std::string::npos) {
        return single(plain, today);
    }
    const auto from = single(std::string_view(plain).substr(0, dots), today);
    const auto to = single(std::string_view(plain).substr(dots + between.size()), today);
    return from && to ? checked({from->first, to->last}) : std::nullopt;
}

} // namespace Quillary
