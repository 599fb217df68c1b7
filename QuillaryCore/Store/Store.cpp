#include "QuillaryCore/Store/Store.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Store/DataMigration.h"
#include "QuillaryCore/Store/LibraryFile.h"
#include "QuillaryCore/Store/LibraryTables.h"
#include "QuillaryCore/Store/StoreFailure.h"

#include <fmt/format.h>

#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace Quillary {

namespace {

/// Where nothing can be written beside the file, as on a write-protected disk, nobody else writes it either.
Connection::Access readOnlyAccess(const Store::Location& location)
{
    const bool canWriteBeside = faccessat(AT_FDCWD, location.folder().c_str(), W_OK, AT_EACCESS) == 0;
    return canWriteBeside || LibraryFile::hasLog(location.file()) ? Connection::Access::readOnly
                                                                  : Connection::Access::immutable;
}

StoreError folderFailure(const std::error_code& error, const std::filesystem::path& folder)
{
    const bool isFull = error == std::errc::no_space_on_device;
    return isFull
               ? systemFailure(error.value(), folder)
               : StoreError(StoreError::Reason::noAccess,
                            fmt::format("The folder “{}” can’t be made. Choose a place for the library where you may "
                                        "write.",
                                        folder.string()),
                            error.message());
}

/// Makes the empty file, so that nobody else may read what SQLite writes into it; its log gets the same rights.
void makePrivateFile(const std::filesystem::path& file)
{
    const int descriptor = open(file.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (descriptor < 0) {
        throw systemFailure(errno, file);
    }
    close(descriptor);
}

/// SQLite takes any file of less than 512 bytes for an empty database and would write over it.
void requireNoOtherFile(const std::filesystem::path& file)
{
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (status.type() == std::filesystem::file_type::not_found) {
        return;
    }
    if (error || !std::filesystem::is_regular_file(status)) {
        throw systemFailure(error ? error.value() : EISDIR, file);
    }
    const std::string header = LibraryFile::header(file);
    if (!header.empty() && !header.starts_with("SQLite format 3") && !LibraryFile::hasJournal(file)) {
        throw StoreError(StoreError::Reason::notALibrary, fmt::format("“{}” isn’t a Quillary library.", file.string()));
    }
}

} // namespace

std::filesystem::path Store::Location::file() const
{
    return isInMemory() ? std::filesystem::path("/dev/null") : m_folder / fileName;
}

Store::Store(Location location,
             const Records& records,
             const SchemaHistory& history,
             const Clock& clock,
             UUIDSource& uuids,
             std::unique_ptr<LibraryLock> lock)
    : m_location(std::move(location))
    , m_records(records)
    , m_lock(std::move(lock))
{
    if (m_location.isInMemory()) {
        m_connection = Connection::inMemory();
        makeTables(history.current, clock.now(), uuids.next());
    } else {
        openFolder(history, clock, uuids);
    }
    m_uuid = LibraryTables::uuid(*m_connection).value_or(m_uuid);
}

Store::Store(Location location, const Records& records, std::unique_ptr<Connection> connection)
    : m_location(std::move(location))
    , m_records(records)
    , m_connection(std::move(connection))
    , m_uuid(LibraryTables::uuid(*m_connection).value_or(m_uuid))
{
}

Store Store::openReadOnly(Location location, const Records& records, const SchemaHistory& history)
{
    precondition(!location.isInMemory(), "a library in memory is read through the store that holds it");
    const std::filesystem::path file = location.file();
    if (!std::filesystem::exists(file)) {
        throw StoreError(StoreError::Reason::noAccess,
                         fmt::format("There is no library in “{}”.", location.folder().string()));
    }
    auto connection = std::make_unique<Connection>(file, readOnlyAccess(location));
    const std::optional<int> version = DataMigration::writtenWith(*connection, history);
    if (!version) {
        throw StoreError(StoreError::Reason::notALibrary, fmt::format("“{}” is still empty.", file.string()));
    }
    if (version != history.current.version) {
        throw StoreError(StoreError::Reason::unknownSchema,
                         fmt::format("“{}” was last used with an older Quillary. Open it in Quillary once, so that it "
                                     "is brought up to date.",
                                     file.string()));
    }
    return Store(std::move(location), records, std::move(connection));
}

Store::~Store() = default;

void Store::openFolder(const SchemaHistory& history, const Clock& clock, UUIDSource& uuids)
{
    std::error_code error;
    std::filesystem::create_directories(m_location.folder(), error);
    if (error) {
        throw folderFailure(error, m_location.folder());
    }
    if (m_lock == nullptr) {
        m_lock = std::make_unique<LibraryLock>(m_location.folder());
    }
    const std::filesystem::path file = m_location.file();
    requireNoOtherFile(file);
    m_upgradeBackup = DataMigration::upgradeIfNeeded(file, clock.now(), history);
    const bool isNew = !std::filesystem::exists(file, error);
    try {
        if (isNew) {
            makePrivateFile(file);
        }
        m_connection = std::make_unique<Connection>(file, Connection::Access::readWrite);
        if (LibraryTables::isEmpty(*m_connection)) {
            makeTables(history.current, clock.now(), uuids.next());
            m_connection->checkpoint(); // so that the file tells by itself what it is
            LibraryFile::syncFolder(m_location.folder());
        } else {
            LibraryTables::makeMissingIndexes(*m_connection, history.current);
        }
    } catch (...) {
        m_connection.reset();
        if (isNew) {
            LibraryFile::removeWithCompanions(file);
        }
        throw;
    }
}

void Store::makeTables(const Schema& schema, Instant now, const UUID& uuid)
{
    m_connection->begin();
    LibraryTables::createEntities(*m_connection, schema);
    LibraryTables::createInformation(*m_connection, uuid, now, schema.version);
    m_connection->commit();
}

std::optional<std::string> Store::recordName(const UUID& /*record*/) const
{
    return std::nullopt;
}

std::unique_ptr<Connection> Store::openReader() const
{
    precondition(!m_location.isInMemory(), "a library in memory is read through the store that holds it");
    return std::make_unique<Connection>(m_location.file(), Connection::Access::readOnly);
}

std::int64_t& Store::nextKey(const Entity& entity)
{
    const auto [place, isNew] = m_nextKeys.try_emplace(entity.name, 1);
    if (isNew) {
        Statement statement(*m_connection,
                            fmt::format("SELECT max((SELECT ifnull(max(\"id\"), 0) + 1 FROM {}), "
                                        "ifnull((SELECT next FROM {} WHERE entity = ?), 1))",
                                        quotedName(entity.name),
                                        LibraryTables::keysTable));
        statement.bind(1, entity.name);
        statement.step();
        place->second = statement.integer(0);
    }
    return place->second;
}

void Store::keepKeys(const Entity& entity, std::int64_t next)
{
    Statement& statement = m_connection->prepared(fmt::format(
        "INSERT INTO {0} (entity, next) VALUES (?1, ?2) ON CONFLICT (entity) DO UPDATE SET next = max(next, ?2)",
        LibraryTables::keysTable));
    statement.bind(1, entity.name);
    statement.bind(2, next);
    statement.run();
}

} // namespace Quillary
