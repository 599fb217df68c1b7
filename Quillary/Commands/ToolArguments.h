#pragma once

#include "QuillaryCore/Foundation/JSON.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// What was typed for a tool's properties, in the order typed; a property may be given several times.
using TypedValues = std::map<std::string, std::vector<std::string>>;

/// Turns what was typed at a shell into the arguments of a tool call.
namespace ToolArguments {

/// Reads the values by the input schema and adds them to `base` (an object or null); what was typed wins over it.
///
/// Numbers stay the text that was typed. A list of numbers may be written as "1,3". An object in a list is JSON
/// ({"title": "Design"}) or pairs ("title=Design; quantity=2; unit_price=90").
/// Throws: `UserError` with a sentence that names the option.
[[nodiscard]] JSON fromTyped(const JSON& schema, const TypedValues& values, JSON base);

} // namespace ToolArguments

} // namespace Quillary
