#pragma once

#include "QuillaryCore/Assistant/Tools/AssistantAccess.h"
#include "QuillaryCore/Foundation/JSON.h"

#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// One entry of the catalogue: an operation that an assistant, a script or a test may run.
struct AssistantTool
{
    std::string name;
    std::string title;
    std::string description;
    AssistantAccess access = AssistantAccess::readOnly;
    bool readOnly = false;
    bool destructive = false;
    JSON input; ///< JSON Schema of the arguments, an object

    /// The entry as "tools/list" shows it. Only read-only tools are declared idempotent.
    [[nodiscard]] JSON listing() const;
};

/// The tools in the order in which they are listed.
namespace ToolCatalogue {

[[nodiscard]] const std::vector<AssistantTool>& tools();

/// The tool of exactly this name. Null: there is none.
[[nodiscard]] const AssistantTool* find(std::string_view name);

} // namespace ToolCatalogue

} // namespace Quillary
