#pragma once

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Store/ScopeStack.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace Quillary {

/// A step that can't be undone or redone any more, although it is the next one.
class UndoError : public UserError
{
public:
    enum class Reason {
        changedSince, ///< a field that the step changed has another value now
        needed, ///< a record that would go is referred to by others, or one that would come back refers to nothing
    };

    UndoError(Reason reason, const std::string& message)
        : UserError(message)
        , m_reason(reason)
    {
    }

    [[nodiscard]] Reason reason() const { return m_reason; }

private:
    Reason m_reason;
};

/// One committed scope: every record that it changed, before and after.
struct UndoStep
{
    struct Change
    {
        Table* table;
        std::int64_t key;
        Image before;
        Image after;
    };

    std::string name;
    std::vector<Change> changes;
};

/// The committed scopes that can be undone, and those that were and can be redone. Lives in memory with its context.
class UndoHistory
{
public:
    static constexpr std::size_t maximumSteps = 100;
    static constexpr std::size_t maximumChanges = 20'000; ///< of all steps together; a larger step isn't kept

    enum class Direction { back, forth };

    /// What a scope changed, to be added once it is saved. No value: nothing, or more than is kept.
    [[nodiscard]] static std::optional<UndoStep> step(const OpenScope& scope);

    /// Adds a step; what was undone before can't be redone any more.
    void add(UndoStep step);

    /// A step that can't be undone was saved: it isn't kept, but it ends what could be redone.
    void forgetUndone() { m_undone.clear(); }

    /// The step that would be undone or redone next. Null: none.
    [[nodiscard]] const UndoStep* next(Direction direction) const;

    /// The next step in this direction was taken.
    void move(Direction direction);

private:
    void trim();

    std::deque<UndoStep> m_done;
    std::vector<UndoStep> m_undone;
    std::size_t m_changeCount = 0; ///< in `m_done`
};

} // namespace Quillary
