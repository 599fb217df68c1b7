#pragma once

#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Foundation/UUID.h"
#include "QuillaryCore/Store/Connection.h"
#include "QuillaryCore/Store/Schema.h"

#include <cstdint>
#include <optional>
#include <string_view>

/// The tables of a library file: one for each entity, and two of the store's own that no schema counts.
namespace Quillary::LibraryTables {

/// Marks an SQLite file as one of ours (`PRAGMA application_id`): "Qlry".
inline constexpr std::int32_t applicationID = 0x516c7279;

/// Facts about the file, by name: "uuid", "created" (milliseconds since 1970), "schemaVersion".
inline constexpr std::string_view informationTable = "LibraryInformation";

/// For entities whose last records were deleted, the next key, so that no key is handed out twice.
inline constexpr std::string_view keysTable = "LibraryKeys";

/// Makes the tables and indexes of all entities.
void createEntities(Connection& connection, const Schema& schema);

/// Makes the indexes that the schema names and the file lacks or has otherwise: which indexes there are is no matter of
/// the schema's version. Where that fails, the file keeps those it has: without them it is slower and no less right.
void makeMissingIndexes(Connection& connection, const Schema& schema);

/// Makes the store's own tables and marks the file.
void createInformation(Connection& connection, const UUID& uuid, Instant created, int schemaVersion);

/// True for a table that belongs to no entity: the store's own, and SQLite's.
[[nodiscard]] bool isOwnTable(std::string_view name);

/// True when nothing was ever written: a new file, or one whose making was interrupted.
[[nodiscard]] bool isEmpty(Connection& connection);

/// Whether the file carries our mark.
[[nodiscard]] bool isLibrary(Connection& connection);

/// The identifier that the library got when it was made. No value: it has none.
[[nodiscard]] std::optional<UUID> uuid(Connection& connection);

/// The version of the schema that the library was written with, as it remembers it. No value: it doesn't.
[[nodiscard]] std::optional<std::int64_t> schemaVersion(Connection& connection);

} // namespace Quillary::LibraryTables
