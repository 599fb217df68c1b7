#include "QuillaryCore/Schedules/RecurrenceUnit.h"

namespace Quillary {

std::optional<RecurrenceUnit> recurrenceUnitFromRaw(std::int16_t raw)
{
    for (const RecurrenceUnit unit : allRecurrenceUnits) {
        if (static_cast<std::int16_t>(unit) == raw) {
            return unit;
        }
    }
    return std::nullopt;
}

std::string_view title(RecurrenceUnit unit, std::int64_t count)
{
    switch (unit) {
    case RecurrenceUnit::week:
        return count == 1 ? "week" : "weeks";
    case RecurrenceUnit::month:
        return count == 1 ? "month" : "months";
    case RecurrenceUnit::quarter:
        return count == 1 ? "quarter" : "quarters";
    case RecurrenceUnit::year:
        return count == 1 ? "year" : "years";
    }
    return {};
}

} // namespace Quillary
