#pragma once

#include "QuillaryCore/Foundation/JSON.h"

#include <optional>
#include <string>

namespace Quillary {

/// Holds a call's arguments against a tool's input schema.
namespace SchemaCheck {

/// One sentence that names the first argument that does not fit: one that is missing, unknown, of the wrong type or not
/// among the choices. A number may be sent as a text that holds one and a text as a number; null counts as not given.
/// No value: everything fits.
[[nodiscard]] std::optional<std::string> misfit(const JSON& schema, const JSON& arguments);

} // namespace SchemaCheck

} // namespace Quillary
