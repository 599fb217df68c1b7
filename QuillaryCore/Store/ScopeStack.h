#pragma once

#include "QuillaryCore/Store/RecordType.h"
#include "QuillaryCore/Store/Table.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace Quillary {

/// A record that an open scope touched, and what it was before.
struct ScopeEntry
{
    Table* table;
    AnyRow* row;
    Image before;      ///< null: the scope inserted it
    int previousDepth; ///< the scope around this one that touched it too; 0: none
};

/// A scope that has neither been committed nor rolled back.
struct OpenScope
{
    std::string name;
    std::vector<ScopeEntry> entries;
    std::vector<std::size_t> openCounts; ///< for each table, how many rows were open before
    std::optional<std::string> refusal;  ///< why nothing of it may be saved
    bool isFinal = false;                ///< something in it left the house: as a whole it can't be undone
};

/// The scopes that are open, each inside the one before.
class ScopeStack
{
public:
    explicit ScopeStack(std::span<const std::unique_ptr<Table>> tables)
        : m_tables(tables)
    {
    }

    [[nodiscard]] int depth() const { return static_cast<int>(m_scopes.size()); }
    [[nodiscard]] OpenScope& innermost() { return m_scopes.back(); }

    void begin(std::string name);

    /// Keeps the state of a row, once for each scope, before it changes. `row` is as it was.
    void note(Table& table, AnyRow& row);

    /// Keeps that the row didn't exist.
    void noteInserted(Table& table, AnyRow& row);

    /// Ends the innermost scope; the scope around it takes over what it touched. Not for the outermost.
    void commitIntoParent();

    /// Nothing that the innermost scope opened may be changed any more.
    void closeRows();

    /// Ends the innermost scope; its rows stay as they are.
    void end();

    /// Ends the innermost scope; its rows return to what they were.
    void rollback();

private:
    std::span<const std::unique_ptr<Table>> m_tables;
    std::vector<OpenScope> m_scopes;
};

} // namespace Quillary
