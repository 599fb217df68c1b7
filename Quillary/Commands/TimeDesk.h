#pragma once

#include "QuillaryCore/Assistant/Tools/AssistantEnvironment.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Schedules/TimeInput.h"
#include "QuillaryCore/Schedules/WorkTimes.h"
#include "QuillaryCore/Store/Ref.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

struct Client;
struct Project;
struct TimeEntry;

/// What a person typed about time, read against the library; and time entries as a terminal and programs read them.
/// Borrows the environment. Throws: `UserError` for what can't be read or found.
class TimeDesk
{
public:
    explicit TimeDesk(const AssistantEnvironment& environment)
        : m_environment(environment)
    {
    }

    [[nodiscard]] const AssistantEnvironment& environment() const { return m_environment; }
    [[nodiscard]] Context& context() const { return m_environment.context; }
    [[nodiscard]] Instant now() const { return m_environment.clock.now(); }
    [[nodiscard]] CalendarDate today() const { return m_environment.calendar.date(now()); }

    /// An empty name stands for none.
    [[nodiscard]] Ref<Client> client(std::string_view name) const;
    [[nodiscard]] Ref<Project> project(std::string_view name) const;
    [[nodiscard]] CalendarDate day(std::string_view text) const;

    /// A time of today.
    [[nodiscard]] Instant momentOfToday(std::string_view text) const;

    /// What was typed about a day's work.
    [[nodiscard]] WorkTimes times(std::string_view text, CalendarDate day) const;

    /// The entry of a list: the first digits of its id, or "last" for the one that began last.
    [[nodiscard]] const TimeEntry& entry(std::string_view asked) const;

    /// "2026-03-03 9:00–10:30, 1:30 h, Acme, Website, Fixing the menu [3F2504E0]"; a timer is "2026-03-03 since 9:00, …".
    [[nodiscard]] std::string sentence(const TimeEntry& entry) const;
    [[nodiscard]] std::string table(const std::vector<const TimeEntry*>& entries) const;
    [[nodiscard]] JSON data(const TimeEntry& entry) const;
    [[nodiscard]] JSON data(const std::vector<const TimeEntry*>& entries) const;

    /// A line for each entry that counts some of the same time; empty when there is none.
    [[nodiscard]] std::string overlapWarning(const TimeEntry& entry) const;

private:
    [[nodiscard]] std::string timesText(const TimeEntry& entry) const;
    [[nodiscard]] std::string clockText(Instant instant) const;
    [[nodiscard]] std::string clientName(const TimeEntry& entry) const;
    [[nodiscard]] std::string projectName(const TimeEntry& entry) const;
    [[nodiscard]] std::string billedOn(const TimeEntry& entry) const;

    const AssistantEnvironment& m_environment;
};

} // namespace Quillary
