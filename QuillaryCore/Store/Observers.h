#pragma once

#include "QuillaryCore/Store/ChangeSet.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace Quillary {

/// Told what changed. Must neither throw nor change records: what it wants to do about it, it does later.
using ChangeObserver = std::function<void(const ChangeSet&)>;

/// Keeps an observer registered as long as it lives. It may outlive the context, and go while observers are told.
class [[nodiscard]] Subscription
{
public:
    Subscription() = default;
    Subscription(Subscription&& other) noexcept;
    Subscription& operator=(Subscription&& other) noexcept;
    ~Subscription();

    void end() noexcept;

private:
    friend class Observers;
    struct List;
    Subscription(std::weak_ptr<List> list, std::uint64_t id);

    std::weak_ptr<List> m_list;
    std::uint64_t m_id = 0;
};

/// The observers of one signal, told in the order in which they came.
class Observers
{
public:
    Observers();

    Subscription add(ChangeObserver observer);

    [[nodiscard]] bool isEmpty() const;

    /// Tells everyone who is registered at this moment; who ends meanwhile is not told any more.
    void notify(const ChangeSet& changes) const noexcept;

private:
    /// Shared with nobody but weakly with the subscriptions, so that one that outlives the context does no harm.
    std::shared_ptr<Subscription::List> m_list;
};

} // namespace Quillary
