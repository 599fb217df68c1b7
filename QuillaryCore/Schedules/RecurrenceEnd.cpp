#include "QuillaryCore/Schedules/RecurrenceEnd.h"

namespace Quillary {

std::optional<RecurrenceEnd> recurrenceEndFromRaw(std::int16_t raw)
{
    for (const RecurrenceEnd end : allRecurrenceEnds) {
        if (static_cast<std::int16_t>(end) == raw) {
            return end;
        }
    }
    return std::nullopt;
}

std::string_view title(RecurrenceEnd end)
{
    switch (end) {
    case RecurrenceEnd::never:
        return "Never";
    case RecurrenceEnd::afterCount:
        return "After";
    case RecurrenceEnd::onDate:
        return "On";
    }
    return {};
}

} // namespace Quillary
