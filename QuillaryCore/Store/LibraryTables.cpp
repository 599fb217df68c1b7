#include "QuillaryCore/Store/LibraryTables.h"

#include "QuillaryCore/Store/StoreError.h"

#include <fmt/format.h>

#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Quillary::LibraryTables {

namespace {

struct MissingIndex
{
    std::string name;
    std::string creation;
};

/// SQLite keeps the statement that made an index as it was written.
std::vector<MissingIndex> missingIndexes(Connection& connection, const Schema& schema)
{
    std::set<std::string, std::less<>> made;
    Statement statement(connection, "SELECT sql FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL");
    while (statement.step()) {
        made.emplace(statement.text(0));
    }
    std::vector<MissingIndex> missing;
    for (const Entity& entity : schema.entities) {
        std::vector<std::string> statements = creationStatements(entity); // those of the indexes stand last
        const std::size_t first = statements.size() - entity.indexes.size();
        for (std::size_t number = 0; number < entity.indexes.size(); ++number) {
            std::string& creation = statements[first + number];
            if (!made.contains(creation)) {
                missing.push_back({entity.indexes[number].name, std::move(creation)});
            }
        }
    }
    return missing;
}

} // namespace

void createEntities(Connection& connection, const Schema& schema)
{
    for (const Entity& entity : schema.entities) {
        for (const std::string& statement : creationStatements(entity)) {
            connection.execute(statement);
        }
    }
}

void makeMissingIndexes(Connection& connection, const Schema& schema)
{
    try {
        const std::vector<MissingIndex> missing = missingIndexes(connection, schema);
        if (missing.empty()) {
            return;
        }
        connection.begin();
        for (const MissingIndex& index : missing) {
            connection.execute("DROP INDEX IF EXISTS " + quotedName(index.name));
            connection.execute(index.creation);
        }
        connection.commit();
    } catch (const StoreError&) {
        connection.rollback();
        connection.forgetFailure();
    }
}

void createInformation(Connection& connection, const UUID& uuid, Instant created, int schemaVersion)
{
    connection.execute(
        fmt::format("CREATE TABLE {} (name TEXT PRIMARY KEY NOT NULL, value) WITHOUT ROWID", informationTable));
    connection.execute(fmt::format(
        "CREATE TABLE {} (entity TEXT PRIMARY KEY NOT NULL, next INTEGER NOT NULL) WITHOUT ROWID", keysTable));
    Statement insert(connection, fmt::format("INSERT INTO {} (name, value) VALUES (?, ?)", informationTable));
    const std::string identifier = uuid.text();
    insert.bind(1, "uuid");
    insert.bind(2, identifier);
    insert.run();
    insert.bind(1, "created");
    insert.bind(2, created);
    insert.run();
    insert.bind(1, "schemaVersion");
    insert.bind(2, std::int64_t{schemaVersion});
    insert.run();
    connection.execute(fmt::format("PRAGMA application_id = {}", applicationID));
}

bool isOwnTable(std::string_view name)
{
    return name == informationTable || name == keysTable || name.starts_with("sqlite_");
}

bool isEmpty(Connection& connection)
{
    return connection.integer("SELECT count(*) FROM sqlite_master") == 0 &&
           connection.integer("PRAGMA application_id") == 0;
}

bool isLibrary(Connection& connection)
{
    return connection.integer("PRAGMA application_id") == applicationID;
}

std::optional<UUID> uuid(Connection& connection)
{
    const auto text = connection.text(fmt::format("SELECT value FROM {} WHERE name = 'uuid'", informationTable));
    return text ? UUID::parse(*text) : std::nullopt;
}

std::optional<std::int64_t> schemaVersion(Connection& connection)
{
    const bool hasFacts =
        connection.integer(fmt::format("SELECT count(*) FROM sqlite_master WHERE name = '{}'", informationTable)) == 1;
    return hasFacts
               ? connection.integer(fmt::format("SELECT value FROM {} WHERE name = 'schemaVersion'", informationTable))
               : std::nullopt;
}

} // namespace Quillary::LibraryTables
