#include "QuillaryCore/Assistant/Tools/AssistantEnvironment.h"

#include "QuillaryCore/Assistant/Tools/ToolResult.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Model/Business.h"

namespace Quillary {

const Business& AssistantEnvironment::ownBusiness() const
{
    const Business* record = context.find(business);
    precondition(record != nullptr, "a library has its business");
    return *record;
}

AssistantHost& AssistantEnvironment::printer() const
{
    if (host == nullptr) {
        throw AssistantError("Pages can't be printed here.");
    }
    return *host;
}

LibrarySearch& AssistantEnvironment::librarySearch() const
{
    precondition(search != nullptr, "whoever runs an operation brings the search");
    return *search;
}

} // namespace Quillary
