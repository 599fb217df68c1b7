#include "QuillaryCore/Store/Schema.h"

#include <fmt/format.h>

#include <algorithm>

namespace Quillary {

namespace {

bool isOptional(AttributeType type)
{
    return type == AttributeType::uuid || type == AttributeType::date || type == AttributeType::binary;
}

std::string columnDefinition(const Attribute& attribute)
{
    const std::string definition = fmt::format("{} {}", quotedName(attribute.name), columnType(attribute.type));
    return isOptional(attribute.type) ? definition
                                      : fmt::format("{} NOT NULL DEFAULT {}", definition, attribute.defaultSQL);
}

} // namespace

std::string_view columnType(AttributeType type)
{
    switch (type) {
    case AttributeType::uuid:
        return "UUID";
    case AttributeType::date:
        return "DATE";
    case AttributeType::text:
        return "TEXT";
    case AttributeType::int16:
        return "INT16";
    case AttributeType::int32:
        return "INT32";
    case AttributeType::int64:
        return "INT64";
    case AttributeType::boolean:
        return "BOOL";
    case AttributeType::binary:
        return "BINARY";
    }
    return "";
}

std::string quotedName(std::string_view name)
{
    std::string quoted = "\"";
    for (const char character : name) {
        quoted += character;
        if (character == '"') {
            quoted += '"';
        }
    }
    return quoted + '"';
}

const Entity* Schema::entity(std::string_view name) const
{
    const auto found = std::ranges::find(entities, name, &Entity::name);
    return found == entities.end() ? nullptr : &*found;
}

std::vector<std::string> creationStatements(const Entity& entity, std::string_view table)
{
    const std::string name = quotedName(table.empty() ? std::string_view(entity.name) : table);
    const bool isClustered = !entity.clusteredBy.empty();
    std::string columns = isClustered ? "\"id\" INTEGER NOT NULL" : "\"id\" INTEGER PRIMARY KEY";
    for (const Attribute& attribute : entity.attributes) {
        columns += ", " + columnDefinition(attribute);
    }
    for (const Relationship& relationship : entity.relationships) {
        columns += fmt::format(", {} {} NOT NULL DEFAULT 0", quotedName(relationship.name), relationshipColumnType);
    }
    std::vector<std::string> statements;
    if (isClustered) {
        statements.push_back(fmt::format("CREATE TABLE {} ({}, PRIMARY KEY ({}, \"id\")) WITHOUT ROWID",
                                         name,
                                         columns,
                                         quotedName(entity.clusteredBy)));
        statements.push_back(
            fmt::format("CREATE UNIQUE INDEX {} ON {} (\"id\")", quotedName(entity.name + "_id"), name));
    } else {
        statements.push_back(fmt::format("CREATE TABLE {} ({})", name, columns));
    }
    for (const IndexDescription& index : entity.indexes) {
        statements.push_back(fmt::format("CREATE INDEX {} ON {} ({}){}",
                                         quotedName(index.name),
                                         name,
                                         index.columns,
                                         index.condition.empty() ? "" : " WHERE " + index.condition));
    }
    return statements;
}

} // namespace Quillary
