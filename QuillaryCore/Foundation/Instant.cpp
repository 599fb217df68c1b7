#include "QuillaryCore/Foundation/Instant.h"

#include <fmt/format.h>

namespace Quillary {

namespace {

/// The value of a run of digits, or no value when another character is among them.
std::optional<unsigned> digits(std::string_view text)
{
    unsigned value = 0;
    for (const char character : text) {
        if (character < '0' || character > '9') {
            return std::nullopt;
        }
        value = value * 10 + static_cast<unsigned>(character - '0');
    }
    return value;
}

} // namespace

std::string isoText(CalendarDate date)
{
    return fmt::format("{:04}-{:02}-{:02}",
                       static_cast<int>(date.year()),
                       static_cast<unsigned>(date.month()),
                       static_cast<unsigned>(date.day()));
}

std::optional<CalendarDate> parseISODate(std::string_view text)
{
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') {
        return std::nullopt;
    }
    const auto year = digits(text.substr(0, 4));
    const auto month = digits(text.substr(5, 2));
    const auto day = digits(text.substr(8, 2));
    if (!year || !month || !day) {
        return std::nullopt;
    }
    const CalendarDate date{
        std::chrono::year(static_cast<int>(*year)), std::chrono::month(*month), std::chrono::day(*day)};
    if (!date.ok()) {
        return std::nullopt;
    }
    return date;
}

} // namespace Quillary
