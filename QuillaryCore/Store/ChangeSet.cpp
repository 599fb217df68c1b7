#include "QuillaryCore/Store/ChangeSet.h"

#include <algorithm>
#include <utility>

namespace Quillary {

void RecordChanges::add(std::int64_t key, bool wasThere, bool isThere)
{
    if (!wasThere) {
        inserted.push_back(key);
    } else if (isThere) {
        changed.push_back(key);
    } else {
        deleted.push_back(key);
    }
}

const RecordChanges& ChangeSet::of(std::string_view entity) const
{
    static const RecordChanges none;
    const auto found = m_changes.find(entity);
    return found == m_changes.end() ? none : found->second;
}

void ChangeSet::add(std::string_view entity, RecordChanges changes)
{
    if (changes.isEmpty()) {
        return;
    }
    std::ranges::sort(changes.inserted);
    std::ranges::sort(changes.changed);
    std::ranges::sort(changes.deleted);
    m_changes.insert_or_assign(entity, std::move(changes));
}

} // namespace Quillary
