#include "QuillaryCore/Store/Connection.h"

#include "QuillaryCore/Store/StoreFailure.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <fmt/format.h>
#include <sqlite3.h>

namespace Quillary {

namespace {

// A reader or a backup beside us holds its lock for moments only; whoever holds it longer is another program.
constexpr int busyTimeoutMilliseconds = 2000;
// Enough for an import of ten thousand clients to be written once, at its commit. Taken only as it is used.
constexpr int cacheKibibytes = 16 * 1024;
constexpr std::int64_t mappedBytes = std::int64_t{1} << 30;

/// A connection belongs to one thread at a time, so nothing in it needs a lock of its own.
int openFlags(Connection::Access access)
{
    constexpr int unlocked = SQLITE_OPEN_NOMUTEX;
    switch (access) {
    case Connection::Access::readWrite:
    case Connection::Access::scratch:
        return unlocked | SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    case Connection::Access::readOnly:
        return unlocked | SQLITE_OPEN_READONLY;
    case Connection::Access::immutable:
        return unlocked | SQLITE_OPEN_READONLY | SQLITE_OPEN_URI;
    }
    return unlocked | SQLITE_OPEN_READONLY;
}

/// The name that SQLite is given: the path, or for an immutable file an URI, the only way to say so.
std::string openName(const std::filesystem::path& file, Connection::Access access)
{
    if (access != Connection::Access::immutable) {
        return file.string();
    }
    const std::string path = file.string();
    std::string name = path.starts_with('/') ? "file://" : "file:";
    for (const char character : path) {
        const bool hasMeaning = character == '%' || character == '?' || character == '#';
        name += hasMeaning ? fmt::format("%{:02X}", static_cast<unsigned char>(character)) : std::string(1, character);
    }
    return name + "?immutable=1";
}

/// SQLite counts its memory under one lock of the whole process, at each allocation; nobody here reads the count. Fails
/// without harm where somebody in the process used SQLite before.
void forgoMemoryCount()
{
    [[maybe_unused]] static const int once = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
}

std::unique_ptr<SQLite::Database> opened(const std::filesystem::path& file, Connection::Access access)
{
    forgoMemoryCount();
    try {
        return std::make_unique<SQLite::Database>(openName(file, access), openFlags(access), busyTimeoutMilliseconds);
    } catch (const SQLite::Exception& failure) {
        throw storeFailure(failure.getExtendedErrorCode(), file, failure.what());
    }
}

} // namespace

Connection::Connection(const std::filesystem::path& file, Access access)
    : m_file(file)
    , m_database(opened(file, access))
{
    configure(access);
}

Connection::Connection(std::string_view memoryName)
    : m_file(memoryName)
    , m_database(opened(m_file, Access::readWrite))
{
    configure(Access::readWrite);
}

std::unique_ptr<Connection> Connection::inMemory()
{
    return std::unique_ptr<Connection>(new Connection(std::string_view(":memory:")));
}

Connection::~Connection() = default;

void Connection::configure(Access access)
{
    sqlite3_extended_result_codes(handle(), 1);
    sqlite3_set_authorizer(handle(), &Connection::authorize, this);
    execute("PRAGMA trusted_schema = OFF");
    execute("PRAGMA cell_size_check = ON");
    execute("PRAGMA foreign_keys = OFF");
    execute("PRAGMA temp_store = MEMORY");
    switch (access) {
    case Access::readWrite:
        if (sqlite3_db_readonly(handle(), "main") != 0) {
            // SQLite opens what it may not write without a word, and would fail only at the first change.
            throw storeFailure(SQLITE_READONLY, m_file, "opened for reading only");
        }
        execute("PRAGMA journal_mode = WAL");
        execute("PRAGMA synchronous = FULL");
        execute(fmt::format("PRAGMA cache_size = -{}", cacheKibibytes));
        break;
    case Access::readOnly:
        execute("PRAGMA query_only = ON");
        // Only here: under a map a disk error is a signal, not a message, which a writer must not die of.
        execute(fmt::format("PRAGMA mmap_size = {}", mappedBytes));
        break;
    case Access::scratch:
        execute("PRAGMA journal_mode = OFF");
        execute("PRAGMA synchronous = OFF");
        break;
    case Access::immutable:
        execute("PRAGMA query_only = ON");
        break;
    }
}

int Connection::authorize(
    void* self, int action, const char* first, const char* /*second*/, const char* /*third*/, const char* /*fourth*/)
{
    // The authorizer is the one place where SQLite tells which tables a statement reads.
    auto* tables = static_cast<Connection*>(self)->m_collectedTables;
    if (action == SQLITE_READ && tables != nullptr && first != nullptr) {
        tables->emplace_back(first);
    }
    return SQLITE_OK;
}

void Connection::execute(std::string_view sql)
{
    const std::string text(sql);
    const int code = sqlite3_exec(handle(), text.c_str(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) {
        fail(code, sql);
    }
}

Statement& Connection::prepared(std::string_view sql)
{
    auto found = m_statements.find(sql);
    if (found == m_statements.end()) {
        found = m_statements.emplace(std::string(sql), std::vector<std::unique_ptr<Statement>>()).first;
    }
    for (const auto& statement : found->second) {
        if (!statement->isBusy()) {
            return *statement;
        }
    }
    return *found->second.emplace_back(std::make_unique<Statement>(*this, sql));
}

std::optional<std::int64_t> Connection::integer(std::string_view sql)
{
    Statement statement(*this, sql);
    return statement.step() ? std::optional(statement.integer(0)) : std::nullopt;
}

std::optional<std::string> Connection::text(std::string_view sql)
{
    Statement statement(*this, sql);
    return statement.step() ? std::optional(std::string(statement.text(0))) : std::nullopt;
}

void Connection::begin()
{
    prepared("BEGIN IMMEDIATE").run();
}

void Connection::commit()
{
    prepared("COMMIT").run();
}

void Connection::rollback() noexcept
{
    if (isInTransaction()) {
        sqlite3_exec(database().getHandle(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

bool Connection::isInTransaction() const
{
    return sqlite3_get_autocommit(handle()) == 0;
}

bool Connection::checkpoint()
{
    int remainingFrames = 0;
    const int code =
        sqlite3_wal_checkpoint_v2(handle(), nullptr, SQLITE_CHECKPOINT_TRUNCATE, &remainingFrames, nullptr);
    if (code == SQLITE_BUSY) {
        return false;
    }
    if (code != SQLITE_OK) {
        fail(code, "checkpoint");
    }
    return true;
}

sqlite3* Connection::handle() const
{
    return m_database->getHandle();
}

void Connection::fail(int code, std::string_view statement)
{
    constexpr int primaryCodeMask = 0xff;
    const int extended = sqlite3_extended_errcode(handle());
    m_lastFailure = storeFailure((extended & primaryCodeMask) == (code & primaryCodeMask) ? extended : code,
                                 m_file,
                                 fmt::format("SQLite {} ({}): {}", extended, sqlite3_errmsg(handle()), statement));
    throw StoreError(*m_lastFailure);
}

} // namespace Quillary
