#pragma once

#include "QuillaryCore/Assistant/Tools/AssistantEnvironment.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Store/Field.h"

#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// The attributes of the business as people read and set them: every one of the model's own list, under a name made of
/// the field's ("hourlyRateMinorUnits" is "hourly_rate"). The checks, and their sentences, are those of the tools.
namespace BusinessSettings {

struct Entry
{
    std::string name;
    JSON value;       ///< amounts and rates as plain numbers, choices as words; a logo as its size in bytes
    std::string text; ///< the value on one line; empty: not set
    std::string note; ///< what follows from it: the next number of a pattern, or why there is none
};

/// In schema order.
[[nodiscard]] std::vector<Entry> all(const AssistantEnvironment& environment);

/// The name that was meant: dashes and case don't count. Throws: `AssistantError` when there is no such setting.
[[nodiscard]] std::string nameOf(std::string_view typed);

[[nodiscard]] Entry entry(const AssistantEnvironment& environment, std::string_view name);

/// The words that a setting is chosen from, each taken by `set`; none: it is typed or a flag.
[[nodiscard]] std::vector<std::string> choices(std::string_view name);

/// Whether its text may run over several lines.
[[nodiscard]] bool hasParagraphs(std::string_view name);

/// Reads and stores what was typed; an empty text clears a text. Works in the caller's scope. Throws: `AssistantError`
/// with the sentence for the screen, and nothing has changed.
void set(const AssistantEnvironment& environment, std::string_view name, std::string_view typed);

/// The one setting that isn't typed. Empty: no logo.
inline constexpr std::string_view logo = "logo";
void setLogo(const AssistantEnvironment& environment, Bytes png);

} // namespace BusinessSettings

} // namespace Quillary
