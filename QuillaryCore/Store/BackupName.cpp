#include "QuillaryCore/Store/BackupName.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <set>
#include <utility>

namespace Quillary {

namespace {

using std::chrono::hours;
using std::chrono::local_days;
using std::chrono::minutes;
using std::chrono::seconds;

constexpr std::size_t keptDays = 14;
constexpr std::string_view suffix = ".sqlite";

constexpr std::array<std::pair<BackupKind, std::string_view>, 4> prefixes{{
    {BackupKind::automatic, "Quillary Auto Backup "},
    {BackupKind::manual, "Quillary Backup "},
    {BackupKind::beforeRestore, "Quillary Before Restore "},
    {BackupKind::beforeUpgrade, "Library before upgrade "},
}};

/// Exactly two digits below `limit`.
std::optional<int> twoDigits(std::string_view text, int limit)
{
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isWhole = error == std::errc() && end == text.data() + text.size() && text.size() == 2;
    return isWhole && text.front() != '-' && value < limit ? std::optional(value) : std::nullopt;
}

/// "14.03.22"
std::optional<seconds> parseTime(std::string_view text)
{
    if (text.size() != 8 || text[2] != '.' || text[5] != '.') {
        return std::nullopt;
    }
    const auto hour = twoDigits(text.substr(0, 2), 24);
    const auto minute = twoDigits(text.substr(3, 2), 60);
    const auto second = twoDigits(text.substr(6, 2), 60);
    if (!hour || !minute || !second) {
        return std::nullopt;
    }
    return hours(*hour) + minutes(*minute) + seconds(*second);
}

/// Without the " (2)" of a second file of one name.
std::string_view withoutNumber(std::string_view text)
{
    const std::size_t open = text.rfind(" (");
    if (open == std::string_view::npos || !text.ends_with(')')) {
        return text;
    }
    const std::string_view digits = text.substr(open + 2, text.size() - open - 3);
    const bool isNumber = !digits.empty() && std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '9'; });
    return isNumber ? text.substr(0, open) : text;
}

} // namespace

std::string BackupName::text() const
{
    const auto* prefix = std::ranges::find(prefixes, kind, &std::pair<BackupKind, std::string_view>::first);
    const auto day = std::chrono::floor<std::chrono::days>(made);
    std::string result = fmt::format("{}{}", prefix->second, isoText(CalendarDate(day)));
    if (kind != BackupKind::automatic) {
        const std::chrono::hh_mm_ss time(made - day);
        result +=
            fmt::format(" {:02}.{:02}.{:02}", time.hours().count(), time.minutes().count(), time.seconds().count());
    }
    return result.append(suffix);
}

std::optional<BackupName> BackupName::parse(std::string_view name)
{
    const auto* prefix =
        std::ranges::find_if(prefixes, [&](const auto& candidate) { return name.starts_with(candidate.second); });
    if (prefix == prefixes.end() || !name.ends_with(suffix)) {
        return std::nullopt;
    }
    name.remove_prefix(prefix->second.size());
    name.remove_suffix(suffix.size());
    constexpr std::size_t dayLength = 10;
    const auto day = parseISODate(name.substr(0, dayLength));
    if (!day) {
        return std::nullopt;
    }
    const std::string_view rest = name.substr(dayLength);
    if (prefix->first == BackupKind::automatic) {
        return rest.empty() ? std::optional(BackupName{prefix->first, local_days(*day)}) : std::nullopt;
    }
    if (!rest.starts_with(' ')) {
        return std::nullopt;
    }
    const auto time = parseTime(withoutNumber(rest.substr(1)));
    return time ? std::optional(BackupName{prefix->first, local_days(*day) + *time}) : std::nullopt;
}

std::vector<CalendarDate> expendableBackups(std::vector<CalendarDate> made, CalendarDate today)
{
    std::erase_if(made, [today](CalendarDate day) { return day > today; });
    std::ranges::sort(made, std::greater());
    std::vector<CalendarDate> expendable;
    std::set<std::chrono::year_month> months;
    for (std::size_t i = 0; i < made.size(); ++i) {
        const bool isLastOfMonth = months.insert(made[i].year() / made[i].month()).second;
        if (i >= keptDays && !isLastOfMonth) {
            expendable.push_back(made[i]);
        }
    }
    return expendable;
}

} // namespace Quillary
