#pragma once

#include "QuillaryCore/Store/ChangeSet.h"
#include "QuillaryCore/Store/Connection.h"
#include "QuillaryCore/Store/RecordType.h"
#include "QuillaryCore/Store/TableStatements.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace Quillary {

/// The records of one type in a context's memory, and their way from and to the file.
///
/// Memory is the truth; the open transaction is a copy of it that lags behind and is brought up to date by `flush`
/// before a query reads the table. So a transaction can be dropped at any time and written anew.
class Table
{
public:
    /// `nextKey` is the library's counter for this entity; it outlives the table.
    Table(const RecordType& type, Connection& connection, std::int64_t& nextKey);
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

    /// Tells where the relationships lead. Called once, before anything else.
    void connect(std::vector<Table*> targets) { m_targets = std::move(targets); }

    [[nodiscard]] const RecordType& type() const { return m_type; }
    [[nodiscard]] const std::vector<Table*>& targets() const { return m_targets; } ///< one for each relationship

    // Records

    /// The row of a key if it is in memory, dead or alive.
    [[nodiscard]] AnyRow* inMemory(std::int64_t key) const;

    /// The living row of a key, loaded where needed. Null: there is none.
    AnyRow* find(std::int64_t key);

    /// A new row under a new key.
    AnyRow& insert();

    /// A row under a key that was handed out before, to be filled by the caller.
    AnyRow& revive(std::int64_t key);

    /// Makes sure that the row's stored state is kept.
    void touch(AnyRow& row);

    /// Notes that the row may change from now on at any time, until it is closed.
    void open(AnyRow& row);

    /// Marks a row as deleted and takes it out of what relates to others.
    void bury(AnyRow& row);

    /// Sets a row to an earlier or later state; null deletes it.
    void restore(AnyRow& row, const Image& image);

    /// A row that isn't open was changed.
    void noteChanged(AnyRow& row);

    /// The state of a row now; shares an image that is known already.
    [[nodiscard]] Image imageNow(const AnyRow& row) const;
    [[nodiscard]] bool isAs(const AnyRow& row, const Image& image) const;

    /// `base` with the fields that differ between `before` and the row now.
    [[nodiscard]] Image merged(const Image& base, const Image& before, const AnyRow& row) const;

    /// `base` with one column of another record.
    [[nodiscard]] Image withColumn(const Image& base, std::size_t column, const void* from) const;

    // Queries

    [[nodiscard]] TableStatements& statements() { return m_statements; }

    /// Steps through the rows of a statement that reads: loads what isn't in memory. At most `limit` rows.
    std::vector<AnyRow*> readRows(Statement& statement, std::size_t limit);

    /// The living rows whose relationship leads to a key, in order of their keys. Where that isn't known yet, what is
    /// pending must be in the transaction.
    const std::vector<AnyRow*>& related(std::size_t relationship, std::int64_t target);

    /// Whether `related` knows the answer without the file.
    [[nodiscard]] bool isRelatedKnown(std::size_t relationship, std::int64_t target) const;

    /// Loads `related` of many targets at once. What is pending must be in the transaction.
    void loadRelated(std::size_t relationship, std::vector<std::int64_t> targets);

    // Writing

    [[nodiscard]] bool hasPending() const { return !m_open.empty() || !m_queue.empty(); }
    [[nodiscard]] const std::vector<AnyRow*>& touched() const { return m_touched; }
    [[nodiscard]] bool hasChanges() const;

    enum class Images {
        keep, ///< more may be written in this transaction
        drop, ///< the transaction is committed next
    };

    /// Writes what differs from the open transaction, beginning one where needed.
    void flush(Images images = Images::keep);

    /// Writes the step from one state of a row to another; null: it doesn't exist.
    void write(const AnyRow& row, const void* from, const void* to);

    /// The transaction was dropped: everything that differs from the file has to be written again.
    void forgetTransaction() noexcept;

    /// All changes are in the file: rows are untouched again, deleted ones leave the memory.
    void settle();

    /// Lets go of the rows that are as the file has them, and that nobody may change.
    void sweep();

    /// Returns every row to what the file has; `settle` follows.
    void restoreSaved();

    /// What differs from the file.
    [[nodiscard]] RecordChanges unsavedChanges() const;

    /// What differs from what the observers were told; from now on they know.
    [[nodiscard]] RecordChanges takeUnobservedChanges();

    /// Closes the rows that were opened after `count` others.
    void closeAfter(std::size_t count);
    [[nodiscard]] std::size_t openCount() const { return m_open.size(); }

    /// Forgets which rows relate to which, where the file knows it. For all tables before any drops its rows.
    void dropRelated();

    /// Stops the program when a record was changed through a reference from before the last save or rollback.
    void requireUnchangedSince();

    /// Drops the untouched rows.
    void dropUntouched();

private:
    using Related = std::unordered_map<std::int64_t, std::vector<AnyRow*>>;

    AnyRow& adopt(Statement& statement, std::int64_t key);
    void queue(AnyRow& row);
    void listOpen();
    void list(AnyRow& row);
    void relist(AnyRow& row, std::size_t relationship, std::int64_t target);
    void flushRow(AnyRow& row, Images images);
    void beginIfNeeded();
    void loadRelatedRange(std::size_t relationship, const std::vector<std::int64_t>& targets);
    void requireUnchanged(const AnyRow& row) const;
    void release(AnyRow& row);

    const RecordType& m_type;
    Connection& m_connection;
    TableStatements m_statements;
    std::int64_t& m_nextKey;
    std::vector<Table*> m_targets;
    ColumnSet m_allColumns;
    std::unordered_map<std::int64_t, std::unique_ptr<AnyRow>> m_rows;
    std::vector<AnyRow*> m_touched;
    std::vector<AnyRow*> m_open;
    std::vector<AnyRow*> m_queue;
    std::vector<AnyRow*> m_released; ///< lately; their images tell whether somebody still changes them
    std::vector<Related> m_related;
};

} // namespace Quillary
