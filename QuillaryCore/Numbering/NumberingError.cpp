#include "QuillaryCore/Numbering/NumberingError.h"

#include "QuillaryCore/Foundation/Precondition.h"

namespace Quillary {

namespace {

std::string sentence(NumberingError::Reason reason)
{
    switch (reason) {
    case NumberingError::Reason::invalidFormat:
        break;
    case NumberingError::Reason::missingClient:
        return "Choose a client first: this number counts per client.";
    case NumberingError::Reason::missingClientNumber:
        return "This client has no client number, which the format needs.";
    case NumberingError::Reason::noFreeNumber:
        return "Couldn't find an unused number. Check the format in Settings › Numbering.";
    }
    precondition(false, "an invalid format is reported with its own error");
    return {};
}

} // namespace

NumberingError::NumberingError(Reason reason)
    : UserError(sentence(reason))
    , m_reason(reason)
{
}

NumberingError::NumberingError(const NumberFormatError& formatError)
    : UserError(formatError.message())
    , m_reason(Reason::invalidFormat)
    , m_formatError(formatError)
{
}

} // namespace Quillary
