#include "QuillaryCore/Store/Scope.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Store/Context.h"

#include <utility>

namespace Quillary {

Scope::Scope(Scope&& other) noexcept
    : m_context(std::exchange(other.m_context, nullptr))
    , m_depth(other.m_depth)
{
}

Scope::~Scope()
{
    if (m_context != nullptr) {
        rollback();
    }
}

void Scope::commit(Undo undo)
{
    precondition(m_context != nullptr, "a scope ends once");
    m_context->commitScope(m_depth,
                           undo == Undo::possible ? Context::HistoryEffect::add : Context::HistoryEffect::forgetUndone);
    m_context = nullptr;
}

void Scope::rollback()
{
    precondition(m_context != nullptr, "a scope ends once");
    std::exchange(m_context, nullptr)->rollbackScope(m_depth);
}

} // namespace Quillary
