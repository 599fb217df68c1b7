#include "QuillaryCore/Store/Observers.h"

#include <algorithm>
#include <utility>

namespace Quillary {

struct Subscription::List
{
    struct Entry
    {
        std::uint64_t id;
        std::shared_ptr<const ChangeObserver> observer; ///< also held while it is being told, when it ends itself
    };

    std::uint64_t nextID = 1;
    std::vector<Entry> entries;
};

Subscription::Subscription(std::weak_ptr<List> list, std::uint64_t id)
    : m_list(std::move(list))
    , m_id(id)
{
}

Subscription::Subscription(Subscription&& other) noexcept
    : m_list(std::move(other.m_list))
    , m_id(std::exchange(other.m_id, 0))
{
}

Subscription& Subscription::operator=(Subscription&& other) noexcept
{
    if (this != &other) {
        end();
        m_list = std::move(other.m_list);
        m_id = std::exchange(other.m_id, 0);
    }
    return *this;
}

Subscription::~Subscription()
{
    end();
}

void Subscription::end() noexcept
{
    if (const auto list = m_list.lock()) {
        std::erase_if(list->entries, [this](const List::Entry& entry) { return entry.id == m_id; });
    }
    m_list.reset();
}

Observers::Observers()
    : m_list(std::make_shared<Subscription::List>())
{
}

Subscription Observers::add(ChangeObserver observer)
{
    const std::uint64_t id = m_list->nextID++;
    m_list->entries.push_back({id, std::make_shared<const ChangeObserver>(std::move(observer))});
    return {m_list, id};
}

bool Observers::isEmpty() const
{
    return m_list->entries.empty();
}

void Observers::notify(const ChangeSet& changes) const noexcept
{
    if (changes.isEmpty()) {
        return;
    }
    const std::vector<Subscription::List::Entry> entries = m_list->entries;
    for (const auto& entry : entries) {
        const bool isStillThere =
            std::ranges::find(m_list->entries, entry.id, &Subscription::List::Entry::id) != m_list->entries.end();
        if (isStillThere) {
            (*entry.observer)(changes);
        }
    }
}

} // namespace Quillary
