#include "QuillaryCore/Store/UndoHistory.h"

#include <utility>

namespace Quillary {

std::optional<UndoStep> UndoHistory::step(const OpenScope& scope)
{
    if (scope.entries.size() > maximumChanges) {
        return std::nullopt;
    }
    UndoStep step{scope.name, {}};
    for (const ScopeEntry& entry : scope.entries) {
        if (!entry.table->isAs(*entry.row, entry.before)) {
            step.changes.push_back({entry.table, entry.row->key, entry.before, entry.table->imageNow(*entry.row)});
        }
    }
    return step.changes.empty() ? std::nullopt : std::optional(std::move(step));
}

void UndoHistory::add(UndoStep step)
{
    m_undone.clear();
    m_changeCount += step.changes.size();
    m_done.push_back(std::move(step));
    trim();
}

void UndoHistory::trim()
{
    while (m_done.size() > maximumSteps || m_changeCount > maximumChanges) {
        m_changeCount -= m_done.front().changes.size();
        m_done.pop_front();
    }
}

const UndoStep* UndoHistory::next(Direction direction) const
{
    switch (direction) {
    case Direction::back:
        return m_done.empty() ? nullptr : &m_done.back();
    case Direction::forth:
        return m_undone.empty() ? nullptr : &m_undone.back();
    }
    return nullptr;
}

void UndoHistory::move(Direction direction)
{
    switch (direction) {
    case Direction::back:
        m_changeCount -= m_done.back().changes.size();
        m_undone.push_back(std::move(m_done.back()));
        m_done.pop_back();
        break;
    case Direction::forth:
        m_changeCount += m_undone.back().changes.size();
        m_done.push_back(std::move(m_undone.back()));
        m_undone.pop_back();
        trim();
        break;
    }
}

} // namespace Quillary
