#include "QuillaryCore/Store/LibraryTables.h"

#include <fmt/format.h>

namespace Quillary::LibraryTables {

void createEntities(Connection& connection, const Schema& schema)
{
    for (const Entity& entity : schema.entities) {
        for (const std::string& statement : creationStatements(entity)) {
            connection.execute(statement);
        }
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
