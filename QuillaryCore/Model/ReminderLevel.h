#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace Quillary {

struct Business;
struct Reminder;

/// How urgent a payment reminder is, as stored in `Reminder::level`. 0 is no level.
enum class ReminderLevel : std::int16_t {
    first = 1,
    second = 2,
    final = 3,
};

/// No value: a stored number that no level has.
[[nodiscard]] std::optional<ReminderLevel> reminderLevelFromRaw(std::int16_t raw);

[[nodiscard]] std::optional<ReminderLevel> level(const Reminder& reminder);

/// "Payment Reminder", "Second Reminder", "Final Notice": the English word of the screen.
[[nodiscard]] std::string_view title(ReminderLevel level);

/// The first level that carries a late fee. A business that never chose starts with the second reminder.
[[nodiscard]] ReminderLevel lateFeeStartLevel(const Business& business);
void setLateFeeStartLevel(Business& business, ReminderLevel level);

} // namespace Quillary
