#pragma once

#include "QuillaryCore/Foundation/Clock.h"
#include "QuillaryCore/Foundation/UUID.h"
#include "QuillaryCore/Store/Field.h"
#include "QuillaryCore/Store/Observers.h"
#include "QuillaryCore/Store/RecordType.h"
#include "QuillaryCore/Store/Saver.h"
#include "QuillaryCore/Store/Scope.h"
#include "QuillaryCore/Store/ScopeStack.h"
#include "QuillaryCore/Store/Statement.h"
#include "QuillaryCore/Store/Table.h"
#include "QuillaryCore/Store/UndoHistory.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Quillary {

class Store;

/// A unit of work over the store: every record at most once in memory, changes gathered and saved together.
///
/// Records are read as `const T*`, owned by the context and valid until they are deleted or `forgetUnchanged` is
/// called. To change one, ask for it with `edit`; that is how the context knows what to write. The `T&` that `insert`
/// and `edit` return is for changing until the next `save`, `rollback` or end of a scope; after that, ask again.
/// Belongs to one thread; one context at a time writes to a store. Throws `StoreError` when the library can't be read
/// or written.
class Context
{
public:
    Context(Store& store, const Clock& clock, UUIDSource& uuids);
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
    ~Context();

    [[nodiscard]] const Clock& clock() const { return m_clock; }
    [[nodiscard]] UUIDSource& uuids() { return m_uuids; }
    [[nodiscard]] Store& store() { return m_store; }

    /// A new record with a fresh `uuid`; a record with `createdAt` gets the time of the clock, a document also its
    /// `issueDate`.
    template <class T>
    T& insert();

    /// The record behind a reference or identifier. Null: an empty reference, or no such record.
    template <class T>
    const T* find(Ref<T> ref);
    template <class T>
    const T* find(const UUID& uuid);

    /// The record for changing. Writing a value that it has already marks nothing as modified.
    template <class T>
    T& edit(const T& record);

    /// Deletes a record and what belongs to it; references to it are emptied.
    template <class T>
    void erase(const T& record);

    /// Records that match an SQL condition over the field names, which may end in ORDER BY and LIMIT, with a `?` for
    /// each value: `fetch<Document>("number = ? AND kindRaw IN (0, 2) ORDER BY createdAt", number)`. Sees pending
    /// changes. An empty condition means all. Without ORDER BY in the order of insertion.
    template <class T, class... Values>
    std::vector<const T*> fetch(std::string_view condition, const Values&... values);

    /// The first of the records that `fetch` would give. Null: none.
    template <class T, class... Values>
    const T* first(std::string_view condition, const Values&... values);

    template <class T, class... Values>
    std::int64_t count(std::string_view condition, const Values&... values);

    /// Reads plain values, for lists and reports: `visit(const Statement& row)` for every row of a SELECT over the
    /// tables, which are named after the entities, with the key column "id". Sees pending changes. `visit` must not
    /// change records.
    template <class Visitor, class... Values>
    void query(std::string_view sql, const Visitor& visit, const Values&... values);

    /// The records whose to-one `reference` leads to `target`, in the order of insertion:
    /// `related<&LineItem::document>(document)`. Loaded on first use, then kept up to date in memory.
    template <auto reference, class Target>
    auto related(const Target& target);

    /// Loads `related` of many targets at once, so that a loop over them asks the library only once.
    template <auto reference, class Target>
    void prefetch(std::span<const Target* const> targets);

    /// Writes all pending changes in one transaction; on return they are on disk. Throws: `StoreError`, and everything
    /// stays pending; also when `refuseSaving` was called since the last rollback. Not inside a scope, whose `commit`
    /// saves.
    void save();

    /// Forgets all pending changes; records in memory return to what is stored. Not inside a scope.
    void rollback();

    [[nodiscard]] bool hasChanges() const;

    /// Remembers that a figure was made after a failed read: `save`, or the commit of the scope that is open now,
    /// throws this sentence until it is rolled back.
    void refuseSaving(const std::string& message);

    /// Drops unchanged records from memory. Every `const T*` handed out before is invalid afterwards.
    void forgetUnchanged();

    /// Begins one action of a user, a tool or a command, under the name that the undo command shows:
    /// `auto scope = context.beginScope("New invoice"); … scope.commit();`
    Scope beginScope(std::string name);

    /// How many scopes are open, one inside the other.
    [[nodiscard]] int scopeDepth() const { return m_scopes.depth(); }

    /// Takes back the last committed scope, or does again what was taken back; saved on return. Changes that are
    /// pending stay pending. Not inside a scope. Throws: `UndoError` when other changes stand in the way, `StoreError`;
    /// nothing has changed then.
    void undo();
    void redo();

    /// The name of the scope that `undo` or `redo` would take. No value: none.
    [[nodiscard]] std::optional<std::string> undoName() const;
    [[nodiscard]] std::optional<std::string> redoName() const;

    /// Tells what changed in memory, pending edits included: after every `save`, `rollback` and end of an outermost
    /// scope, and whenever `tellChanges` is called.
    Subscription onChanged(ChangeObserver observer) { return m_changed.add(std::move(observer)); }

    /// Tells what a save brought into the file.
    Subscription onSaved(ChangeObserver observer) { return m_saved.add(std::move(observer)); }

    /// Tells the observers of `onChanged` what has changed since they were told last, all at once. A window calls it
    /// when its event loop has nothing else to do.
    void tellChanges();

private:
    template <auto reference>
    struct ReferenceTraits;

    template <class Owner, class Target, Ref<Target> Owner::* member>
    struct ReferenceTraits<member>
    {
        using OwnerType = Owner;
        using TargetType = Target;
        [[nodiscard]] static constexpr std::size_t index();
    };

    [[nodiscard]] Table& table(const void* tag) const;
    [[nodiscard]] Table* table(std::string_view entityName) const;
    template <class T>
    [[nodiscard]] Table& table() const
    {
        return table(static_cast<const void*>(&recordTag<T>));
    }
    template <class T>
    static T& typed(AnyRow& row)
    {
        return static_cast<Row<T>&>(row).value;
    }
    template <class T>
    static std::vector<const T*> typed(const std::vector<AnyRow*>& rows);
    template <class... Values>
    static void bindAll(Statement& statement, const Values&... values);

    AnyRow& insertRow(Table& table);
    AnyRow& editRow(Table& table, std::int64_t key);
    void eraseRow(Table& table, AnyRow& row);
    void eraseRelated(const Table& table, std::int64_t key);
    void eraseRelatedRows(Table& owner, std::size_t index, std::int64_t key);
    void eraseTied(const Table& table, const UUID& uuid);
    void eraseTiedRows(Table& owner, const UUIDTie& tie, const UUID& uuid);
    void emptyAtTarget(Table& owner, const UUIDTie& tie, const UUID& uuid);
    std::vector<AnyRow*> tied(Table& owner, const UUIDTie& tie, const UUID& uuid);

    friend class Scope;
    friend class UndoReplay;
    enum class HistoryEffect { add, forgetUndone, moveBack, moveForth };
    void commitScope(int depth, HistoryEffect effect);
    void rollbackScope(int depth);
    void updateHistory(HistoryEffect effect, std::optional<UndoStep> step);
    void replay(UndoHistory::Direction direction, HistoryEffect effect);
    void tell(const Observers& observers, const ChangeSet& changes);
    void requireNotTelling() const;
    [[nodiscard]] ChangeSet unsavedChanges() const; ///< empty where nobody observes
    [[nodiscard]] ChangeSet takeUnobservedChanges();

    /// Writes the pending changes of the tables that a statement reads.
    Statement& ready(Statement& statement);
    void flush(Table& table);
    const std::vector<AnyRow*>& relatedRows(Table& owners, std::size_t relationship, std::int64_t target);
    [[nodiscard]] Connection& connection();

    Store& m_store;
    const Clock& m_clock;
    UUIDSource& m_uuids;
    std::vector<std::unique_ptr<Table>> m_tables;
    ScopeStack m_scopes;
    Saver m_saver;
    UndoHistory m_history;
    Observers m_changed;
    Observers m_saved;
    bool m_isTelling = false;
    std::unordered_map<const Statement*, std::vector<Table*>> m_tablesRead;
    std::optional<std::string> m_refusal;
};

template <class Owner, class Target, Ref<Target> Owner::* member>
constexpr std::size_t Context::ReferenceTraits<member>::index()
{
    std::size_t index = 0;
    std::size_t found = std::numeric_limits<std::size_t>::max();
    const auto compare = [&]<class OtherTarget>(const Reference<Owner, OtherTarget>& reference) {
        if constexpr (std::is_same_v<OtherTarget, Target>) {
            if (reference.member == member) {
                found = index;
            }
        }
        ++index;
    };
    std::apply([&](const auto&... references) { (compare(references), ...); }, Owner::references());
    return found;
}

template <class T>
std::vector<const T*> Context::typed(const std::vector<AnyRow*>& rows)
{
    std::vector<const T*> records;
    records.reserve(rows.size());
    for (AnyRow* row : rows) {
        records.push_back(&typed<T>(*row));
    }
    return records;
}

template <class... Values>
void Context::bindAll(Statement& statement, const Values&... values)
{
    int index = 1;
    (statement.bind(index++, values), ...);
}

template <class T>
T& Context::insert()
{
    return typed<T>(insertRow(table<T>()));
}

template <class T>
const T* Context::find(Ref<T> ref)
{
    AnyRow* row = ref ? table<T>().find(ref.key()) : nullptr;
    return row == nullptr ? nullptr : &typed<T>(*row);
}

template <class T>
const T* Context::find(const UUID& uuid)
{
    return first<T>("uuid = ?", uuid);
}

template <class T>
T& Context::edit(const T& record)
{
    return typed<T>(editRow(table<T>(), record.ref.key()));
}

template <class T>
void Context::erase(const T& record)
{
    Table& records = table<T>();
    eraseRow(records, editRow(records, record.ref.key()));
}

template <class T, class... Values>
std::vector<const T*> Context::fetch(std::string_view condition, const Values&... values)
{
    Table& records = table<T>();
    Statement& statement = ready(records.statements().fetch(condition));
    bindAll(statement, values...);
    return typed<T>(records.readRows(statement, std::numeric_limits<std::size_t>::max()));
}

template <class T, class... Values>
const T* Context::first(std::string_view condition, const Values&... values)
{
    Table& records = table<T>();
    Statement& statement = ready(records.statements().fetch(condition));
    bindAll(statement, values...);
    const auto rows = records.readRows(statement, 1);
    return rows.empty() ? nullptr : &typed<T>(*rows.front());
}

template <class T, class... Values>
std::int64_t Context::count(std::string_view condition, const Values&... values)
{
    Statement& statement = ready(table<T>().statements().count(condition));
    const Statement::Reading reading(statement);
    bindAll(statement, values...);
    statement.step();
    return statement.integer(0);
}

template <class Visitor, class... Values>
void Context::query(std::string_view sql, const Visitor& visit, const Values&... values)
{
    Statement& statement = ready(connection().prepared(sql));
    const Statement::Reading reading(statement);
    bindAll(statement, values...);
    while (statement.step()) {
        visit(std::as_const(statement));
    }
}

template <auto reference, class Target>
auto Context::related(const Target& target)
{
    using Traits = ReferenceTraits<reference>;
    using Owner = typename Traits::OwnerType;
    static_assert(std::is_same_v<Target, typename Traits::TargetType>);
    constexpr std::size_t index = Traits::index();
    static_assert(index < referenceCount<Owner>, "the reference is listed in references()");
    return typed<Owner>(relatedRows(table<Owner>(), index, target.ref.key()));
}

template <auto reference, class Target>
void Context::prefetch(std::span<const Target* const> targets)
{
    using Traits = ReferenceTraits<reference>;
    static_assert(std::is_same_v<Target, typename Traits::TargetType>);
    std::vector<std::int64_t> keys;
    keys.reserve(targets.size());
    for (const Target* target : targets) {
        keys.push_back(target->ref.key());
    }
    Table& owners = table<typename Traits::OwnerType>();
    flush(owners);
    owners.loadRelated(Traits::index(), std::move(keys));
}

} // namespace Quillary
