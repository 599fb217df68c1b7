#include "QuillaryCore/Store/LibraryCopy.h"

#include "QuillaryCore/Store/LibraryFile.h"
#include "QuillaryCore/Store/Schema.h"
#include "QuillaryCore/Store/StoreFailure.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/Exception.h>
#include <fmt/format.h>
#include <sqlite3.h>

#include <utility>
#include <vector>

namespace Quillary::LibraryCopy {

namespace fs = std::filesystem;

namespace {

StoreError inUse(const fs::path& file)
{
    return storeFailure(SQLITE_BUSY, file, "another connection is open");
}

void copyPages(Connection& source, Connection& target)
{
    try {
        SQLite::Backup backup(target.database(), source.database());
        const int code = backup.executeStep(-1);
        if (code != SQLITE_DONE) {
            throw storeFailure(code, source.file(), "online backup");
        }
    } catch (const SQLite::Exception& failure) {
        throw storeFailure(failure.getErrorCode(), target.file(), failure.what());
    }
}

/// Copies within the source's read transaction. Returns what the snapshot holds.
RowCounts copySnapshot(Connection& source, const fs::path& target)
{
    Connection copy(target, Connection::Access::scratch);
    source.execute("BEGIN");
    try {
        RowCounts counts = rowCounts(source); // the first read fixes the snapshot
        copyPages(source, copy);
        source.execute("COMMIT");
        // The pages say, as those of the source do, that the file is used with a log.
        copy.execute("PRAGMA journal_mode = DELETE");
        return counts;
    } catch (...) {
        source.rollback();
        throw;
    }
}

void makeAndCheck(Connection& source, const fs::path& target)
{
    const RowCounts expected = copySnapshot(source, target);
    Connection copy(target, Connection::Access::immutable);
    if (const auto finding = fault(copy)) {
        throw storeFailure(SQLITE_CORRUPT, source.file(), *finding); // the copy has the same pages
    }
    if (rowCounts(copy) != expected) {
        throw StoreError(
            StoreError::Reason::failed,
            fmt::format("The copy of “{}” came out incomplete and wasn’t kept. Try again.", source.file().string()),
            "other rows than the snapshot");
    }
    LibraryFile::sync(target);
}

} // namespace

RowCounts rowCounts(Connection& connection)
{
    std::vector<std::string> tables;
    Statement names(connection,
                    "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\'");
    while (names.step()) {
        tables.emplace_back(names.text(0));
    }
    RowCounts counts;
    for (const std::string& table : tables) {
        counts[table] = connection.integer(fmt::format("SELECT count(*) FROM {}", quotedName(table))).value_or(0);
    }
    return counts;
}

std::optional<std::string> fault(Connection& connection)
{
    std::string finding = connection.text("PRAGMA integrity_check(1)").value_or("no answer");
    return finding == "ok" ? std::nullopt : std::optional(std::move(finding));
}

void make(Connection& source, const fs::path& target, const fs::path& rightsOf)
{
    LibraryFile::createLike(rightsOf, target);
    try {
        makeAndCheck(source, target);
    } catch (...) {
        try {
            LibraryFile::removeWithCompanions(target);
        } catch (const StoreError&) { // NOLINT(bugprone-empty-catch): the first failure is the one to tell
        }
        throw;
    }
}

std::unique_ptr<Connection> openAlone(const fs::path& file)
{
    auto connection = std::make_unique<Connection>(file, Connection::Access::readWrite);
    connection->execute("PRAGMA locking_mode = EXCLUSIVE");
    if (!connection->checkpoint() || connection->text("PRAGMA journal_mode = DELETE") != "delete") {
        throw inUse(file);
    }
    return connection;
}

} // namespace Quillary::LibraryCopy
