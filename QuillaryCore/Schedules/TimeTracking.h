#pragma once

#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Store/Ref.h"

#include <optional>
#include <string>
#include <vector>

namespace Quillary {

class Context;
struct Client;
struct Project;
struct TimeEntry;

/// Why time can't be recorded like this.
class TimeError : public UserError
{
public:
    enum class Reason {
        backwards, ///< the end lies before the start
        tooLong,   ///< more than `Limits::timeSeconds`
        inFuture,  ///< a timer can't begin or end there
        billed,    ///< it is on an invoice
        notRunning,
    };

    TimeError(Reason reason, const std::string& message)
        : UserError(message)
        , m_reason(reason)
    {
    }

    [[nodiscard]] Reason reason() const { return m_reason; }

private:
    Reason m_reason;
};

/// Recording time. A timer is an entry without an end: its start is all there is to it, so neither a crash nor a
/// machine that slept changes what it counted. Lengths are seconds that went by, whatever the clocks on the wall did.
///
/// Works in the caller's scope. Throws, where nothing else is said: `TimeError`, `StoreError`.
namespace TimeTracking {

/// What somebody works at.
struct Work
{
    Ref<Client> client = {};
    Ref<Project> project = {};
    std::string note = {};
    bool isBillable = true;
};

/// The timers that run, oldest first: one, unless another device that shares the library started one too.
[[nodiscard]] std::vector<const TimeEntry*> running(Context& context);

/// Starts a timer at an instant up to now. What runs is stopped at that instant: somebody works at one thing at a time.
TimeEntry& start(Context& context, const Work& work, Instant at);

/// Stops all timers at an instant up to now and returns them. A timer that began after it (the clock was set back) is
/// stopped where it began.
std::vector<const TimeEntry*> stop(Context& context, Instant at);

/// Records time that has passed, or that is planned.
TimeEntry& add(Context& context, const Work& work, Instant start, Instant end);

/// Fields that are to be different; those without a value stay.
struct Change
{
    std::optional<Ref<Client>> client = {};
    std::optional<Ref<Project>> project = {};
    std::optional<std::string> note = {};
    std::optional<bool> isBillable = {};
    std::optional<Instant> start = {};
    std::optional<Instant> end = {};
};

/// Changes an entry that is on no invoice.
void edit(Context& context, const TimeEntry& entry, const Change& change);

/// Deletes an entry that is on no invoice.
void erase(Context& context, const TimeEntry& entry);

/// The other entries that count some of the same time, oldest first; running ones until now. The user is told of them,
/// and decides.
[[nodiscard]] std::vector<const TimeEntry*> overlaps(Context& context, const TimeEntry& entry, Instant now);

} // namespace TimeTracking

} // namespace Quillary
