#include "QuillaryCore/Store/UpgradeCopy.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Store/LibraryTables.h"

#include <fmt/format.h>

#include <string>
#include <vector>

namespace Quillary {

namespace {

bool makesTable(const std::string& statement)
{
    return statement.starts_with("CREATE TABLE");
}

/// In the order of the new table's key, so that it grows at its end only.
std::string copyStatement(const UpgradePlan::Table& table, const Entity& entity)
{
    std::string columns = "\"id\"";
    std::string values = "\"id\"";
    std::string order = "\"id\"";
    for (const auto& [name, value] : table.columns) {
        columns.append(", ").append(quotedName(name));
        values.append(", ").append(value);
        if (name == entity.clusteredBy) {
            order.insert(0, fmt::format("{}, ", value));
        }
    }
    return fmt::format("INSERT INTO main.{} ({}) SELECT {} FROM old.{} ORDER BY {}",
                       quotedName(table.name),
                       columns,
                       values,
                       quotedName(table.source),
                       order);
}

} // namespace

UpgradeCopy::UpgradeCopy(const std::filesystem::path& newFile,
                         const std::filesystem::path& oldFile,
                         std::span<const Schema* const> versions)
    : m_connection(newFile, Connection::Access::scratch)
    , m_schema(*versions.back())
    , m_plan(UpgradePlan::make(versions))
{
    Statement attach(m_connection, "ATTACH ? AS old");
    const std::string name = oldFile.string();
    attach.bind(1, name);
    attach.run();
    m_connection.begin();
}

void UpgradeCopy::makeTables()
{
    for (const Entity& entity : m_schema.entities) {
        for (const std::string& statement : creationStatements(entity)) {
            if (makesTable(statement)) {
                m_connection.execute(statement);
            }
        }
    }
}

bool UpgradeCopy::copyNextEntity()
{
    if (m_copied == m_plan.tables.size()) {
        return false;
    }
    const UpgradePlan::Table& table = m_plan.tables[m_copied++];
    const Entity* entity = m_schema.entity(table.name);
    precondition(entity != nullptr, "an upgrade fills the tables of the current schema");
    m_connection.execute(copyStatement(table, *entity));
    return true;
}

void UpgradeCopy::makeIndexes()
{
    for (const Entity& entity : m_schema.entities) {
        for (const std::string& statement : creationStatements(entity)) {
            if (!makesTable(statement)) {
                m_connection.execute(statement);
            }
        }
    }
}

void UpgradeCopy::copyFacts()
{
    LibraryTables::createInformation(m_connection, UUID(UUID::Bytes{}), Instant(), m_schema.version);
    m_connection.execute(
        fmt::format("INSERT OR REPLACE INTO main.{0} SELECT * FROM old.{0} WHERE name <> 'schemaVersion'",
                    LibraryTables::informationTable));
    Statement keys(m_connection,
                   fmt::format("INSERT INTO main.{0} (entity, next) SELECT ?1, next FROM old.{0} WHERE entity = ?2",
                               LibraryTables::keysTable));
    for (const UpgradePlan::Table& table : m_plan.tables) {
        keys.bind(1, table.name);
        keys.bind(2, table.source);
        keys.run();
    }
}

LibraryCopy::RowCounts UpgradeCopy::finish()
{
    LibraryCopy::RowCounts rows;
    for (const UpgradePlan::Table& table : m_plan.tables) {
        rows[table.name] =
            m_connection.integer(fmt::format("SELECT count(*) FROM old.{}", quotedName(table.source))).value_or(0);
    }
    m_connection.commit();
    return rows;
}

} // namespace Quillary
