#include "QuillaryCore/Schedules/TimeInput.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Money/Quantity.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

using std::chrono::hours;
using std::chrono::minutes;

constexpr std::int64_t secondsPerMinute = 60;
constexpr std::int64_t secondsPerHour = 3600;
constexpr std::int64_t thousand = 1000;

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

/// A run of digits that fits, and is not longer than any time needs. No value: anything else.
std::optional<std::int64_t> wholeNumber(std::string_view text)
{
    constexpr std::size_t mostDigits = 9;
    if (text.empty() || text.size() > mostDigits || !std::ranges::all_of(text, isDigit)) {
        return std::nullopt;
    }
    std::int64_t value = 0;
    for (const char digit : text) {
        value = value * 10 + (digit - '0');
    }
    return value;
}

/// What a unit of time counts. No value: no unit.
std::optional<std::int64_t> secondsOfUnit(std::string_view word)
{
    constexpr std::array hourWords = {"h",
                                      "hr",
                                      "hrs",
                                      "hour",
                                      "hours",
                                      "std",
                                      "std.",
                                      "stunde",
                                      "stunden",
                                      "heure",
                                      "heures",
                                      "hora",
                                      "horas",
                                      "u",
                                      "uur",
                                      "ore",
                                      "ora"};
    constexpr std::array minuteWords = {
        "m", "min", "min.", "mins", "minute", "minutes", "minuten", "minutos", "minuti"};
    if (std::ranges::find(hourWords, word) != hourWords.end()) {
        return secondsPerHour;
    }
    if (std::ranges::find(minuteWords, word) != minuteWords.end()) {
        return secondsPerMinute;
    }
    return std::nullopt;
}

std::optional<std::int64_t> clockDuration(std::string_view text)
{
    const std::vector<std::string_view> parts = split(text, ':');
    if (parts.size() < 2 || parts.size() > 3) {
        return std::nullopt;
    }
    std::int64_t seconds = 0;
    for (std::size_t index = 0; index < parts.size(); ++index) {
        const std::optional<std::int64_t> value = wholeNumber(parts[index]);
        // After a colon stand two digits: "1:5" could be five minutes or half an hour.
        if (!value || (index > 0 && (parts[index].size() != 2 || *value >= 60))) {
            return std::nullopt;
        }
        seconds = seconds * 60 + *value;
    }
    return parts.size() == 2 ? seconds * 60 : seconds;
}

/// A number and the word after it.
struct Measure
{
    std::string_view number;
    std::string_view unit;
};

/// "1h 30m" as two measures; "1h30" as one and a number without a unit.
std::vector<Measure> measures(std::string_view text)
{
    const auto isOfNumber = [](char byte) {
        return isDigit(byte) || byte == '.' || byte == ',';
    };
    std::vector<Measure> found;
    while (!(text = trimmed(text)).empty()) {
        const auto unit = std::ranges::find_if_not(text, isOfNumber);
        const auto numberLength = static_cast<std::size_t>(unit - text.begin());
        const std::string_view rest = trimmed(text.substr(numberLength));
        const auto wordLength = static_cast<std::size_t>(std::ranges::find_if(rest, isDigit) - rest.begin());
        found.push_back({.number = text.substr(0, numberLength), .unit = trimmed(rest.substr(0, wordLength))});
        text = rest.substr(wordLength);
    }
    return found;
}

/// A decimal number of a unit, to the nearest second.
std::optional<std::int64_t> measured(std::string_view number, std::int64_t unitSeconds, const Locale& locale)
{
    const std::optional<std::int64_t> thousandths = Quantity::parse(number, locale);
    if (!thousandths || *thousandths < 0 || *thousandths > Limits::timeSeconds) {
        return std::nullopt;
    }
    return (*thousandths * unitSeconds + thousand / 2) / thousand;
}

std::optional<std::int64_t> measuredDuration(std::string_view text, const Locale& locale)
{
    const std::vector<Measure> parts = measures(text);
    if (parts.empty() || parts.size() > 2) {
        return std::nullopt;
    }
    if (parts.size() == 1 && parts[0].unit.empty()) {
        const bool hasFraction = parts[0].number.find_first_of(".,") != std::string_view::npos;
        return hasFraction ? measured(parts[0].number, secondsPerHour, locale) : std::nullopt;
    }
    const std::optional<std::int64_t> unit = secondsOfUnit(parts[0].unit);
    const std::optional<std::int64_t> first = unit ? measured(parts[0].number, *unit, locale) : std::nullopt;
    if (!first || parts.size() == 1) {
        return first;
    }
    // After hours come whole minutes, with their unit or without.
    const std::optional<std::int64_t> rest = wholeNumber(parts[1].number);
    const bool isMinutes = parts[1].unit.empty() || secondsOfUnit(parts[1].unit) == secondsPerMinute;
    if (unit != secondsPerHour || !wholeNumber(parts[0].number) || !rest || !isMinutes || *rest >= 60) {
        return std::nullopt;
    }
    return *first + *rest * secondsPerMinute;
}

/// Takes "am" or "pm" off the end.
std::optional<bool> takeHalfOfDay(std::string_view& text)
{
    for (const auto& [word, isAfternoon] : {std::pair("am", false), std::pair("pm", true)}) {
        if (text.ends_with(word)) {
            text = trimmed(text.substr(0, text.size() - std::string_view(word).size()));
            return isAfternoon;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<std::int64_t> TimeInput::duration(std::string_view text, const Locale& locale)
{
    const std::string lowered = lowerCasedASCII(trimmed(text));
    const std::optional<std::int64_t> seconds =
        lowered.find(':') == std::string::npos ? measuredDuration(lowered, locale) : clockDuration(lowered);
    return seconds && *seconds > 0 && *seconds <= Limits::timeSeconds ? seconds : std::nullopt;
}

std::optional<minutes> TimeInput::timeOfDay(std::string_view text)
{
    const std::string lowered = lowerCasedASCII(trimmed(text));
    std::string_view rest = lowered;
    const std::optional<bool> isAfternoon = takeHalfOfDay(rest);
    const std::size_t mark = std::min(rest.find_first_of(":.h"), rest.size());
    const std::string_view minuteText = mark == rest.size() ? "" : rest.substr(mark + 1);
    const bool hasMinutes = !minuteText.empty();
    const bool endsInMark = mark + 1 == rest.size() && rest[mark] != 'h'; // "9h" is nine o'clock, "9:" is nothing
    std::optional<std::int64_t> hour = wholeNumber(rest.substr(0, mark));
    const std::optional<std::int64_t> minute =
        hasMinutes ? wholeNumber(minuteText) : std::optional<std::int64_t>(std::int64_t{0});
    if (!hour || !minute || endsInMark || (hasMinutes && minuteText.size() != 2) || *minute >= 60) {
        return std::nullopt;
    }
    if (isAfternoon) {
        if (*hour < 1 || *hour > 12) {
            return std::nullopt;
        }
        hour = *hour % 12 + (*isAfternoon ? 12 : 0);
    }
    const minutes time = hours(*hour) + minutes(*minute);
    return *hour <= 24 && time <= hours(24) ? std::optional(time) : std::nullopt;
}

std::optional<TimeInput::Span> TimeInput::span(std::string_view text)
{
    for (const std::string_view mark : {"–", "—", " to ", " bis ", "-"}) {
        const std::size_t position = text.find(mark);
        if (position == std::string_view::npos) {
            continue;
        }
        const std::optional<minutes> start = timeOfDay(text.substr(0, position));
        std::optional<minutes> end = timeOfDay(text.substr(position + mark.size()));
        if (!start || !end || *start == hours(24)) {
            return std::nullopt;
        }
        if (*end <= *start) {
            *end += hours(24);
        }
        return Span{.start = *start, .end = *end};
    }
    return std::nullopt;
}

std::optional<CalendarDate> TimeInput::day(std::string_view text, CalendarDate today)
{
    const std::string word = lowerCasedASCII(trimmed(text));
    if (word == "today") {
        return today;
    }
    if (word == "yesterday") {
        return CalendarDate(std::chrono::sys_days(today) - std::chrono::days(1));
    }
    return parseISODate(word);
}

} // namespace Quillary
