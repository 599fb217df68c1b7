#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/Locale.h"

#include <string_view>

namespace Quillary {

class Context;
struct TimeEntry;

/// When somebody worked.
struct WorkTimes
{
    Instant start;
    Instant end;

    /// What it takes to know days and to read what was typed.
    struct Setting
    {
        Instant now;
        const Calendar& calendar;
        const Locale& locale;
    };

    /// "9:00-10:30" on a day; of "1:30" only the length is known, so that it ends now if the day is today, and begins at
    /// nine or after the day's last entry if it is another. Throws: `UserError` for any other text, `StoreError`.
    [[nodiscard]] static WorkTimes
    read(Context& context, std::string_view text, CalendarDate day, const Setting& setting);

    /// The same for an entry that is there: a length alone leaves its start where it is on that day.
    [[nodiscard]] static WorkTimes
    readFor(Context& context, const TimeEntry& entry, std::string_view text, CalendarDate day, const Setting& setting);

    friend bool operator==(const WorkTimes&, const WorkTimes&) = default;
};

} // namespace Quillary
