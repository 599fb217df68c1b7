#include "QuillaryCore/Store/DataMigration.h"

#include "QuillaryCore/Store/Fingerprint.h"
#include "QuillaryCore/Store/LibraryCopy.h"
#include "QuillaryCore/Store/LibraryFile.h"
#include "QuillaryCore/Store/LibraryTables.h"
#include "QuillaryCore/Store/StoreFailure.h"
#include "QuillaryCore/Store/UpgradeCopy.h"

#include <fmt/chrono.h>
#include <fmt/format.h>
#include <sqlite3.h>

#include <algorithm>
#include <system_error>
#include <vector>

namespace Quillary::DataMigration {

namespace fs = std::filesystem;

namespace {

using Reason = StoreError::Reason;

/// A file of at most this size holds no tables yet: SQLite writes a first page before the tables are made.
constexpr std::uintmax_t unfinishedSize = 4096;

/// Where SQLite keeps `application_id` in a file's header: four bytes, the highest first.
constexpr std::size_t markPosition = 68;

bool headerHasMark(const fs::path& file)
{
    const std::string header = LibraryFile::header(file);
    if (header.size() < markPosition + 4) {
        return false;
    }
    std::uint32_t mark = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        mark = (mark << 8) | static_cast<unsigned char>(header[markPosition + i]);
    }
    return mark == static_cast<std::uint32_t>(LibraryTables::applicationID);
}

StoreError notALibrary(const fs::path& file)
{
    return {Reason::notALibrary, fmt::format("“{}” isn’t a Quillary library.", file.string())};
}

std::vector<const Schema*> versionsOf(const SchemaHistory& history)
{
    std::vector<const Schema*> versions;
    versions.reserve(history.older.size() + 1);
    for (const Schema& schema : history.older) {
        versions.push_back(&schema);
    }
    versions.push_back(&history.current);
    return versions;
}

/// The version whose fingerprint the file bears. Of several, the one with the number that the file remembers, else the
/// last. Null: none.
const Schema* matching(const std::string& fileFingerprint, std::int64_t recorded, const SchemaHistory& history)
{
    const Schema* found = nullptr;
    for (const Schema* schema : versionsOf(history)) {
        const bool isMatch = fingerprint(*schema) == fileFingerprint;
        if (isMatch && recorded == schema->version) {
            return schema;
        }
        found = isMatch ? schema : found;
    }
    return found;
}

/// Null: nothing was ever written.
const Schema* schemaOfFile(Connection& connection, const SchemaHistory& history)
{
    if (LibraryTables::isEmpty(connection)) {
        return nullptr;
    }
    if (!LibraryTables::isLibrary(connection)) {
        throw notALibrary(connection.file());
    }
    const auto recorded = LibraryTables::schemaVersion(connection);
    if (!recorded || !LibraryTables::uuid(connection)) {
        throw storeFailure(SQLITE_CORRUPT, connection.file(), "the library's own facts are missing");
    }
    if (*recorded > history.current.version) {
        throw StoreError(Reason::newerLibrary,
                         fmt::format("“{}” was last used with a newer Quillary (its format is {}, this Quillary knows "
                                     "formats up to {}). Open it with that version, or update this one.",
                                     connection.file().string(),
                                     *recorded,
                                     history.current.version));
    }
    const std::string fileFingerprint = fingerprintOfFile(connection);
    if (const Schema* schema = matching(fileFingerprint, *recorded, history)) {
        return schema;
    }
    throw StoreError(Reason::unknownSchema,
                     fmt::format("“{}” has tables that no version of Quillary makes, so it was left alone. Restore a "
                                 "backup of it.",
                                 connection.file().string()),
                     fmt::format("recorded version {}, fingerprint {}", *recorded, fileFingerprint));
}

const Schema* schemaOfFile(const fs::path& storeAt, const SchemaHistory& history)
{
    std::error_code error;
    const auto size = fs::file_size(storeAt, error);
    if (error == std::errc::no_such_file_or_directory) {
        return nullptr;
    }
    if (LibraryFile::hasLog(storeAt)) {
        Connection connection(storeAt, Connection::Access::readOnly);
        return schemaOfFile(connection, history);
    }
    if (LibraryFile::hasJournal(storeAt)) {
        if (!headerHasMark(storeAt)) {
            if (size <= unfinishedSize) {
                return nullptr;
            }
            throw notALibrary(storeAt);
        }
        // Nothing can be read before the interrupted transaction is taken back, as any program that opens it would.
        Connection connection(storeAt, Connection::Access::readWrite);
        return schemaOfFile(connection, history);
    }
    Connection connection(storeAt, Connection::Access::immutable);
    return schemaOfFile(connection, history);
}

std::optional<int> versionOf(const Schema* schema)
{
    return schema == nullptr ? std::nullopt : std::optional(schema->version);
}

StoreError inUpgradeWords(const StoreError& failure, const fs::path& storeAt)
{
    const auto megabytes = [](std::uintmax_t bytes) {
        return (bytes + 999'999) / 1'000'000;
    };
    if (failure.reason() != Reason::diskFull) {
        return failure;
    }
    std::error_code ignored;
    return {Reason::diskFull,
            fmt::format("“{}” couldn’t be brought up to date, because its disk is full; it is as it was. Make room for "
                        "about {} MB and start again.",
                        storeAt.string(),
                        megabytes(3 * fs::file_size(storeAt, ignored))),
            failure.details()};
}

fs::path backupName(const fs::path& folder, Instant now)
{
    // As calendar fields, for fmt 9 writes an instant in the process's time zone.
    const std::tm utc = fmt::gmtime(std::chrono::system_clock::to_time_t(now));
    return folder / fmt::format("Library before upgrade {:%Y-%m-%d %H.%M.%S}.sqlite", utc);
}

/// One upgrade, from `run` to the end of the object.
class Upgrade
{
public:
    Upgrade(const fs::path& storeAt, const Schema& from, const SchemaHistory& history, const StepHook& afterStep)
        : m_storeAt(storeAt)
        , m_folder(storeAt.parent_path())
        , m_versions(versionsOf(history))
        , m_afterStep(afterStep)
    {
        m_versions.erase(m_versions.begin(), std::ranges::find(m_versions, &from));
    }

    /// Returns the backup.
    fs::path run(Instant now)
    {
        done(Step::leftoversRemoved);
        keepOld();
        const std::string header = LibraryFile::header(m_storeAt);
        buildNew();
        checkNew();
        const fs::path backup = LibraryFile::publish(m_folder / LibraryFile::keepingName, backupName(m_folder, now));
        done(Step::backupNamed);
        if (LibraryFile::header(m_storeAt) != header || LibraryFile::hasLog(m_storeAt) ||
            LibraryFile::hasJournal(m_storeAt)) {
            throw StoreError(Reason::inUse,
                             fmt::format("“{}” was changed by another program while it was being brought up to date. "
                                         "Close that program and start again.",
                                         m_storeAt.string()));
        }
        LibraryFile::replace(m_folder / LibraryFile::upgradingName, m_storeAt);
        done(Step::newFileInPlace);
        return backup;
    }

private:
    void done(Step step) const
    {
        if (m_afterStep) {
            m_afterStep(step);
        }
    }

    void keepOld()
    {
        const auto old = LibraryCopy::openAlone(m_storeAt);
        done(Step::storeTaken);
        LibraryCopy::make(*old, m_folder / LibraryFile::keepingName, m_storeAt);
        done(Step::backupMade);
    }

    void buildNew()
    {
        done(Step::storeClosed);
        LibraryFile::createLike(m_storeAt, m_folder / LibraryFile::upgradingName);
        UpgradeCopy copy(m_folder / LibraryFile::upgradingName, m_storeAt, m_versions);
        copy.makeTables();
        done(Step::tablesMade);
        while (copy.copyNextEntity()) {
            done(Step::entityCopied);
        }
        copy.makeIndexes();
        done(Step::indexesMade);
        copy.copyFacts();
        m_expectedRows = copy.finish();
        done(Step::factsCopied);
    }

    void checkNew()
    {
        const fs::path file = m_folder / LibraryFile::upgradingName;
        Connection connection(file, Connection::Access::immutable);
        const auto fault = LibraryCopy::fault(connection);
        const LibraryCopy::RowCounts rows = LibraryCopy::rowCounts(connection);
        const bool hasAllRows = std::ranges::all_of(m_expectedRows, [&](const auto& expected) {
            const auto found = rows.find(expected.first);
            return found != rows.end() && found->second == expected.second;
        });
        const bool isCurrent = fingerprintOfFile(connection) == fingerprint(*m_versions.back()) &&
                               LibraryTables::schemaVersion(connection) == m_versions.back()->version;
        if (fault || !hasAllRows || !isCurrent) {
            throw StoreError(
                Reason::failed,
                fmt::format("“{}” couldn’t be brought up to date: the new file didn’t pass its check. The "
                            "library is as it was.",
                            m_storeAt.string()),
                fault.value_or(hasAllRows ? "the new file's tables differ from the schema" : "rows are missing"));
        }
        LibraryFile::sync(file);
        done(Step::newFileChecked);
    }

    const fs::path& m_storeAt;
    fs::path m_folder;
    std::vector<const Schema*> m_versions; ///< from the library's to the current one
    const StepHook& m_afterStep;
    LibraryCopy::RowCounts m_expectedRows;
};

} // namespace

std::optional<int> writtenWith(const fs::path& storeAt, const SchemaHistory& history)
{
    return versionOf(schemaOfFile(storeAt, history));
}

std::optional<int> writtenWith(Connection& connection, const SchemaHistory& history)
{
    return versionOf(schemaOfFile(connection, history));
}

std::optional<fs::path>
upgradeIfNeeded(const fs::path& storeAt, Instant now, const SchemaHistory& history, const StepHook& afterStep)
{
    const Schema* from = schemaOfFile(storeAt, history);
    if (from == nullptr || from == &history.current) {
        LibraryFile::removeLeftovers(storeAt.parent_path());
        return std::nullopt;
    }
    try {
        LibraryFile::removeLeftovers(storeAt.parent_path());
        return Upgrade(storeAt, *from, history, afterStep).run(now);
    } catch (const std::exception& failure) {
        try {
            LibraryFile::removeLeftovers(storeAt.parent_path());
        } catch (const StoreError&) { // NOLINT(bugprone-empty-catch): the first failure is the one to tell
        }
        if (const auto* storeFailure = dynamic_cast<const StoreError*>(&failure)) {
            throw inUpgradeWords(*storeFailure, storeAt);
        }
        throw;
    }
}

} // namespace Quillary::DataMigration
