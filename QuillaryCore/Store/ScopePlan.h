#pragma once

#include "QuillaryCore/Store/ScopeStack.h"
#include "QuillaryCore/Store/Table.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

namespace Quillary {

/// What the file gets when a scope is saved while other changes are pending: the scope's own changes field by field,
/// and no more of the others than the file needs to be whole.
///
/// - A record that isn't saved yet is saved as it is when the scope changed it or saved records refer to it.
/// - Where the scope deletes a record that the file's rows still refer to, because what was changed about them is
///   pending, the reference is stored as it is now; a row whose deletion is pending follows the delete rule.
class ScopePlan
{
public:
    struct Step
    {
        Table* table;
        AnyRow* row;
        Image stored; ///< what the file shall have; null: nothing
    };

    ScopePlan(std::span<const std::unique_ptr<Table>> tables, const OpenScope& scope);

    [[nodiscard]] const std::vector<Step>& steps() const { return m_steps; }

private:
    void addChanges(const ScopeEntry& entry);
    void add(Table& table, AnyRow& row, Image stored);
    [[nodiscard]] const Image& plannedOrSaved(const AnyRow& row) const;

    void detach(const Step& deleted);
    void detach(Table& owner, std::size_t column, WhenTargetGoes rule, const std::vector<AnyRow*>& rows);
    [[nodiscard]] std::vector<AnyRow*>
    storedWithReference(const Table& owner, std::size_t relationship, std::int64_t key) const;
    [[nodiscard]] std::vector<AnyRow*> storedWithUUID(const Table& owner, std::size_t column, const UUID& uuid) const;

    void addUnsavedTargets(const Step& step);

    std::span<const std::unique_ptr<Table>> m_tables;
    std::vector<Step> m_steps;
    std::unordered_map<const AnyRow*, std::size_t> m_positions;
};

} // namespace Quillary
