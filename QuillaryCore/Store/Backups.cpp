#include "QuillaryCore/Store/Backups.h"

#include "QuillaryCore/Store/DataMigration.h"
#include "QuillaryCore/Store/LibraryCopy.h"
#include "QuillaryCore/Store/LibraryFile.h"
#include "QuillaryCore/Store/StoreFailure.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <sys/file.h>
#include <system_error>
#include <tuple>
#include <unistd.h>
#include <utility>

namespace Quillary {

namespace fs = std::filesystem;

namespace {

using Reason = StoreError::Reason;

constexpr std::string_view workingName = "Backup-making.sqlite";
constexpr std::string_view workingLogName = "Backup-making.log";

/// The backups folder, for one backup at a time. A second one waits: it takes seconds.
class FolderTurn
{
public:
    explicit FolderTurn(const fs::path& folder)
        : m_descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        if (m_descriptor < 0) {
            throw systemFailure(errno, folder);
        }
        // Network file systems that lock no folders are used without: there, two backups at once fail, one of them.
        while (flock(m_descriptor, LOCK_EX) != 0 && errno == EINTR) {
        }
    }
    FolderTurn(const FolderTurn&) = delete;
    FolderTurn& operator=(const FolderTurn&) = delete;
    ~FolderTurn() { close(m_descriptor); }

private:
    int m_descriptor;
};

void makeFolder(const fs::path& folder)
{
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) {
        throw systemFailure(error.value(), folder);
    }
}

void removeQuietly(const fs::path& file)
{
    try {
        LibraryFile::removeWithCompanions(file);
    } catch (const StoreError&) { // NOLINT(bugprone-empty-catch): the first failure is the one to tell
    }
}

bool isThere(const fs::path& file)
{
    std::error_code error;
    return fs::exists(file, error);
}

/// Runs `action`; a full disk is told in the words of what was tried.
template <class Action>
auto tellingOfAFullDisk(const std::string& sentence, const Action& action)
{
    try {
        return action();
    } catch (const StoreError& error) {
        if (error.reason() != Reason::diskFull) {
            throw;
        }
        throw StoreError(Reason::diskFull, sentence, error.details());
    }
}

fs::path logOf(fs::path file)
{
    return file += "-wal";
}

/// What lies under working names in the backups folder, removed at the beginning, where a killed run left it, and at
/// the end.
class WorkingFiles
{
public:
    explicit WorkingFiles(const fs::path& folder)
        : copy(folder / workingName)
        , log(folder / workingLogName)
    {
        LibraryFile::removeWithCompanions(copy);
        LibraryFile::removeWithCompanions(log);
    }
    WorkingFiles(const WorkingFiles&) = delete;
    WorkingFiles& operator=(const WorkingFiles&) = delete;
    ~WorkingFiles()
    {
        removeQuietly(copy);
        removeQuietly(log);
    }

    const fs::path copy;
    const fs::path log;
};

} // namespace

Backups::Backups(fs::path libraryFolder, SchemaHistory history, Calendar calendar)
    : m_folder(std::move(libraryFolder))
    , m_store(m_folder / LibraryFile::storeName)
    , m_backups(m_folder / LibraryFile::backupsFolderName)
    , m_history(std::move(history))
    , m_calendar(std::move(calendar))
{
}

fs::path Backups::makeNow(Instant now) const
{
    if (!isThere(m_store)) {
        throw StoreError(
            Reason::noAccess,
            fmt::format("There is no library in “{}”, so there is nothing to back up.", m_folder.string()));
    }
    makeFolder(m_backups);
    const FolderTurn turn(m_backups);
    return make(named(BackupKind::manual, now));
}

std::optional<fs::path> Backups::makeDaily(Instant now) const
{
    if (!isThere(m_store)) {
        return std::nullopt;
    }
    makeFolder(m_backups);
    const FolderTurn turn(m_backups);
    const BackupName name = named(BackupKind::automatic, now);
    if (isThere(m_backups / name.text())) {
        return std::nullopt;
    }
    fs::path file = make(name);
    removeExpendable(m_calendar.date(now));
    return file;
}

fs::path Backups::make(const BackupName& name) const
{
    const std::string diskFull =
        fmt::format("The backup couldn’t be made, because the disk that holds “{}” is full. Make room and try again.",
                    m_backups.string());
    return tellingOfAFullDisk(diskFull, [&] {
        const WorkingFiles working(m_backups);
        // Not as a reader only: when nobody else has the library open, the last one out tidies up its log.
        Connection source(m_store, Connection::Access::readWrite);
        const auto version = DataMigration::writtenWith(source, m_history);
        LibraryCopy::make(source, working.copy, m_store);
        if (DataMigration::writtenWith(working.copy, m_history) != version) {
            throw StoreError(Reason::failed, "The backup didn’t pass its check and wasn’t kept. Try again.");
        }
        return LibraryFile::publish(working.copy, m_backups / name.text());
    });
}

void Backups::removeExpendable(CalendarDate today) const
{
    std::vector<CalendarDate> made;
    for (const Entry& entry : list()) {
        if (entry.name.kind == BackupKind::automatic) {
            made.emplace_back(std::chrono::floor<std::chrono::days>(entry.name.made));
        }
    }
    for (const CalendarDate day : expendableBackups(std::move(made), today)) {
        // One that can't be removed today is tried again tomorrow; the new backup is made all the same.
        removeQuietly(m_backups / BackupName{BackupKind::automatic, std::chrono::local_days(day)}.text());
    }
}

std::vector<Backups::Entry> Backups::list() const
{
    std::vector<Entry> entries;
    for (const fs::path& folder : {m_backups, m_folder}) {
        std::error_code error;
        for (const auto& file : fs::directory_iterator(folder, error)) {
            const auto name = BackupName::parse(file.path().filename().string());
            if (name && file.is_regular_file(error)) {
                entries.push_back({file.path(), *name, file.file_size(error)});
            }
        }
    }
    std::ranges::sort(entries, std::greater(), [](const Entry& entry) {
        return std::tuple(entry.name.made, entry.file.filename().string());
    });
    return entries;
}

std::optional<fs::path>
Backups::restore(const fs::path& backup, Instant now, const LibraryLock& /*lock*/, const RestoreHook& afterStep) const
{
    const auto done = [&](RestoreStep step) {
        if (afterStep) {
            afterStep(step);
        }
    };
    const fs::path file = found(backup);
    makeFolder(m_backups);
    const FolderTurn turn(m_backups);
    const std::string diskFull = fmt::format(
        "The backup couldn’t be restored, because the disk that holds “{}” is full. The library is as it was. Make "
        "room and try again.",
        m_folder.string());
    return tellingOfAFullDisk(diskFull, [&] {
        const fs::path working = m_folder / LibraryFile::restoringName;
        try {
            if (!DataMigration::writtenWith(file, m_history)) {
                throw StoreError(Reason::notALibrary, fmt::format("“{}” is empty.", file.string()));
            }
            {
                Connection source(
                    file, LibraryFile::hasLog(file) ? Connection::Access::readOnly : Connection::Access::immutable);
                LibraryCopy::make(source, working, m_store);
            }
            done(RestoreStep::copyMade);
            auto kept = keepCurrent(now);
            done(RestoreStep::currentKept);
            // A log that stayed behind would be taken for the restored library's own.
            LibraryFile::removeCompanions(m_store);
            LibraryFile::syncFolder(m_folder);
            done(RestoreStep::logRemoved);
            LibraryFile::replace(working, m_store);
            done(RestoreStep::inPlace);
            return kept;
        } catch (...) {
            removeQuietly(working);
            throw;
        }
    });
}

std::optional<fs::path> Backups::keepCurrent(Instant now) const
{
    std::error_code error;
    const auto size = fs::file_size(m_store, error);
    if (error || size == 0) {
        return std::nullopt;
    }
    const WorkingFiles working(m_backups);
    const fs::path wanted = m_backups / named(BackupKind::beforeRestore, now).text();
    const bool hasLog = LibraryFile::hasLog(m_store);
    if (hasLog) {
        LibraryFile::copyBytes(logOf(m_store), working.log); // SQLite clears away a log that it can't read
    }
    try {
        const auto current = LibraryCopy::openAlone(m_store);
        LibraryCopy::make(*current, working.copy, m_store);
    } catch (const StoreError& failure) {
        if (failure.reason() != Reason::notALibrary) {
            throw;
        }
        LibraryFile::copyBytes(m_store, working.copy);
        fs::path kept = LibraryFile::publish(working.copy, wanted);
        if (hasLog) {
            LibraryFile::replace(working.log, logOf(kept));
        }
        return kept;
    }
    return LibraryFile::publish(working.copy, wanted);
}

fs::path Backups::found(const fs::path& backup) const
{
    for (const fs::path& candidate : {backup, m_backups / backup, m_folder / backup}) {
        std::error_code error;
        if (!fs::is_regular_file(candidate, error)) {
            continue;
        }
        if (fs::equivalent(candidate, m_store, error)) {
            throw StoreError(Reason::inUse, fmt::format("“{}” is the library itself.", candidate.string()));
        }
        return candidate;
    }
    throw StoreError(Reason::noAccess,
                     fmt::format("There is no backup “{}” in “{}”.", backup.string(), m_backups.string()));
}

BackupName Backups::named(BackupKind kind, Instant now) const
{
    const std::chrono::local_days day{m_calendar.date(now)};
    if (kind == BackupKind::automatic) {
        return {kind, day};
    }
    return {kind, day + std::chrono::floor<std::chrono::seconds>(m_calendar.timeOfDay(now))};
}

} // namespace Quillary
