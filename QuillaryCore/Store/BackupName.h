#pragma once

#include "QuillaryCore/Foundation/Instant.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// Why a backup was made.
enum class BackupKind {
    automatic,     ///< once a day
    manual,        ///< a person asked for it
    beforeRestore, ///< what a restore replaced
    beforeUpgrade, ///< what an upgrade replaced; lies beside the library
};

/// What the name of a backup says: "Quillary Auto Backup 2026-11-21.sqlite", "Quillary Backup 2026-11-21 14.03.22.sqlite",
/// "Quillary Before Restore 2026-11-21 14.03.22.sqlite" and "Library before upgrade 2026-11-21 14.03.22.sqlite".
struct BackupName
{
    BackupKind kind;
    std::chrono::local_seconds made; ///< as a clock on the wall showed it; midnight for an automatic backup

    /// The file name, which a number may follow where it is taken: "… (2).sqlite".
    [[nodiscard]] std::string text() const;

    /// No value: another file's name.
    [[nodiscard]] static std::optional<BackupName> parse(std::string_view name);

    friend bool operator==(const BackupName&, const BackupName&) = default;
};

/// Which of the automatic backups are no longer kept. Kept are the 14 newest, one a day, and of every month the last:
/// the month as it ended. Days after `today` come from a clock that was wrong once; they are kept and not counted.
[[nodiscard]] std::vector<CalendarDate> expendableBackups(std::vector<CalendarDate> made, CalendarDate today);

} // namespace Quillary
