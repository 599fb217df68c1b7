#pragma once

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Numbering/NumberFormatError.h"

#include <optional>

namespace Quillary {

/// Why no number can be made now.
class NumberingError : public UserError
{
public:
    enum class Reason {
        invalidFormat,       ///< the stored pattern doesn't parse; the message is that of `formatError`
        missingClient,       ///< the counter runs per client, and none is chosen
        missingClientNumber, ///< the pattern prints the client's number, and there is none
        noFreeNumber,        ///< every number tried is in use
    };

    /// Any reason but `invalidFormat`.
    explicit NumberingError(Reason reason);

    /// `Reason::invalidFormat`
    explicit NumberingError(const NumberFormatError& formatError);

    [[nodiscard]] Reason reason() const { return m_reason; }

    /// What is wrong with the pattern. No value: the reason is another one.
    [[nodiscard]] const std::optional<NumberFormatError>& formatError() const { return m_formatError; }

    friend bool operator==(const NumberingError& left, const NumberingError& right)
    {
        return left.m_reason == right.m_reason && left.m_formatError == right.m_formatError;
    }

private:
    Reason m_reason;
    std::optional<NumberFormatError> m_formatError;
};

} // namespace Quillary
