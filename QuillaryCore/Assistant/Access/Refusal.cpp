#include "QuillaryCore/Assistant/Access/Refusal.h"

#include "QuillaryCore/Assistant/Tools/AssistantTool.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <source_location>

namespace Quillary::Refusal {

std::string turnedOff()
{
    return "AI assistants are turned off in Quillary. The user can turn them on in Quillary › Settings › AI.";
}

std::string locked()
{
    return "Quillary is locked. Ask the user to unlock it with Touch ID or their password, then try again.";
}

std::string notAllowed(std::string_view assistant)
{
    return fmt::format("The user didn't allow {} to use Quillary. They can change that in Quillary › Settings › AI.",
                       assistant);
}

std::string beyond(AssistantAccess chosen, const AssistantTool& tool)
{
    switch (chosen) {
    case AssistantAccess::readOnly:
        return "In Quillary, assistants may only look. The user can change this in Quillary › Settings › AI.";
    case AssistantAccess::drafts:
        return fmt::format(
            "In Quillary, assistants may make and change drafts, but not {}. The user can change this in "
            "Quillary › Settings › AI.",
            lowerCasedASCII(tool.title));
    case AssistantAccess::everything:
        break;
    }
    stopProgram("no tool needs more than everything", std::source_location::current());
}

bool isOne(std::string_view text, std::string_view assistant, const AssistantTool& tool)
{
    const std::array refusals = {turnedOff(),
                                 locked(),
                                 notAllowed(assistant),
                                 beyond(AssistantAccess::readOnly, tool),
                                 beyond(AssistantAccess::drafts, tool)};
    return std::ranges::find(refusals, text) != refusals.end();
}

} // namespace Quillary::Refusal
