#include "QuillaryCore/Store/ScopeStack.h"

#include <ranges>
#include <utility>

namespace Quillary {

void ScopeStack::begin(std::string name)
{
    OpenScope scope;
    scope.name = std::move(name);
    scope.openCounts.reserve(m_tables.size());
    for (const auto& table : m_tables) {
        scope.openCounts.push_back(table->openCount());
    }
    m_scopes.push_back(std::move(scope));
}

void ScopeStack::note(Table& table, AnyRow& row)
{
    if (row.scopeDepth == depth()) {
        return;
    }
    const bool isAsStored = !row.isTouched;
    table.touch(row);
    innermost().entries.push_back(
        {&table, &row, isAsStored ? row.saved : table.imageNow(row), std::exchange(row.scopeDepth, depth())});
}

void ScopeStack::noteInserted(Table& table, AnyRow& row)
{
    if (row.scopeDepth != depth()) {
        innermost().entries.push_back({&table, &row, nullptr, std::exchange(row.scopeDepth, depth())});
    }
}

void ScopeStack::commitIntoParent()
{
    closeRows();
    OpenScope scope = std::move(m_scopes.back());
    m_scopes.pop_back();
    innermost().isFinal |= scope.isFinal;
    for (ScopeEntry& entry : scope.entries) {
        entry.row->scopeDepth = depth();
        if (entry.previousDepth != depth()) {
            innermost().entries.push_back(std::move(entry));
        }
    }
}

void ScopeStack::closeRows()
{
    for (std::size_t index = 0; index < m_tables.size(); ++index) {
        m_tables[index]->closeAfter(innermost().openCounts[index]);
    }
}

void ScopeStack::end()
{
    for (ScopeEntry& entry : innermost().entries) {
        entry.row->scopeDepth = entry.previousDepth;
    }
    m_scopes.pop_back();
}

void ScopeStack::rollback()
{
    closeRows();
    for (ScopeEntry& entry : std::views::reverse(innermost().entries)) {
        entry.table->restore(*entry.row, entry.before);
    }
    end();
}

} // namespace Quillary
