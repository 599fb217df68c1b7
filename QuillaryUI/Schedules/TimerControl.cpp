#include "QuillaryUI/Schedules/TimerControl.h"

#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Schedules/TimeInvoicing.h"
#include "QuillaryCore/Schedules/TimeMath.h"
#include "QuillaryCore/Schedules/TimeTracking.h"
#include "QuillaryCore/Store/Context.h"

#include <QCoreApplication>

#include <algorithm>

namespace Quillary::TimerControl {

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(TimerControl)
};

} // namespace

QString clockText(const LibraryAccess& library)
{
    std::int64_t seconds = 0;
    if (library.isOpen()) {
        const auto running = TimeTracking::running(library.context());
        seconds = running.empty() ? 0 : TimeInvoicing::duration(*running.front(), library.now());
    }
    return text(TimeMath::clock(std::max<std::int64_t>(seconds, 0)));
}

Outcome stop(const LibraryAccess& library)
{
    std::int64_t seconds = 0;
    const auto refusal = library.perform(Words::tr("Stop Timer"), [&] {
        for (const TimeEntry* entry : TimeTracking::stop(library.context(), library.now())) {
            seconds = std::max(seconds, TimeInvoicing::duration(*entry, library.now()));
        }
    });
    if (refusal) {
        return {*refusal, true};
    }
    return {Words::tr("%1 hours were recorded.").arg(text(TimeMath::hoursAndMinutes(seconds)))};
}

} // namespace Quillary::TimerControl
