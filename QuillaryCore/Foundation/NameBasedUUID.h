#pragma once

#include "QuillaryCore/Foundation/UUID.h"

#include <string_view>

namespace Quillary {

/// The identifier that follows from a name within a space (version 5, RFC 9562, section 5.5): everybody who makes a
/// thing of this name in this space gives it the same identifier. `name` counts byte by byte.
[[nodiscard]] UUID nameBasedUUID(const UUID& space, std::string_view name);

} // namespace Quillary
