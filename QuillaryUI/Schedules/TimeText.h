#pragma once

#include "QuillaryCore/Foundation/Calendar.h"

#include <QString>

namespace Quillary {

class Context;
struct TimeEntry;

/// Working time in words.
namespace TimeText {

/// "9:00–10:30"
[[nodiscard]] QString span(const Calendar& calendar, Instant start, Instant end);

/// The number of the invoice that has it, "On a draft", "Not billable"; empty for what can be billed.
[[nodiscard]] QString billed(Context& context, const TimeEntry& entry);

} // namespace TimeText

} // namespace Quillary
