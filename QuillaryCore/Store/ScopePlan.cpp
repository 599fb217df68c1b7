#include "QuillaryCore/Store/ScopePlan.h"

#include <utility>

namespace Quillary {

namespace {

/// Whether a change only emptied references, as the deletion of their target does.
bool onlyLostReferences(const ScopeEntry& entry)
{
    const RecordType& type = entry.table->type();
    const auto withoutReferences = type.makeRow(entry.row->key);
    const ColumnSet changed = type.differences(entry.before.get(), entry.row->record());
    const ColumnSet notEmpty = type.differences(withoutReferences->record(), entry.row->record());
    return (changed & (notEmpty | ~type.referenceColumns())).none();
}

} // namespace

ScopePlan::ScopePlan(std::span<const std::unique_ptr<Table>> tables, const OpenScope& scope)
    : m_tables(tables)
{
    for (const ScopeEntry& entry : scope.entries) {
        addChanges(entry);
    }
    // Each of the two loops goes on over what it adds.
    for (std::size_t index = 0; index < m_steps.size(); ++index) {
        if (!m_steps[index].stored) {
            detach(Step(m_steps[index]));
        }
    }
    for (std::size_t index = 0; index < m_steps.size(); ++index) {
        addUnsavedTargets(Step(m_steps[index]));
    }
}

void ScopePlan::addChanges(const ScopeEntry& entry)
{
    Table& table = *entry.table;
    AnyRow& row = *entry.row;
    if (table.isAs(row, entry.before)) {
        return;
    }
    if (!row.isAlive) {
        add(table, row, nullptr);
    } else if (row.saved && entry.before) {
        add(table, row, table.merged(row.saved, entry.before, row));
    } else if (!entry.before || !onlyLostReferences(entry)) {
        add(table, row, table.imageNow(row));
    }
}

void ScopePlan::add(Table& table, AnyRow& row, Image stored)
{
    const auto [position, isNew] = m_positions.try_emplace(&row, m_steps.size());
    if (isNew) {
        m_steps.push_back({&table, &row, std::move(stored)});
    } else {
        m_steps[position->second].stored = std::move(stored);
    }
}

const Image& ScopePlan::plannedOrSaved(const AnyRow& row) const
{
    const auto position = m_positions.find(&row);
    return position == m_positions.end() ? row.saved : m_steps[position->second].stored;
}

void ScopePlan::detach(const Step& deleted)
{
    const Entity& entity = deleted.table->type().entity();
    const auto uuid = deleted.table->type().uuid(deleted.row->record()); // a deleted row keeps its last values
    for (const auto& owner : m_tables) {
        const RecordType& type = owner->type();
        for (std::size_t index = 0; index < owner->targets().size(); ++index) {
            if (owner->targets()[index] == deleted.table) {
                detach(*owner,
                       type.entity().attributes.size() + index,
                       type.entity().relationships[index].whenTargetGoes,
                       storedWithReference(*owner, index, deleted.row->key));
            }
        }
        for (const UUIDTie& tie : type.uuidTies()) {
            if (uuid && tie.targetEntity == entity.name) {
                detach(*owner, tie.column, tie.whenTargetGoes, storedWithUUID(*owner, tie.column, *uuid));
            }
        }
    }
}

void ScopePlan::detach(Table& owner, std::size_t column, WhenTargetGoes rule, const std::vector<AnyRow*>& rows)
{
    for (AnyRow* row : rows) {
        if (!row->isAlive && rule == WhenTargetGoes::erase) {
            add(owner, *row, nullptr);
        } else {
            const auto empty = owner.type().makeRow(row->key);
            const void* value = row->isAlive ? row->record() : empty->record();
            add(owner, *row, owner.withColumn(plannedOrSaved(*row), column, value));
        }
    }
}

std::vector<AnyRow*>
ScopePlan::storedWithReference(const Table& owner, std::size_t relationship, std::int64_t key) const
{
    std::vector<AnyRow*> rows;
    for (AnyRow* row : owner.touched()) {
        const Image& stored = plannedOrSaved(*row);
        if (stored && owner.type().reference(stored.get(), relationship) == key) {
            rows.push_back(row);
        }
    }
    return rows;
}

std::vector<AnyRow*> ScopePlan::storedWithUUID(const Table& owner, std::size_t column, const UUID& uuid) const
{
    std::vector<AnyRow*> rows;
    for (AnyRow* row : owner.touched()) {
        const Image& stored = plannedOrSaved(*row);
        if (stored && owner.type().uuidAt(stored.get(), column) == uuid) {
            rows.push_back(row);
        }
    }
    return rows;
}

void ScopePlan::addUnsavedTargets(const Step& step)
{
    if (!step.stored) {
        return;
    }
    const Table& table = *step.table;
    for (std::size_t relationship = 0; relationship < table.targets().size(); ++relationship) {
        Table* target = table.targets()[relationship];
        AnyRow* row = target->inMemory(table.type().reference(step.stored.get(), relationship));
        if (row != nullptr && row->isAlive && row->isTouched && !row->saved && !m_positions.contains(row)) {
            add(*target, *row, target->imageNow(*row));
        }
    }
}

} // namespace Quillary
