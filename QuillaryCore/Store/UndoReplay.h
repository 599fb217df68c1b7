#pragma once

#include "QuillaryCore/Store/UndoHistory.h"

#include <string>

namespace Quillary {

class Context;

/// Brings the records of a step back to what they were before it, or forth to what they were after it; runs inside an
/// open scope, which takes everything back when the replay throws.
class UndoReplay
{
public:
    UndoReplay(Context& context, const UndoStep& step, UndoHistory::Direction direction);

    /// Throws: `UndoError` when a record was changed since, or can't go or come back because of others.
    void run();

private:
    [[nodiscard]] const Image& expected(const UndoStep::Change& change) const;
    [[nodiscard]] const Image& wanted(const UndoStep::Change& change) const;
    [[nodiscard]] bool isAsExpected(const UndoStep::Change& change) const;
    void apply(const UndoStep::Change& change);
    [[nodiscard]] bool isReferredTo(const UndoStep::Change& change) const;
    [[nodiscard]] bool hasAllTargets(const UndoStep::Change& change) const;
    [[noreturn]] void refuse(UndoError::Reason reason) const;

    Context& m_context;
    const UndoStep& m_step;
    UndoHistory::Direction m_direction;
};

} // namespace Quillary
