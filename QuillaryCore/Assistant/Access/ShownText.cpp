#include "QuillaryCore/Assistant/Access/ShownText.h"

#include "QuillaryCore/Assistant/Access/AssistantClient.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UTF8.h"

#include <fmt/format.h>

#include <charconv>
#include <chrono>

namespace Quillary::ShownText {

namespace {

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

/// Two digits, or three. No value: anything else.
std::optional<int> digits(std::string_view text)
{
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() && text[0] != '-' ? std::optional(value)
                                                                                      : std::nullopt;
}

} // namespace

std::string line(std::string_view text, std::size_t longest)
{
    std::string result;
    bool isGap = false;
    for (std::size_t count = 0; !text.empty();) {
        const DecodedCharacter character = decodeFirst(text);
        const std::string_view bytes = text.substr(0, character.length);
        text.remove_prefix(character.length);
        if (trimmed(bytes).empty()) {
            isGap = !result.empty();
            continue;
        }
        if (character.scalar && hasControlCharacter(bytes)) {
            continue;
        }
        if (count + (isGap ? 1 : 0) >= longest) {
            return result + "…";
        }
        count += isGap ? 2 : 1;
        result += isGap ? " " : "";
        isGap = false;
        result += character.scalar ? bytes : replacementCharacter;
    }
    return result;
}

std::string assistantName(std::string_view displayName)
{
    std::string name = line(displayName, longestName);
    return name.empty() ? AssistantClient().displayName : name;
}

std::string timestamp(Instant instant)
{
    const auto day = std::chrono::floor<std::chrono::days>(instant);
    const std::chrono::hh_mm_ss time(instant - day);
    return fmt::format("{}T{:02}:{:02}:{:02}.{:03}Z",
                       isoText(CalendarDate(day)),
                       time.hours().count(),
                       time.minutes().count(),
                       time.seconds().count(),
                       time.subseconds().count());
}

std::optional<Instant> parseTimestamp(std::string_view text)
{
    constexpr std::string_view form = "YYYY-MM-DDThh:mm:ss.mmmZ";
    if (text.size() != form.size() || text[10] != 'T' || text[13] != ':' || text[16] != ':' || text[19] != '.' ||
        text[23] != 'Z') {
        return std::nullopt;
    }
    const auto date = parseISODate(text.substr(0, 10));
    const auto hours = digits(text.substr(11, 2));
    const auto minutes = digits(text.substr(14, 2));
    const auto seconds = digits(text.substr(17, 2));
    const auto milliseconds = digits(text.substr(20, 3));
    if (!date || !hours || !minutes || !seconds || !milliseconds || *hours > 23 || *minutes > 59 || *seconds > 59) {
        return std::nullopt;
    }
    return std::chrono::sys_days(*date) + std::chrono::hours(*hours) + std::chrono::minutes(*minutes) +
           std::chrono::seconds(*seconds) + std::chrono::milliseconds(*milliseconds);
}

} // namespace Quillary::ShownText
