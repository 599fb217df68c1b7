#include "QuillaryCore/Model/ReminderLevel.h"

#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Reminder.h"

namespace Quillary {

std::optional<ReminderLevel> reminderLevelFromRaw(std::int16_t raw)
{
    if (raw < 1 || raw > 3) {
        return std::nullopt;
    }
    return static_cast<ReminderLevel>(raw);
}

std::optional<ReminderLevel> level(const Reminder& reminder)
{
    return reminderLevelFromRaw(reminder.level);
}

std::string_view title(ReminderLevel level)
{
    switch (level) {
    case ReminderLevel::first:
        return "Payment Reminder";
    case ReminderLevel::second:
        return "Second Reminder";
    case ReminderLevel::final:
        return "Final Notice";
    }
    return {};
}

ReminderLevel lateFeeStartLevel(const Business& business)
{
    return reminderLevelFromRaw(business.lateFeeFromLevel).value_or(ReminderLevel::second);
}

void setLateFeeStartLevel(Business& business, ReminderLevel level)
{
    business.lateFeeFromLevel = static_cast<std::int16_t>(level);
}

} // namespace Quillary
