#pragma once

#include "QuillaryCore/Foundation/UserError.h"

#include <string>

namespace Quillary {

/// Why something can't be done to a document.
class DocumentError : public UserError
{
public:
    enum class Reason {
        wrongKind,     ///< another kind of document is needed
        wrongStatus,   ///< the document hasn't come so far, or has gone too far
        alreadyDone,   ///< there is such a document already, or nothing is left
        badAmount,     ///< a quantity or an amount that can't be
        badSchedule,   ///< dates that can't be
        outsideLimits, ///< the figures would leave `Limits`
        isNeeded,      ///< something else hangs on it
    };

    DocumentError(Reason reason, const std::string& message)
        : UserError(message)
        , m_reason(reason)
    {
    }

    [[nodiscard]] Reason reason() const { return m_reason; }

private:
    Reason m_reason;
};

} // namespace Quillary
