#pragma once

#include "QuillaryCore/Foundation/Clock.h"
#include "QuillaryCore/Foundation/UUID.h"
#include "QuillaryCore/Store/Connection.h"
#include "QuillaryCore/Store/LibraryLock.h"
#include "QuillaryCore/Store/Records.h"
#include "QuillaryCore/Store/Schema.h"
#include "QuillaryCore/Store/StoreError.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace Quillary {

/// An open library: its file, the lock on it, and what is true for the whole of it. Records come and go through a
/// `Context`.
///
/// Throws: `StoreError` where the library can't be opened; the file is then as it was before.
class Store
{
public:
    static constexpr const char* fileName = "Library.sqlite";

    /// Where a library lies: a folder of its own, or nowhere.
    class Location
    {
    public:
        /// A folder; it is made, with the folders above it, when it is missing.
        [[nodiscard]] static Location directory(std::filesystem::path folder) { return Location(std::move(folder)); }

        /// Nothing is written; the library goes with the store.
        [[nodiscard]] static Location inMemory() { return Location({}); }

        [[nodiscard]] bool isInMemory() const { return m_folder.empty(); }
        [[nodiscard]] const std::filesystem::path& folder() const { return m_folder; }

        /// The library's file; "/dev/null" for one in memory.
        [[nodiscard]] std::filesystem::path file() const;

    private:
        explicit Location(std::filesystem::path folder)
            : m_folder(std::move(folder))
        {
        }

        std::filesystem::path m_folder;
    };

    /// Opens a library for reading and writing; makes it when there is none, upgrades it when it is older.
    /// `records` outlives the store and describes the current schema of `history`. `lock` is the right to the folder,
    /// where the caller holds it already.
    Store(Location location,
          const Records& records,
          const SchemaHistory& history,
          const Clock& clock,
          UUIDSource& uuids,
          std::unique_ptr<LibraryLock> lock = nullptr);

    /// Opens a library beside the program that holds it, to read what is saved. Nothing is made or upgraded.
    [[nodiscard]] static Store openReadOnly(Location location, const Records& records, const SchemaHistory& history);

    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;
    ~Store();

    [[nodiscard]] const Location& location() const { return m_location; }
    [[nodiscard]] const Records& records() const { return m_records; }
    [[nodiscard]] Connection& connection() { return *m_connection; }
    /// Lets the lock outlive the store, for who closes the library and lends it, or opens it again. Null in memory.
    [[nodiscard]] std::unique_ptr<LibraryLock> takeLock() { return std::move(m_lock); }
    [[nodiscard]] bool isReadOnly() const { return m_lock == nullptr && !m_location.isInMemory(); }

    /// The last failure to read or write since `forgetFailure`, also where a rule caught it and went on with nothing: a
    /// command that ends with one must not look as if all were well. No value: none.
    [[nodiscard]] const std::optional<StoreError>& lastFailure() const { return m_connection->lastFailure(); }
    void forgetFailure() { m_connection->forgetFailure(); }

    /// One more connection that only reads what is saved, for work on another thread. Not for a library in memory.
    [[nodiscard]] std::unique_ptr<Connection> openReader() const;

    /// The backup of the older library, if opening upgraded it.
    [[nodiscard]] const std::optional<std::filesystem::path>& upgradeBackup() const { return m_upgradeBackup; }

    /// The library's own identifier, made with it and kept for good.
    [[nodiscard]] const UUID& uuid() const { return m_uuid; }

    /// The name of a record in the cloud. None: this build mirrors to no cloud.
    [[nodiscard]] std::optional<std::string> recordName(const UUID& record) const;

    /// The next key of an entity's records.
    [[nodiscard]] std::int64_t& nextKey(const Entity& entity);

    /// Writes, in the open transaction, that the keys below `next` are taken for good although records were deleted.
    void keepKeys(const Entity& entity, std::int64_t next);

private:
    Store(Location location, const Records& records, std::unique_ptr<Connection> connection);
    void openFolder(const SchemaHistory& history, const Clock& clock, UUIDSource& uuids);
    void makeTables(const Schema& schema, Instant now, const UUID& uuid);

    Location m_location;
    const Records& m_records;
    std::unique_ptr<LibraryLock> m_lock;
    std::unique_ptr<Connection> m_connection;
    std::optional<std::filesystem::path> m_upgradeBackup;
    UUID m_uuid{UUID::Bytes{}};
    std::map<std::string, std::int64_t, std::less<>> m_nextKeys;
};

} // namespace Quillary
