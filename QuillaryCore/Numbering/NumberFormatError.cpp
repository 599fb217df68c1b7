#include "QuillaryCore/Numbering/NumberFormatError.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Numbering/NumberFormat.h"

#include <fmt/format.h>

namespace Quillary {

namespace {

std::string sentence(NumberFormatError::Reason reason, std::string_view placeholder)
{
    switch (reason) {
    case NumberFormatError::Reason::unknownPlaceholder:
        return fmt::format("{{{}}} isn't a placeholder.", repairedUTF8(placeholder));
    case NumberFormatError::Reason::empty:
        return "Enter a format.";
    case NumberFormatError::Reason::tooLong:
        return fmt::format("Keep the format under {} characters.", NumberFormat::maximumCharacters);
    case NumberFormatError::Reason::invalidCharacter:
        return "The format can't contain tabs or line breaks.";
    case NumberFormatError::Reason::unmatchedBrace:
        return "Every { needs a matching }.";
    case NumberFormatError::Reason::noCounter:
        return "Add a counter such as {###} so every number is different.";
    case NumberFormatError::Reason::multipleCounters:
        return "Use only one counter.";
    case NumberFormatError::Reason::counterTooWide:
        return fmt::format("A counter can have at most {} #.", NumberFormat::maximumDigits);
    case NumberFormatError::Reason::clientNotAllowed:
        return "Client numbers can't include {client} or a per-client counter.";
    }
    return {};
}

} // namespace

NumberFormatError::NumberFormatError(Reason reason, std::string_view placeholder)
    : UserError(sentence(reason, placeholder))
    , m_reason(reason)
    , m_placeholder(placeholder)
{
}

} // namespace Quillary
