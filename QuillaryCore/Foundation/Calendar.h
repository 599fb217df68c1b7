#pragma once

#include "QuillaryCore/Foundation/Instant.h"

#include <memory>
#include <string>
#include <string_view>

namespace Quillary {

/// The Gregorian calendar in one time zone. A value: cheap to copy, safe to keep.
///
/// Days are counted as whole numbers and zone offsets come from ICU's data, so no calendar arithmetic walks field by
/// field. Where the clock skips midnight, a day starts at the first instant that exists; where midnight occurs twice,
/// at the first of the two.
class Calendar
{
public:
    /// `timeZone` is an IANA name such as "Europe/Berlin". An unknown name reads as UTC.
    explicit Calendar(std::string_view timeZone);
    Calendar(const Calendar& other);
    Calendar& operator=(const Calendar& other);
    Calendar(Calendar&&) noexcept;
    Calendar& operator=(Calendar&&) noexcept;
    ~Calendar();

    [[nodiscard]] std::string timeZone() const;

    /// The day on which an instant falls.
    [[nodiscard]] CalendarDate date(Instant instant) const;

    /// What a clock on the wall shows, as the time since midnight.
    [[nodiscard]] std::chrono::milliseconds timeOfDay(Instant instant) const;

    /// The first instant of a day.
    [[nodiscard]] Instant startOfDay(CalendarDate date) const;
    [[nodiscard]] Instant startOfDay(Instant instant) const;

    /// An instant of a day: how a day that a person picked is stored. It stays the same day when the program runs in
    /// another time zone later, as long as both lie between UTC-10 (Hawaii) and UTC+13:45 (Chatham in summer).
    [[nodiscard]] Instant storedDay(CalendarDate date) const;

    /// The first instant at which clocks show this time on this day; where they skip it, the instant of the skip.
    [[nodiscard]] Instant instant(CalendarDate date, std::chrono::milliseconds timeOfDay) const;

    /// Whole calendar days from the day of `from` to the day of `to`; negative when `to` is earlier.
    [[nodiscard]] int daysBetween(Instant from, Instant to) const;

    /// The same number of calendar days later, as `storedDay` of that day.
    [[nodiscard]] Instant addingDays(Instant instant, int days) const;

private:
    struct Zone;

    std::unique_ptr<Zone> m_zone;
};

} // namespace Quillary
