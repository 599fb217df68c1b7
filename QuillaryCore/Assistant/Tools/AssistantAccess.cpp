#include "QuillaryCore/Assistant/Tools/AssistantAccess.h"

#include "QuillaryCore/Foundation/Precondition.h"

#include <source_location>

namespace Quillary {

std::optional<AssistantAccess> assistantAccess(std::int16_t raw)
{
    if (raw < 0 || raw > 2) {
        return std::nullopt;
    }
    return static_cast<AssistantAccess>(raw);
}

std::string_view title(AssistantAccess access)
{
    switch (access) {
    case AssistantAccess::readOnly:
        return "Look only";
    case AssistantAccess::drafts:
        return "Make invoices and quotes";
    case AssistantAccess::everything:
        return "Everything";
    }
    stopProgram("an access level is one of the three", std::source_location::current());
}

std::string_view detail(AssistantAccess access)
{
    switch (access) {
    case AssistantAccess::readOnly:
        return "Find clients, invoices and figures. Change nothing.";
    case AssistantAccess::drafts:
        return "Also make and change drafts, preview and export them, and prepare emails you send yourself.";
    case AssistantAccess::everything:
        return "Also mark invoices sent, record payments and fill in your business details.";
    }
    stopProgram("an access level is one of the three", std::source_location::current());
}

} // namespace Quillary
