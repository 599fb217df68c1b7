#include "QuillaryCore/Store/TableStatements.h"

#include "QuillaryCore/Store/Condition.h"

#include <fmt/format.h>

namespace Quillary {

TableStatements::TableStatements(const RecordType& type, Connection& connection)
    : m_type(type)
    , m_connection(connection)
    , m_table(quotedName(type.entity().name))
    , m_columns("\"id\"")
    , m_related(type.entity().relationships.size())
    , m_relatedToRange(type.entity().relationships.size())
{
    for (std::size_t column = 0; column < type.columnCount(); ++column) {
        m_columns += ", " + quotedName(type.columnName(column));
    }
}

Statement& TableStatements::find()
{
    if (m_find == nullptr) {
        m_find = &m_connection.prepared(selection(m_columns, "\"id\" = ?", false));
    }
    return *m_find;
}

Statement& TableStatements::fetch(std::string_view condition)
{
    auto found = m_fetches.find(condition);
    if (found == m_fetches.end()) {
        Statement& statement = m_connection.prepared(selection(m_columns, condition, true));
        found = m_fetches.emplace(std::string(condition), &statement).first;
    }
    return found->second->isBusy() ? m_connection.prepared(selection(m_columns, condition, true)) : *found->second;
}

Statement& TableStatements::count(std::string_view condition)
{
    auto found = m_counts.find(condition);
    if (found == m_counts.end()) {
        // Counted over a subquery, so that a LIMIT counts as one expects.
        const std::string sql = fmt::format("SELECT count(*) FROM ({})", selection("1", condition, false));
        found = m_counts.emplace(std::string(condition), &m_connection.prepared(sql)).first;
    }
    return *found->second;
}

Statement& TableStatements::related(std::size_t relationship)
{
    Statement*& statement = m_related[relationship];
    if (statement == nullptr) {
        statement = &m_connection.prepared(selection(m_columns, relatedColumn(relationship) + " = ?", true));
    }
    return *statement;
}

Statement& TableStatements::relatedToRange(std::size_t relationship)
{
    Statement*& statement = m_relatedToRange[relationship];
    if (statement == nullptr) {
        const std::string column = relatedColumn(relationship);
        statement = &m_connection.prepared(
            selection(m_columns, fmt::format("{0} BETWEEN ? AND ? ORDER BY {0}, \"id\"", column), false));
    }
    return *statement;
}

Statement& TableStatements::insertion()
{
    if (m_insertion == nullptr) {
        std::string places = "?";
        for (std::size_t column = 0; column < m_type.columnCount(); ++column) {
            places += ", ?";
        }
        m_insertion =
            &m_connection.prepared(fmt::format("INSERT INTO {} ({}) VALUES ({})", m_table, m_columns, places));
    }
    return *m_insertion;
}

Statement& TableStatements::update(const ColumnSet& columns)
{
    Statement*& statement = m_updates[columns];
    if (statement == nullptr) {
        std::string assignments;
        for (std::size_t column = 0; column < m_type.columnCount(); ++column) {
            if (columns.test(column)) {
                assignments += assignments.empty() ? "" : ", ";
                assignments += quotedName(m_type.columnName(column)) + " = ?";
            }
        }
        statement = &m_connection.prepared(fmt::format("UPDATE {} SET {} WHERE \"id\" = ?", m_table, assignments));
    }
    return *statement;
}

Statement& TableStatements::deletion()
{
    if (m_deletion == nullptr) {
        m_deletion = &m_connection.prepared(fmt::format("DELETE FROM {} WHERE \"id\" = ?", m_table));
    }
    return *m_deletion;
}

std::string TableStatements::selection(std::string_view columns, std::string_view condition, bool isOrdered) const
{
    const Condition parts = Condition::parse(condition);
    std::string sql = fmt::format("SELECT {} FROM {}", columns, m_table);
    if (!parts.filter.empty()) {
        sql += fmt::format(" WHERE {}", parts.filter);
    }
    if (!parts.order.empty()) {
        sql += fmt::format(" {}", parts.order);
    } else if (isOrdered) {
        sql += " ORDER BY \"id\"";
    }
    if (!parts.limit.empty()) {
        sql += fmt::format(" {}", parts.limit);
    }
    return sql;
}

std::string TableStatements::relatedColumn(std::size_t relationship) const
{
    return quotedName(m_type.entity().relationships[relationship].name);
}

} // namespace Quillary
