// Whatever is typed as a period, it is refused or it is a stretch of days that the calendar knows.

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Reports/ReportPeriod.h"

#include <fuzzer/FuzzedDataProvider.h>
#include <string>

namespace Quillary {

namespace {

void read(const std::string& text, CalendarDate today)
{
    static const Calendar calendar("Europe/Berlin");
    const auto period = ReportPeriod::parse(text, today);
    if (!period) {
        return;
    }
    precondition(period->first.ok() && period->last.ok(), "a period has days that exist");
    precondition(period->first <= period->last, "a period begins before it ends");
    const DateRange range = period->range(calendar);
    precondition(range.start < range.end, "a period lasts at least a day");
    const std::string days = isoText(period->first) + ".." + isoText(period->last);
    precondition(ReportPeriod::parse(days, today) == period, "days name the period again");
}

} // namespace

} // namespace Quillary

// NOLINTNEXTLINE(readability-identifier-naming): the fuzzer calls it by this name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    constexpr int knownDays = 9998 * 365;
    const Quillary::CalendarDate today(std::chrono::sys_days(std::chrono::year(1) / 1 / 1) +
                                       std::chrono::days(input.ConsumeIntegralInRange<int>(0, knownDays)));
    Quillary::read(input.ConsumeRemainingBytesAsString(), today);
    return 0;
}
