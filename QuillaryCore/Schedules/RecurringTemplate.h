#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Schedules/Recurrence.h"
#include "QuillaryCore/Schedules/RecurrenceEnd.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

struct Document;

/// What a template is shown as.
enum class RecurringState : std::uint8_t { active, paused, ended };

inline constexpr std::array allRecurringStates = {
    RecurringState::active, RecurringState::paused, RecurringState::ended};

/// "Active", "Paused", "Ended"
[[nodiscard]] std::string_view title(RecurringState state);

/// The schedule of a recurring template.
///
/// It starts on the template's `issueDate`, and `nextIssueDate` is the one invoice that comes next. The date after that
/// is always reckoned from the start: it is the first scheduled date after the next one, whatever was made, moved or
/// deleted meanwhile, so that two devices that share a library come to the same dates.
///
/// Damaged numbers are read as the nearest that make sense: an interval below 1 is 1, a day outside 1 to 31 is the
/// start's. A unit or an end rule that this version doesn't know is no schedule: nothing is made from it unasked.
namespace RecurringTemplate {

/// No value: the unit can't be read.
[[nodiscard]] std::optional<Recurrence> recurrence(const Document& recurring, const Calendar& calendar);

/// Whether unit and end rule can be read.
[[nodiscard]] bool isReadable(const Document& recurring);

/// True when nothing more will be made: the rule's count is reached, the next date lies after the last day, or there is
/// no next date.
[[nodiscard]] bool hasEnded(const Document& recurring, const Calendar& calendar);

/// A template that has ended is no longer paused.
[[nodiscard]] RecurringState state(const Document& recurring, const Calendar& calendar);

/// "Every month on the 31st", "Every 2 weeks, until 2026-12-31", "Every quarter on the 1st, 4 of 12 made"
[[nodiscard]] std::string summary(const Document& recurring, const Calendar& calendar);

/// The first scheduled date after a day. No value: no schedule, or no such date.
[[nodiscard]] std::optional<Instant> dateAfter(const Document& recurring, CalendarDate day, const Calendar& calendar);

/// Moves the next date on when an invoice was made for `made`; one that was made for an earlier day moves nothing.
void advance(Document& recurring, CalendarDate made, const Calendar& calendar);

/// The dates up to today that invoices have to be made for, oldest first, at most `limit`. None while paused.
[[nodiscard]] std::vector<CalendarDate>
dueDates(const Document& recurring, CalendarDate today, std::size_t limit, const Calendar& calendar);

/// The dates to come, the next one first, at most `limit`; also those that a paused template would have.
[[nodiscard]] std::vector<CalendarDate>
nextDates(const Document& recurring, std::size_t limit, const Calendar& calendar);

/// What becomes of dates that came and went while a template was paused. They are skipped, unless the user asks for
/// them: an invoice for a time in which the user wanted none is worse than one that is missing.
enum class MissedDates : std::uint8_t { skipped, madeUp };

/// Lets a paused template go on, from today. Returns how many dates were skipped; today's own is not.
std::size_t resume(Document& recurring, CalendarDate today, MissedDates missed, const Calendar& calendar);

} // namespace RecurringTemplate

} // namespace Quillary
