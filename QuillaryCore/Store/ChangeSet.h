#pragma once

#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

namespace Quillary {

/// The keys of the records of one entity that changed; each key in one list only, in ascending order.
struct RecordChanges
{
    std::vector<std::int64_t> inserted;
    std::vector<std::int64_t> changed;
    std::vector<std::int64_t> deleted;

    /// Puts a key into the list that follows from its being there before and now.
    void add(std::int64_t key, bool wasThere, bool isThere);

    [[nodiscard]] bool isEmpty() const { return inserted.empty() && changed.empty() && deleted.empty(); }
};

/// What became different between two moments, by entity. A record that was inserted and deleted in between is not in
/// it, nor one that was changed and changed back.
class ChangeSet
{
public:
    [[nodiscard]] bool isEmpty() const { return m_changes.empty(); }

    /// The changes of one entity; empty lists where it has none.
    [[nodiscard]] const RecordChanges& of(std::string_view entity) const;
    template <class T>
    [[nodiscard]] const RecordChanges& of() const
    {
        return of(T::entityName);
    }

    /// Takes over the changes of one entity. `entity` outlives the set.
    void add(std::string_view entity, RecordChanges changes);

private:
    std::map<std::string_view, RecordChanges> m_changes;
};

} // namespace Quillary
