// Whatever is typed as a time is refused or within its bounds, and what we write ourselves is read back.

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Schedules/TimeInput.h"
#include "QuillaryCore/Schedules/TimeMath.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

using namespace Quillary;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::array locales = {Locale("en_US"), Locale("de_DE"), Locale("fr_CH"), Locale("ar_EG")};
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    constexpr std::chrono::hours day{24};
    for (const Locale& locale : locales) {
        if (const auto seconds = TimeInput::duration(text, locale)) {
            precondition(*seconds > 0 && *seconds <= Limits::timeSeconds, "a length is within its bounds");
            precondition(TimeInput::duration(TimeMath::clock(*seconds), locale) == seconds,
                         "what we write is read back");
        }
    }
    if (const auto time = TimeInput::timeOfDay(text)) {
        precondition(time->count() >= 0 && *time <= day, "a time of the day is within the day");
    }
    if (const auto span = TimeInput::span(text)) {
        precondition(span->start.count() >= 0 && span->start < day && span->end > span->start &&
                         span->end <= span->start + day,
                     "a span has a length of at most a day");
    }
    if (const auto date = TimeInput::day(text, std::chrono::year(2026) / 1 / 1)) {
        precondition(date->ok(), "a day exists");
    }
    return 0;
}
