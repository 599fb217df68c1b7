#include "QuillaryCore/Store/Saver.h"

#include "QuillaryCore/Store/ScopePlan.h"
#include "QuillaryCore/Store/Store.h"

#include <algorithm>
#include <map>
#include <utility>

namespace Quillary {

void Saver::flush(Table& table)
{
    noticeLostTransaction();
    try {
        table.flush();
    } catch (...) {
        dropTransaction();
        throw;
    }
    m_hasTransaction = m_store.connection().isInTransaction();
}

void Saver::noticeLostTransaction()
{
    if (m_hasTransaction && !m_store.connection().isInTransaction()) {
        dropTransaction();
    }
}

void Saver::saveAll()
{
    noticeLostTransaction();
    try {
        for (const auto& table : m_tables) {
            table->flush(Table::Images::drop);
            std::int64_t lastDeleted = 0;
            for (const AnyRow* row : table->touched()) {
                lastDeleted = std::max(lastDeleted, !row->isAlive && row->saved ? row->key : 0);
            }
            keepKeysOfDeleted(*table, lastDeleted);
        }
        if (m_store.connection().isInTransaction()) {
            m_store.connection().commit();
        }
    } catch (...) {
        dropTransaction();
        throw;
    }
    m_hasTransaction = false;
}

ChangeSet Saver::saveOnly(const OpenScope& scope)
{
    // The open transaction may hold pending changes from outside the scope: it is dropped and written anew.
    dropTransaction();
    const ScopePlan plan(m_tables, scope);
    try {
        for (const ScopePlan::Step& step : plan.steps()) {
            step.table->write(*step.row, step.row->saved.get(), step.stored.get());
            if (!step.stored && step.row->saved) {
                keepKeysOfDeleted(*step.table, step.row->key);
            }
        }
        if (m_store.connection().isInTransaction()) {
            m_store.connection().commit();
        }
    } catch (...) {
        dropTransaction();
        throw;
    }
    std::map<const Table*, RecordChanges> changes;
    for (const ScopePlan::Step& step : plan.steps()) {
        if (step.row->saved || step.stored) {
            changes[step.table].add(step.row->key, step.row->saved != nullptr, step.stored != nullptr);
        }
        step.row->saved = step.stored;
        step.row->written = step.stored;
    }
    ChangeSet saved;
    for (auto& [table, records] : changes) {
        saved.add(table->type().entity().name, std::move(records));
    }
    return saved;
}

bool Saver::hasChangesOutside(const OpenScope& scope) const
{
    for (const auto& table : m_tables) {
        for (const AnyRow* row : table->touched()) {
            if (row->scopeDepth == 0 && !table->isAs(*row, row->saved)) {
                return true;
            }
        }
    }
    return std::ranges::any_of(scope.entries, [](const ScopeEntry& entry) {
        const Image& saved = entry.row->saved;
        if (!entry.before || !saved) {
            return entry.before != saved;
        }
        return entry.before != saved && !entry.table->type().areEqual(entry.before.get(), saved.get());
    });
}

void Saver::dropTransaction() noexcept
{
    m_store.connection().rollback();
    m_hasTransaction = false;
    for (const auto& table : m_tables) {
        table->forgetTransaction();
    }
}

void Saver::keepKeysOfDeleted(const Table& table, std::int64_t lastDeletedKey)
{
    if (lastDeletedKey != 0) {
        m_store.keepKeys(table.type().entity(), lastDeletedKey + 1);
    }
}

} // namespace Quillary
