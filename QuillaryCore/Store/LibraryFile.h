#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

/// The names of a library's files, and the moves between them that a crash can't tear.
///
/// Every function that writes throws `StoreError`. A file that is made here is first written
/// under a working name, synced, and then renamed: under its final name it is whole or not there.
namespace Quillary::LibraryFile {

inline constexpr std::string_view storeName = "Library.sqlite";
inline constexpr std::string_view upgradingName = "Library-upgrading.sqlite";      ///< the new file of an upgrade
inline constexpr std::string_view keepingName = "Library-upgrading-backup.sqlite"; ///< its backup until it is checked
inline constexpr std::string_view restoringName = "Library-restoring.sqlite";      ///< the new file of a restore
inline constexpr std::string_view backupsFolderName = "Backups";

/// Whether changes wait in a write-ahead log beside the file.
[[nodiscard]] bool hasLog(const std::filesystem::path& file);

/// Whether a transaction without such a log was interrupted: the next writer that opens the file takes it back.
[[nodiscard]] bool hasJournal(const std::filesystem::path& file);

/// Removes what an upgrade or restore that was killed may have left in the library's folder. Call it only while the
/// library is locked.
void removeLeftovers(const std::filesystem::path& folder);

/// Removes a database with its "-wal", "-shm" and "-journal"; what isn't there is fine.
void removeWithCompanions(const std::filesystem::path& file);

/// Removes only "-wal", "-shm" and "-journal" of a file.
void removeCompanions(const std::filesystem::path& file);

/// Makes an empty file in place of `file`, which only those may read and write who may do so with `model`.
void createLike(const std::filesystem::path& model, const std::filesystem::path& file);

/// On return the file's bytes are on disk.
void sync(const std::filesystem::path& file);

/// On return the names in a folder are on disk.
void syncFolder(const std::filesystem::path& folder);

/// Puts `file` in the place of `target` in one step that can't be seen half done, on disk on return.
/// Both lie in the same folder, and neither has companions.
void replace(const std::filesystem::path& file, const std::filesystem::path& target);

/// Gives `file` the name `wanted`, or "name (2).sqlite" and so on where that is taken: an existing file is never
/// overwritten. Both lie in the same folder. Returns the name it got, on disk.
std::filesystem::path publish(const std::filesystem::path& file, const std::filesystem::path& wanted);

/// Copies bytes into a new file, on disk on return. The target must not exist.
void copyBytes(const std::filesystem::path& file, const std::filesystem::path& target);

/// The first 100 bytes: they change with every transaction that another program writes without a log, and when it
/// turns the log on.
[[nodiscard]] std::string header(const std::filesystem::path& file);

} // namespace Quillary::LibraryFile
