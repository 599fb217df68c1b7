#include "QuillaryCore/Store/UndoReplay.h"

#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>

namespace Quillary {

using Direction = UndoHistory::Direction;

UndoReplay::UndoReplay(Context& context, const UndoStep& step, Direction direction)
    : m_context(context)
    , m_step(step)
    , m_direction(direction)
{
}

const Image& UndoReplay::expected(const UndoStep::Change& change) const
{
    return m_direction == Direction::back ? change.after : change.before;
}

const Image& UndoReplay::wanted(const UndoStep::Change& change) const
{
    return m_direction == Direction::back ? change.before : change.after;
}

void UndoReplay::run()
{
    if (!std::ranges::all_of(m_step.changes, [this](const auto& change) { return isAsExpected(change); })) {
        refuse(UndoError::Reason::changedSince);
    }
    for (const UndoStep::Change& change : m_step.changes) {
        apply(change);
    }
    for (const UndoStep::Change& change : m_step.changes) {
        if (wanted(change) ? !hasAllTargets(change) : isReferredTo(change)) {
            refuse(UndoError::Reason::needed);
        }
    }
}

bool UndoReplay::isAsExpected(const UndoStep::Change& change) const
{
    const AnyRow* row = change.table->find(change.key);
    if (row == nullptr || !expected(change)) {
        return row == nullptr && !expected(change);
    }
    const RecordType& type = change.table->type();
    if (!wanted(change)) {
        return type.areEqual(row->record(), expected(change).get());
    }
    // Other fields may have been changed since; they stay as they are.
    const ColumnSet changedThen = type.differences(change.before.get(), change.after.get());
    return (type.differences(row->record(), expected(change).get()) & changedThen).none();
}

void UndoReplay::apply(const UndoStep::Change& change)
{
    Table& table = *change.table;
    if (!expected(change)) {
        AnyRow& row = table.revive(change.key);
        m_context.m_scopes.noteInserted(table, row);
        table.restore(row, wanted(change));
        return;
    }
    AnyRow& row = *table.find(change.key);
    m_context.m_scopes.note(table, row);
    if (!wanted(change)) {
        table.bury(row);
        return;
    }
    const ColumnSet changedThen = table.type().differences(change.before.get(), change.after.get());
    table.type().copy(changedThen, wanted(change).get(), row.record());
    table.noteChanged(row);
}

bool UndoReplay::isReferredTo(const UndoStep::Change& change) const
{
    const std::string& entity = change.table->type().entity().name;
    const auto uuid = change.table->type().uuid(expected(change).get());
    for (const auto& owner : m_context.m_tables) {
        for (std::size_t index = 0; index < owner->targets().size(); ++index) {
            if (owner->targets()[index] == change.table && !m_context.relatedRows(*owner, index, change.key).empty()) {
                return true;
            }
        }
        for (const UUIDTie& tie : owner->type().uuidTies()) {
            if (tie.targetEntity == entity && uuid && !m_context.tied(*owner, tie, *uuid).empty()) {
                return true;
            }
        }
    }
    return false;
}

bool UndoReplay::hasAllTargets(const UndoStep::Change& change) const
{
    // As the record is now: a reference that the step didn't touch may have been changed since.
    Table& table = *change.table;
    const AnyRow& row = *table.find(change.key);
    for (std::size_t index = 0; index < table.targets().size(); ++index) {
        const std::int64_t target = table.type().reference(row.record(), index);
        if (target != 0 && table.targets()[index]->find(target) == nullptr) {
            return false;
        }
    }
    return true;
}

void UndoReplay::refuse(UndoError::Reason reason) const
{
    const std::string_view verb = m_direction == Direction::back ? "undone" : "redone";
    switch (reason) {
    case UndoError::Reason::changedSince:
        throw UndoError(
            reason,
            fmt::format("“{}” can’t be {}, because what it changed has been changed again since.", m_step.name, verb));
    case UndoError::Reason::needed:
        break;
    }
    throw UndoError(UndoError::Reason::needed,
                    fmt::format("“{}” can’t be {}, because other entries depend on what would go or come back.",
                                m_step.name,
                                verb));
}

} // namespace Quillary
