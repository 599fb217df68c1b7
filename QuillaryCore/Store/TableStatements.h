#pragma once

#include "QuillaryCore/Store/Connection.h"
#include "QuillaryCore/Store/RecordType.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Quillary {

/// The statements over one table, each prepared when it is first needed and kept as long as the connection.
///
/// Those that read give the key first and then all columns in the order of the record type.
class TableStatements
{
public:
    TableStatements(const RecordType& type, Connection& connection);

    /// The row of a key.
    Statement& find();

    /// The rows that match a condition, see `Context::fetch`.
    Statement& fetch(std::string_view condition);

    /// How many rows `fetch` would give.
    Statement& count(std::string_view condition);

    /// The rows whose relationship leads to a key, in order of their keys.
    Statement& related(std::size_t relationship);

    /// The rows whose relationship leads to a key between two, in order of these and of their own keys.
    Statement& relatedToRange(std::size_t relationship);

    Statement& insertion();                      ///< key, then all columns
    Statement& update(const ColumnSet& columns); ///< these columns, then the key
    Statement& deletion();                       ///< key

private:
    struct TextHash
    {
        using is_transparent = void; // NOLINT(readability-identifier-naming): the name that the standard looks for
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
    };

    /// One statement for each text. While its rows are being read, the connection has another for the same SQL.
    using ByText = std::unordered_map<std::string, Statement*, TextHash, std::equal_to<>>;

    [[nodiscard]] std::string selection(std::string_view columns, std::string_view condition, bool isOrdered) const;
    [[nodiscard]] std::string relatedColumn(std::size_t relationship) const;

    const RecordType& m_type;
    Connection& m_connection;
    std::string m_table;
    std::string m_columns;
    Statement* m_find = nullptr;
    Statement* m_insertion = nullptr;
    Statement* m_deletion = nullptr;
    ByText m_fetches;
    ByText m_counts;
    std::vector<Statement*> m_related;
    std::vector<Statement*> m_relatedToRange;
    std::unordered_map<ColumnSet, Statement*> m_updates;
};

} // namespace Quillary
