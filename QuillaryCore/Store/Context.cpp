#include "QuillaryCore/Store/Context.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryCore/Store/StoreError.h"
#include "QuillaryCore/Store/UndoReplay.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace Quillary {

namespace {

std::vector<std::unique_ptr<Table>> makeTables(Store& store)
{
    std::vector<std::unique_ptr<Table>> tables;
    for (const auto& type : store.records().types()) {
        tables.push_back(std::make_unique<Table>(*type, store.connection(), store.nextKey(type->entity())));
    }
    return tables;
}

} // namespace

Context::Context(Store& store, const Clock& clock, UUIDSource& uuids)
    : m_store(store)
    , m_clock(clock)
    , m_uuids(uuids)
    , m_tables(makeTables(store))
    , m_scopes(m_tables)
    , m_saver(store, m_tables)
{
    for (const auto& owner : m_tables) {
        std::vector<Table*> targets;
        for (const Relationship& relationship : owner->type().entity().relationships) {
            targets.push_back(table(relationship.target));
            precondition(targets.back() != nullptr, "the targets of all relationships are stored");
        }
        owner->connect(std::move(targets));
    }
}

Context::~Context()
{
    connection().rollback();
}

Connection& Context::connection()
{
    return m_store.connection();
}

Table& Context::table(const void* tag) const
{
    const auto found = std::ranges::find(m_tables, tag, [](const auto& table) { return table->type().tag(); });
    precondition(found != m_tables.end(), "only records of the store's own types are used with it");
    return **found;
}

Table* Context::table(std::string_view entityName) const
{
    const auto found = std::ranges::find(
        m_tables, entityName, [](const auto& table) { return std::string_view(table->type().entity().name); });
    return found == m_tables.end() ? nullptr : found->get();
}

AnyRow& Context::insertRow(Table& table)
{
    requireNotTelling();
    AnyRow& row = table.insert();
    m_scopes.noteInserted(table, row);
    table.type().initialize(row.record(), m_uuids.next(), m_clock.now());
    table.open(row);
    return row;
}

AnyRow& Context::editRow(Table& table, std::int64_t key)
{
    AnyRow* row = table.inMemory(key);
    precondition(row != nullptr && row->isAlive, "only a record that is in memory and not deleted is changed");
    requireNotTelling();
    m_scopes.note(table, *row);
    table.open(*row);
    return *row;
}

void Context::eraseRow(Table& table, AnyRow& row)
{
    const std::optional<UUID> uuid = table.type().uuid(row.record());
    const std::int64_t key = row.key;
    table.bury(row);
    eraseRelated(table, key);
    if (uuid) {
        eraseTied(table, *uuid);
    }
    for (const UUIDTie& tie : table.type().uuidTies()) {
        // A deleted row keeps its last values.
        const std::optional<UUID> target = table.type().uuidAt(row.record(), tie.column);
        if (target && !tie.emptiedAtTarget.empty()) {
            emptyAtTarget(table, tie, *target);
        }
    }
}

void Context::eraseRelated(const Table& table, std::int64_t key)
{
    for (const auto& owner : m_tables) {
        const auto& relationships = owner->type().entity().relationships;
        for (std::size_t index = 0; index < relationships.size(); ++index) {
            if (relationships[index].target == table.type().entity().name) {
                eraseRelatedRows(*owner, index, key);
            }
        }
    }
}

void Context::eraseRelatedRows(Table& owner, std::size_t index, std::int64_t key)
{
    const WhenTargetGoes whenTargetGoes = owner.type().entity().relationships[index].whenTargetGoes;
    const std::vector<AnyRow*> rows = relatedRows(owner, index, key);
    for (AnyRow* row : rows) {
        if (!row->isAlive) {
            continue; // it went with another row of this list
        }
        editRow(owner, row->key);
        if (whenTargetGoes == WhenTargetGoes::erase) {
            eraseRow(owner, *row);
        } else {
            owner.type().clearReference(row->record(), index);
        }
    }
}

void Context::eraseTied(const Table& table, const UUID& uuid)
{
    for (const auto& owner : m_tables) {
        for (const UUIDTie& tie : owner->type().uuidTies()) {
            if (tie.targetEntity == table.type().entity().name) {
                eraseTiedRows(*owner, tie, uuid);
            }
        }
    }
}

void Context::eraseTiedRows(Table& owner, const UUIDTie& tie, const UUID& uuid)
{
    for (AnyRow* row : tied(owner, tie, uuid)) {
        editRow(owner, row->key);
        if (tie.whenTargetGoes == WhenTargetGoes::erase) {
            eraseRow(owner, *row);
        } else {
            owner.type().clearUUID(row->record(), tie.column);
        }
    }
}

void Context::emptyAtTarget(Table& owner, const UUIDTie& tie, const UUID& uuid)
{
    Table* targets = table(std::string_view(tie.targetEntity));
    precondition(targets != nullptr, "a tie leads to an entity of the library");
    const auto& attributes = targets->type().entity().attributes;
    const auto emptied = std::ranges::find(attributes, tie.emptiedAtTarget, &Attribute::name);
    precondition(emptied != attributes.end(), "what a tie empties is an attribute of its target");
    if (!tied(owner, tie, uuid).empty()) {
        return; // another says the same of it
    }
    Statement& statement = ready(targets->statements().fetch("uuid = ?"));
    statement.bind(1, uuid);
    for (AnyRow* row : targets->readRows(statement, std::numeric_limits<std::size_t>::max())) {
        editRow(*targets, row->key);
        targets->type().clearUUID(row->record(), static_cast<std::size_t>(emptied - attributes.begin()));
    }
}

std::vector<AnyRow*> Context::tied(Table& owner, const UUIDTie& tie, const UUID& uuid)
{
    Statement& statement = ready(owner.statements().fetch(quotedName(tie.attribute) + " = ?"));
    statement.bind(1, uuid);
    return owner.readRows(statement, std::numeric_limits<std::size_t>::max());
}

Statement& Context::ready(Statement& statement)
{
    const auto [known, isNew] = m_tablesRead.try_emplace(&statement);
    if (isNew) {
        for (const std::string& name : statement.tablesRead()) {
            if (Table* read = table(std::string_view(name))) {
                known->second.push_back(read);
            }
        }
    }
    for (Table* read : known->second) {
        flush(*read);
    }
    return statement;
}

void Context::flush(Table& table)
{
    if (!table.hasPending()) {
        return;
    }
    m_saver.flush(table);
}

const std::vector<AnyRow*>& Context::relatedRows(Table& owners, std::size_t relationship, std::int64_t target)
{
    if (!owners.isRelatedKnown(relationship, target)) {
        flush(owners);
    }
    return owners.related(relationship, target);
}

void Context::save()
{
    precondition(m_scopes.depth() == 0, "inside a scope its commit saves");
    requireNotTelling();
    if (m_refusal) {
        throw StoreError(StoreError::Reason::refused, *m_refusal);
    }
    const ChangeSet saved = unsavedChanges();
    m_saver.saveAll();
    const ChangeSet changed = takeUnobservedChanges();
    for (const auto& table : m_tables) {
        table->settle();
    }
    tell(m_changed, changed);
    tell(m_saved, saved);
}

void Context::rollback()
{
    precondition(m_scopes.depth() == 0, "inside a scope it is the scope that is rolled back");
    requireNotTelling();
    m_saver.dropTransaction();
    for (const auto& table : m_tables) {
        table->restoreSaved();
    }
    m_refusal.reset();
    const ChangeSet changed = takeUnobservedChanges();
    for (const auto& table : m_tables) {
        table->settle();
    }
    tell(m_changed, changed);
}

bool Context::hasChanges() const
{
    return std::ranges::any_of(m_tables, [](const auto& table) { return table->hasChanges(); });
}

void Context::refuseSaving(const std::string& message)
{
    (m_scopes.depth() == 0 ? m_refusal : m_scopes.innermost().refusal) = message;
}

void Context::forgetUnchanged()
{
    for (const auto& table : m_tables) {
        table->dropRelated();
    }
    for (const auto& table : m_tables) {
        table->dropUntouched();
    }
}

Scope Context::beginScope(std::string name)
{
    requireNotTelling();
    m_scopes.begin(std::move(name));
    return {*this, m_scopes.depth()};
}

void Context::commitScope(int depth, HistoryEffect effect)
{
    precondition(depth == m_scopes.depth(), "the innermost scope ends first");
    requireNotTelling();
    if (const auto& refusal = m_scopes.innermost().refusal) {
        throw StoreError(StoreError::Reason::refused, *refusal);
    }
    if (effect == HistoryEffect::forgetUndone) {
        m_scopes.innermost().isFinal = true;
    }
    if (depth > 1) {
        m_scopes.commitIntoParent();
        return;
    }
    if (m_scopes.innermost().isFinal) {
        effect = HistoryEffect::forgetUndone;
    }
    m_scopes.closeRows();
    auto step = effect == HistoryEffect::add ? UndoHistory::step(m_scopes.innermost()) : std::nullopt;
    const bool isAlone = !m_saver.hasChangesOutside(m_scopes.innermost());
    ChangeSet saved = isAlone ? unsavedChanges() : ChangeSet();
    if (isAlone) {
        m_saver.saveAll();
    } else {
        saved = m_saver.saveOnly(m_scopes.innermost());
    }
    const ChangeSet changed = takeUnobservedChanges();
    m_scopes.end();
    for (const auto& table : m_tables) {
        isAlone ? table->settle() : table->sweep();
    }
    updateHistory(effect, std::move(step));
    tell(m_changed, changed);
    tell(m_saved, saved);
}

void Context::updateHistory(HistoryEffect effect, std::optional<UndoStep> step)
{
    switch (effect) {
    case HistoryEffect::add:
        if (step) {
            m_history.add(std::move(*step));
        } else {
            m_history.forgetUndone();
        }
        break;
    case HistoryEffect::forgetUndone:
        m_history.forgetUndone();
        break;
    case HistoryEffect::moveBack:
        m_history.move(UndoHistory::Direction::back);
        break;
    case HistoryEffect::moveForth:
        m_history.move(UndoHistory::Direction::forth);
        break;
    }
}

void Context::rollbackScope(int depth)
{
    precondition(depth == m_scopes.depth(), "the innermost scope ends first");
    m_scopes.rollback();
    if (depth > 1) {
        return;
    }
    if (!hasChanges()) {
        m_saver.dropTransaction();
    }
    const ChangeSet changed = takeUnobservedChanges();
    for (const auto& table : m_tables) {
        table->sweep();
    }
    tell(m_changed, changed);
}

void Context::undo()
{
    replay(UndoHistory::Direction::back, HistoryEffect::moveBack);
}

void Context::redo()
{
    replay(UndoHistory::Direction::forth, HistoryEffect::moveForth);
}

void Context::replay(UndoHistory::Direction direction, HistoryEffect effect)
{
    precondition(m_scopes.depth() == 0, "inside a scope nothing is undone");
    const UndoStep* step = m_history.next(direction);
    precondition(step != nullptr, "there is a step to undo or redo");
    Scope scope = beginScope(step->name);
    UndoReplay(*this, *step, direction).run();
    commitScope(scope.m_depth, effect);
    scope.m_context = nullptr;
}

std::optional<std::string> Context::undoName() const
{
    const UndoStep* step = m_history.next(UndoHistory::Direction::back);
    return step == nullptr ? std::nullopt : std::optional(step->name);
}

std::optional<std::string> Context::redoName() const
{
    const UndoStep* step = m_history.next(UndoHistory::Direction::forth);
    return step == nullptr ? std::nullopt : std::optional(step->name);
}

ChangeSet Context::unsavedChanges() const
{
    ChangeSet changes;
    if (!m_saved.isEmpty()) {
        for (const auto& table : m_tables) {
            changes.add(table->type().entity().name, table->unsavedChanges());
        }
    }
    return changes;
}

ChangeSet Context::takeUnobservedChanges()
{
    ChangeSet changes;
    if (!m_changed.isEmpty()) {
        for (const auto& table : m_tables) {
            changes.add(table->type().entity().name, table->takeUnobservedChanges());
        }
    }
    return changes;
}

void Context::tellChanges()
{
    tell(m_changed, takeUnobservedChanges());
}

void Context::tell(const Observers& observers, const ChangeSet& changes)
{
    m_isTelling = true;
    observers.notify(changes);
    m_isTelling = false;
}

void Context::requireNotTelling() const
{
    precondition(!m_isTelling, "observers don't change records");
}

} // namespace Quillary
