#pragma once

#include "QuillaryCore/Store/Statement.h"
#include "QuillaryCore/Store/StoreError.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

namespace SQLite {
class Database;
}

namespace Quillary {

/// One connection to one SQLite file, with the settings that every file of ours is used with.
///
/// Write-ahead log and `synchronous=FULL`: what a user would call saved is on disk when the call returns. Foreign keys
/// are off, because the delete rules are the context's. Files are never trusted: no functions from the schema, cell
/// sizes checked. Belongs to one thread at a time.
/// Throws: `StoreError` in the user's words; the failed statement and the extended code are in its details.
class Connection
{
public:
    enum class Access {
        readWrite, ///< the file is made when it is missing
        readOnly,  ///< nothing is written; reading is memory-mapped
        scratch,   ///< a file that is thrown away unless it is finished: no log, no journal, nothing waits for the disk
        immutable, ///< a file without a log that nobody writes: read without locks and without making files beside it
    };

    Connection(const std::filesystem::path& file, Access access);

    /// A database that lives in memory and goes with the connection.
    [[nodiscard]] static std::unique_ptr<Connection> inMemory();

    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection();

    /// Runs statements that give no rows and take no values.
    void execute(std::string_view sql);

    /// The statement for a text, prepared once and kept as long as the connection, reset and ready to be bound.
    /// One whose rows are still being read is never handed out twice: that caller gets a second one.
    Statement& prepared(std::string_view sql);

    /// The first column of the first row of a query. No value: no row.
    std::optional<std::int64_t> integer(std::string_view sql);
    std::optional<std::string> text(std::string_view sql);

    /// Takes the write lock at once, so that a transaction never fails halfway for want of it.
    void begin();
    void commit();

    /// Ends the transaction, if there is one; never throws, because SQLite may have ended it by itself.
    void rollback() noexcept;
    [[nodiscard]] bool isInTransaction() const;

    /// Moves the whole log into the file and empties it. False: a reader still holds a part of the log.
    bool checkpoint();

    [[nodiscard]] const std::filesystem::path& file() const { return m_file; } ///< ":memory:" for one in memory
    [[nodiscard]] SQLite::Database& database() { return *m_database; }
    [[nodiscard]] sqlite3* handle() const;

    /// Throws the `StoreError` for the last failed call on this connection.
    [[noreturn]] void fail(int code, std::string_view statement);

    /// The last failure since `forgetFailure`, also when somebody caught it and went on. No value: none.
    [[nodiscard]] const std::optional<StoreError>& lastFailure() const { return m_lastFailure; }
    void forgetFailure() { m_lastFailure.reset(); }

private:
    friend class Statement;

    explicit Connection(std::string_view memoryName);
    void configure(Access access);
    void startCollectingTables(std::vector<std::string>& tables) { m_collectedTables = &tables; }
    void stopCollectingTables() { m_collectedTables = nullptr; }
    static int
    authorize(void* self, int action, const char* first, const char* second, const char* third, const char* fourth);

    std::filesystem::path m_file;
    std::unique_ptr<SQLite::Database> m_database;
    std::optional<StoreError> m_lastFailure;
    std::vector<std::string>* m_collectedTables = nullptr;
    std::map<std::string, std::vector<std::unique_ptr<Statement>>, std::less<>> m_statements;
};

} // namespace Quillary
