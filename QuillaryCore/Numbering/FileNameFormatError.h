#pragma once

#include "QuillaryCore/Foundation/UserError.h"

#include <string>
#include <string_view>

namespace Quillary {

/// Why a pattern can't make file names.
class FileNameFormatError : public UserError
{
public:
    enum class Reason { empty, unmatchedBrace, missingNumber, unknownPlaceholder };

    /// `placeholder` is the text between the braces; only `unknownPlaceholder` has one.
    explicit FileNameFormatError(Reason reason, std::string_view placeholder = {});

    [[nodiscard]] Reason reason() const { return m_reason; }
    [[nodiscard]] const std::string& placeholder() const { return m_placeholder; }

    friend bool operator==(const FileNameFormatError& left, const FileNameFormatError& right)
    {
        return left.m_reason == right.m_reason && left.m_placeholder == right.m_placeholder;
    }

private:
    Reason m_reason;
    std::string m_placeholder;
};

} // namespace Quillary
