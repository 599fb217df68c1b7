#pragma once

#include "QuillaryCore/Foundation/Calendar.h"
#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Store/BackupName.h"
#include "QuillaryCore/Store/LibraryLock.h"
#include "QuillaryCore/Store/Schema.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Quillary {

/// The backups of one library, in the folder "Backups" beside it.
///
/// A backup is one SQLite file: the library as it was last saved. It is copied while the library stays in use, opened
/// and checked (integrity, schema, rows of every table), and only then named; a half-made one is never seen. Backups
/// may be made on any thread, beside an open store; pending edits are not in them, so save first.
/// Throws: `StoreError` with a sentence that says what became of the library.
class Backups
{
public:
    struct Entry
    {
        std::filesystem::path file;
        BackupName name;
        std::uintmax_t bytes = 0;
    };

    /// What a restore has just done, in this order.
    enum class RestoreStep {
        copyMade,    ///< and checked, under a working name
        currentKept, ///< as "Quillary Before Restore …"
        logRemoved,  ///< of the library that goes
        inPlace,
    };
    using RestoreHook = std::function<void(RestoreStep)>;

    /// `libraryFolder` holds "Library.sqlite". `calendar` gives the days and times in the names.
    Backups(std::filesystem::path libraryFolder, SchemaHistory history, Calendar calendar);

    /// "Quillary Backup 2026-11-21 14.03.22.sqlite". Returns where it lies.
    [[nodiscard]] std::filesystem::path makeNow(Instant now) const;

    /// "Quillary Auto Backup 2026-11-21.sqlite", if the day has none yet, and then removes those that are no longer
    /// kept (see `expendableBackups`). No value: nothing was due, or there is no library yet.
    [[nodiscard]] std::optional<std::filesystem::path> makeDaily(Instant now) const;

    /// All backups, the newest first, with those that upgrades left beside the library.
    [[nodiscard]] std::vector<Entry> list() const;

    /// Puts a backup in the place of the library and keeps the library as it was as "Quillary Before Restore …", whose
    /// place is returned; no value: there was none. `backup` is a path, or a name from the list.
    ///
    /// The store is closed, `lock` is the lock on this library's folder. The library is replaced in one step: whatever
    /// happens, it is the whole old or the whole restored one. A library that is damaged is kept as it is, with its log. An older
    /// backup is upgraded when the library is next opened; a newer one, and a file that is no library, are refused.
    [[nodiscard]] std::optional<std::filesystem::path> restore(const std::filesystem::path& backup,
                                                               Instant now,
                                                               const LibraryLock& lock,
                                                               const RestoreHook& afterStep = {}) const;

private:
    [[nodiscard]] std::filesystem::path make(const BackupName& name) const;
    [[nodiscard]] std::optional<std::filesystem::path> keepCurrent(Instant now) const;
    [[nodiscard]] std::filesystem::path found(const std::filesystem::path& backup) const;
    [[nodiscard]] BackupName named(BackupKind kind, Instant now) const;
    void removeExpendable(CalendarDate today) const;

    std::filesystem::path m_folder;
    std::filesystem::path m_store;
    std::filesystem::path m_backups;
    SchemaHistory m_history;
    Calendar m_calendar;
};

} // namespace Quillary
