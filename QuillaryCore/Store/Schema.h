#pragma once

#include "QuillaryCore/Store/Field.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// The stored types. Each has its own column type in the file, so that a file tells which schema wrote it.
enum class AttributeType { uuid, date, text, int16, int32, int64, boolean, binary };

/// The column type as SQL declares it ("UUID", "DATE", "TEXT", "INT16", "INT32", "INT64", "BOOL", "BINARY").
[[nodiscard]] std::string_view columnType(AttributeType type);

/// One attribute of an entity, as data.
struct Attribute
{
    std::string name;
    AttributeType type;
    std::string
        defaultSQL; ///< an SQL literal; empty for the optional types (UUID, date, binary), which default to NULL
    std::string renamedFrom; ///< its name in older schemas; empty when it was never renamed

    friend bool operator==(const Attribute&, const Attribute&) = default;
};

/// One to-one relationship of an entity: a column that holds the target's row key, 0 for none.
struct Relationship
{
    std::string name;
    std::string target; ///< the entity it leads to
    WhenTargetGoes whenTargetGoes;

    friend bool operator==(const Relationship&, const Relationship&) = default;
};

struct IndexDescription
{
    std::string name;
    std::string columns;
    std::string condition;

    friend bool operator==(const IndexDescription&, const IndexDescription&) = default;
};

/// One entity: a table named after it, with the key column "id".
struct Entity
{
    std::string name;
    std::vector<Attribute> attributes;
    std::vector<Relationship> relationships;
    std::vector<IndexDescription> indexes;
    std::string renamedFrom;
    std::string clusteredBy; ///< a relationship whose records lie side by side in the file; empty: in order of the key

    friend bool operator==(const Entity&, const Entity&) = default;
};

/// All entities of one version, as data: made from the records' own lists (`schemaOf`), or written down for a version
/// that has passed.
struct Schema
{
    int version = 0;
    std::vector<Entity> entities;

    [[nodiscard]] const Entity* entity(std::string_view name) const; ///< null: there is none of this name

    friend bool operator==(const Schema&, const Schema&) = default;
};

/// The column type of a relationship.
inline constexpr std::string_view relationshipColumnType = "REFERENCE";

/// The statements that make an entity's table and its indexes. `table` is the table's name where it differs from the
/// entity's.
[[nodiscard]] std::vector<std::string> creationStatements(const Entity& entity, std::string_view table = {});

/// A name as SQL quotes it.
[[nodiscard]] std::string quotedName(std::string_view name);

/// What a library may be written with: the current schema and the earlier ones that it can be upgraded from.
struct SchemaHistory
{
    Schema current;
    std::vector<Schema> older; ///< oldest first
};

} // namespace Quillary
