#include "QuillaryCore/Foundation/Calendar.h"

#include "QuillaryCore/Foundation/Precondition.h"

#include <unicode/basictz.h>
#include <unicode/timezone.h>
#include <unicode/tztrans.h>
#include <unicode/unistr.h>

#include <algorithm>

namespace Quillary {

namespace {

using std::chrono::days;
using std::chrono::local_days;
using std::chrono::local_time;
using std::chrono::milliseconds;
using namespace std::chrono_literals;

using LocalInstant = local_time<milliseconds>;

// The years that four digits can write; everything beyond counts as the nearest of them.
constexpr local_days firstDay{std::chrono::year(0) / 1 / 1};
constexpr local_days lastDay{std::chrono::year(9999) / 12 / 31};
constexpr Instant firstInstant{(firstDay - days(2)).time_since_epoch()};
constexpr Instant lastInstant{(lastDay + days(2)).time_since_epoch()};

double icuTime(milliseconds sinceEpoch)
{
    return static_cast<double>(sinceEpoch.count()); // exact: below 2^53 for every year with four digits
}

local_days dayNumber(CalendarDate date)
{
    return std::clamp(local_days(date), firstDay, lastDay);
}

std::unique_ptr<icu::BasicTimeZone> zoneNamed(std::string_view name)
{
    constexpr std::size_t longestName = 200;
    const auto id = icu::UnicodeString::fromUTF8(name.substr(0, longestName));
    std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createTimeZone(id));
    if (zone == nullptr || *zone == icu::TimeZone::getUnknown()) {
        zone.reset(icu::TimeZone::createTimeZone("UTC"));
    }
    auto* basic = dynamic_cast<icu::BasicTimeZone*>(zone.get());
    precondition(basic != nullptr, "ICU's time zones know their transitions");
    zone.release(); // NOLINT(bugprone-unused-return-value): `basic` is the same object
    return std::unique_ptr<icu::BasicTimeZone>(basic);
}

} // namespace

struct Calendar::Zone
{
    std::unique_ptr<icu::BasicTimeZone> rules;

    [[nodiscard]] milliseconds offset(Instant instant) const
    {
        std::int32_t standard = 0;
        std::int32_t saving = 0;
        UErrorCode status = U_ZERO_ERROR;
        rules->getOffset(icuTime(instant.time_since_epoch()), 0, standard, saving, status);
        return U_SUCCESS(status) != 0 ? milliseconds(standard + saving) : 0ms;
    }

    [[nodiscard]] LocalInstant local(Instant instant) const
    {
        const Instant near = std::clamp(instant, firstInstant, lastInstant);
        const LocalInstant result{near.time_since_epoch() + offset(near)};
        return std::clamp(result, LocalInstant(firstDay), LocalInstant(lastDay + days(1)) - 1ms);
    }

    /// The first instant at which clocks show `time`, or, where they skip it, the instant of the skip.
    [[nodiscard]] Instant instant(LocalInstant time) const
    {
        std::int32_t standard = 0;
        std::int32_t saving = 0;
        UErrorCode status = U_ZERO_ERROR;
        rules->getOffsetFromLocal(
            icuTime(time.time_since_epoch()), UCAL_TZ_LOCAL_FORMER, UCAL_TZ_LOCAL_FORMER, standard, saving, status);
        const milliseconds before = U_SUCCESS(status) != 0 ? milliseconds(standard + saving) : 0ms;
        const Instant result{time.time_since_epoch() - before};
        if (offset(result) == before) {
            return result;
        }
        icu::TimeZoneTransition transition;
        if (rules->getPreviousTransition(icuTime(result.time_since_epoch()), 1, transition) != 0) {
            return Instant(milliseconds(static_cast<std::int64_t>(transition.getTime())));
        }
        return result;
    }

    [[nodiscard]] local_days day(Instant instant) const { return std::chrono::floor<days>(local(instant)); }

    /// Ten o'clock in Greenwich, which is the same day from Hawaii to New Zealand in summer; local noon where it isn't.
    [[nodiscard]] Instant storedDay(local_days number) const
    {
        const Instant everywhere = Instant(number.time_since_epoch()) + 10h;
        return day(everywhere) == number ? everywhere : instant(LocalInstant(number) + 12h);
    }
};

Calendar::Calendar(std::string_view timeZone)
    : m_zone(std::make_unique<Zone>(zoneNamed(timeZone)))
{
}

Calendar::Calendar(const Calendar& other)
    : m_zone(std::make_unique<Zone>(std::unique_ptr<icu::BasicTimeZone>(other.m_zone->rules->clone())))
{
}

Calendar& Calendar::operator=(const Calendar& other)
{
    if (this != &other) {
        *this = Calendar(other);
    }
    return *this;
}

Calendar::Calendar(Calendar&&) noexcept = default;
Calendar& Calendar::operator=(Calendar&&) noexcept = default;
Calendar::~Calendar() = default;

std::string Calendar::timeZone() const
{
    icu::UnicodeString id;
    std::string result;
    return m_zone->rules->getID(id).toUTF8String(result);
}

CalendarDate Calendar::date(Instant instant) const
{
    return CalendarDate(m_zone->day(instant));
}

milliseconds Calendar::timeOfDay(Instant instant) const
{
    return m_zone->local(instant) - m_zone->day(instant);
}

Instant Calendar::startOfDay(CalendarDate date) const
{
    return m_zone->instant(LocalInstant(dayNumber(date)));
}

Instant Calendar::startOfDay(Instant instant) const
{
    return m_zone->instant(LocalInstant(m_zone->day(instant)));
}

Instant Calendar::storedDay(CalendarDate date) const
{
    return m_zone->storedDay(dayNumber(date));
}

Instant Calendar::instant(CalendarDate date, milliseconds timeOfDay) const
{
    const LocalInstant last = LocalInstant(lastDay + days(1)) - 1ms;
    return m_zone->instant(std::clamp(dayNumber(date) + timeOfDay, LocalInstant(firstDay), last));
}

int Calendar::daysBetween(Instant from, Instant to) const
{
    return static_cast<int>((m_zone->day(to) - m_zone->day(from)).count());
}

Instant Calendar::addingDays(Instant instant, int count) const
{
    // In 64 bits: the sum must not wrap before it is brought back into the calendar's years.
    const std::int64_t number = std::int64_t{m_zone->day(instant).time_since_epoch().count()} + count;
    const std::int64_t first = firstDay.time_since_epoch().count();
    const std::int64_t last = lastDay.time_since_epoch().count();
    const local_days day{days(static_cast<int>(std::clamp(number, first, last)))};
    return m_zone->storedDay(day);
}

} // namespace Quillary
