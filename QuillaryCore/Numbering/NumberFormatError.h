#pragma once

#include "QuillaryCore/Foundation/UserError.h"

#include <string>
#include <string_view>

namespace Quillary {

/// Why a pattern can't make numbers.
class NumberFormatError : public UserError
{
public:
    enum class Reason {
        unknownPlaceholder,
        empty,
        tooLong,
        invalidCharacter,
        unmatchedBrace,
        noCounter,
        multipleCounters,
        counterTooWide,
        clientNotAllowed,
    };

    /// `placeholder` is the text between the braces; only `unknownPlaceholder` has one.
    explicit NumberFormatError(Reason reason, std::string_view placeholder = {});

    [[nodiscard]] Reason reason() const { return m_reason; }
    [[nodiscard]] const std::string& placeholder() const { return m_placeholder; }

    friend bool operator==(const NumberFormatError& left, const NumberFormatError& right)
    {
        return left.m_reason == right.m_reason && left.m_placeholder == right.m_placeholder;
    }

private:
    Reason m_reason;
    std::string m_placeholder;
};

} // namespace Quillary
