#pragma once

#include "QuillaryCore/Store/ScopeStack.h"
#include "QuillaryCore/Store/Table.h"

#include <memory>
#include <span>

namespace Quillary {

class Store;

/// Brings pending changes into the file, each time in one transaction.
///
/// Throws: `StoreError`; the transaction is dropped then, and everything is pending as before.
class Saver
{
public:
    Saver(Store& store, std::span<const std::unique_ptr<Table>> tables)
        : m_store(store)
        , m_tables(tables)
    {
    }

    /// Brings what is pending of one table into the open transaction, so that a query sees it.
    void flush(Table& table);

    /// Writes everything that is pending. The rows don't know it yet: `Table::settle` follows.
    void saveAll();

    /// Writes what a scope changed, field by field, and leaves everything else pending. The rows know it on return.
    /// Returns what the file got.
    ChangeSet saveOnly(const OpenScope& scope);

    /// Whether anything is pending that the outermost scope didn't do.
    [[nodiscard]] bool hasChangesOutside(const OpenScope& scope) const;

    /// Takes back what was written but not committed; it is written again when it is needed.
    void dropTransaction() noexcept;

private:
    /// SQLite may end a transaction by itself when a statement fails, also one that only reads.
    void noticeLostTransaction();

    void keepKeysOfDeleted(const Table& table, std::int64_t lastDeletedKey);

    Store& m_store;
    std::span<const std::unique_ptr<Table>> m_tables;
    bool m_hasTransaction = false;
};

} // namespace Quillary
