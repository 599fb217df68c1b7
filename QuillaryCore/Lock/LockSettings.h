#pragma once

#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Foundation/JSON.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

/// How and whether the program is locked.
struct LockSettings
{
    static constexpr int longestIdle = 24 * 60; ///< Unit: minutes

    std::string passphraseHash = {}; ///< empty: there is no passphrase, and nothing locks
    bool isLocked = false;
    int idleMinutes = 15; ///< without input until it locks by itself; 0: it doesn't

    int wrongAttempts = 0; ///< since the last right one
    std::optional<Instant> lastWrongAt = {};

    /// How long the next attempt has to wait: nothing after the first few wrong ones, then twice as long each time, up
    /// to five minutes. Counted over restarts.
    [[nodiscard]] std::chrono::seconds wait(Instant now) const;

    [[nodiscard]] JSON json() const;

    /// No value: anything that `json` doesn't write.
    [[nodiscard]] static std::optional<LockSettings> read(std::string_view text);

    friend bool operator==(const LockSettings&, const LockSettings&) = default;
};

} // namespace Quillary
