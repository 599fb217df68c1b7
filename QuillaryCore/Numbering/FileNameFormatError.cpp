#include "QuillaryCore/Numbering/FileNameFormatError.h"

#include "QuillaryCore/Foundation/Text.h"

#include <fmt/format.h>

namespace Quillary {

namespace {

std::string sentence(FileNameFormatError::Reason reason, std::string_view placeholder)
{
    switch (reason) {
    case FileNameFormatError::Reason::empty:
        return "Enter a file name format.";
    case FileNameFormatError::Reason::unmatchedBrace:
        return "Every { needs a matching }.";
    case FileNameFormatError::Reason::missingNumber:
        return "Include {number} so two documents never get the same file name.";
    case FileNameFormatError::Reason::unknownPlaceholder:
        return fmt::format("{{{}}} isn't a placeholder.", repairedUTF8(placeholder));
    }
    return {};
}

} // namespace

FileNameFormatError::FileNameFormatError(Reason reason, std::string_view placeholder)
    : UserError(sentence(reason, placeholder))
    , m_reason(reason)
    , m_placeholder(placeholder)
{
}

} // namespace Quillary
