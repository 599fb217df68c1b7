#pragma once

#include "QuillaryCore/Foundation/Calendar.h"

#include <optional>

namespace Quillary {

/// Whether what is done once a day is due: at the first look, and at the first after each midnight.
///
/// Meant to be asked every now and then, not to be waited for: a machine that slept, or whose clock was set, is noticed
/// at the next look. A clock that was set back makes another day too, so that one set forward by mistake stops nothing.
class DailyRun
{
public:
    [[nodiscard]] bool isDue(Instant now, const Calendar& calendar) const { return calendar.date(now) != m_done; }

    void didRun(Instant now, const Calendar& calendar) { m_done = calendar.date(now); }

private:
    std::optional<CalendarDate> m_done;
};

} // namespace Quillary
