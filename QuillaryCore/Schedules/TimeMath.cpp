#include "QuillaryCore/Schedules/TimeMath.h"

#include "QuillaryCore/Foundation/CheckedInteger.h"

#include <fmt/format.h>

#include <algorithm>

namespace Quillary {

namespace {

constexpr std::int64_t secondsPerMinute = 60;
constexpr std::int64_t secondsPerHour = 3600;
constexpr std::int64_t thousand = 1000;

std::int64_t atLeastNone(std::int64_t seconds)
{
    return std::max<std::int64_t>(seconds, 0);
}

} // namespace

std::int64_t TimeMath::roundUp(std::int64_t seconds, std::int64_t minutes)
{
    if (minutes < 1 || seconds < 1) {
        return atLeastNone(seconds);
    }
    const std::int64_t step = checkedMultiply(minutes, secondsPerMinute);
    return checkedMultiply(checkedAdd(seconds, step - 1) / step, step);
}

std::int64_t TimeMath::amount(std::int64_t seconds, std::int64_t hourlyRate)
{
    return checkedAdd(checkedMultiply(atLeastNone(seconds), hourlyRate), secondsPerHour / 2) / secondsPerHour;
}

std::int64_t TimeMath::thousandthsOfHours(std::int64_t seconds)
{
    return checkedMultiply(atLeastNone(seconds), thousand) / secondsPerHour;
}

std::string TimeMath::hoursAndMinutes(std::int64_t seconds)
{
    const std::int64_t counted = atLeastNone(seconds);
    return fmt::format("{}:{:02}", counted / secondsPerHour, counted / secondsPerMinute % 60);
}

std::string TimeMath::clock(std::int64_t seconds)
{
    const std::int64_t counted = atLeastNone(seconds);
    return fmt::format("{}:{:02}", hoursAndMinutes(counted), counted % secondsPerMinute);
}

} // namespace Quillary
