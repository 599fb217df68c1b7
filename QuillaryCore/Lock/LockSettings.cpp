#include "QuillaryCore/Lock/LockSettings.h"

#include "QuillaryCore/Lock/Passphrase.h"

#include <algorithm>
#include <cstdint>

namespace Quillary {

namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr std::int64_t currentVersion = 1;
constexpr int freeAttempts = 3; ///< fingers slip
constexpr seconds firstWait{5};
constexpr seconds longestWait{300};
constexpr int mostCounted = 1'000;
constexpr std::int64_t latestInstant = 253'402'300'799'999; ///< the end of the year 9999

std::optional<std::int64_t> number(const JSON& object, std::string_view key, std::int64_t largest)
{
    const JSON* value = object.find(key);
    const auto read = value == nullptr ? std::nullopt : value->integer();
    return read && *read >= 0 && *read <= largest ? read : std::nullopt;
}

} // namespace

seconds LockSettings::wait(Instant now) const
{
    if (wrongAttempts < freeAttempts || !lastWrongAt || now < *lastWrongAt) {
        return {}; // a clock that was set back keeps nobody out for a year
    }
    seconds whole = firstWait;
    for (int doubled = freeAttempts; doubled < wrongAttempts && whole < longestWait; ++doubled) {
        whole *= 2;
    }
    const milliseconds left = std::min(whole, longestWait) - (now - *lastWrongAt);
    return std::max(std::chrono::ceil<seconds>(left), seconds(0));
}

JSON LockSettings::json() const
{
    JSON result = JSON::object({{"version", currentVersion},
                                {"passphrase", passphraseHash},
                                {"locked", isLocked},
                                {"idleMinutes", idleMinutes},
                                {"wrongAttempts", std::min(wrongAttempts, mostCounted)}});
    if (lastWrongAt) {
        result.set("lastWrongAt", lastWrongAt->time_since_epoch().count());
    }
    return result;
}

std::optional<LockSettings> LockSettings::read(std::string_view text)
{
    const auto value = JSON::parse(text);
    if (!value) {
        return std::nullopt;
    }
    const JSON* hash = value->find("passphrase");
    const JSON* locked = value->find("locked");
    if (hash == nullptr || hash->string() == nullptr || locked == nullptr || locked->boolean() == nullptr ||
        number(*value, "version", currentVersion) != currentVersion) {
        return std::nullopt;
    }
    const auto idle = number(*value, "idleMinutes", longestIdle);
    const auto attempts = number(*value, "wrongAttempts", mostCounted);
    if (!idle || !attempts || (!hash->string()->empty() && !Passphrase::isHash(*hash->string()))) {
        return std::nullopt;
    }
    LockSettings result{.passphraseHash = *hash->string(),
                        .isLocked = *locked->boolean(),
                        .idleMinutes = static_cast<int>(*idle),
                        .wrongAttempts = static_cast<int>(*attempts)};
    if (value->find("lastWrongAt") != nullptr) {
        const auto last = number(*value, "lastWrongAt", latestInstant);
        if (!last) {
            return std::nullopt;
        }
        result.lastWrongAt = Instant(milliseconds(*last));
    }
    return result;
}

} // namespace Quillary
