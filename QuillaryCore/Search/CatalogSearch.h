#pragma once

#include "QuillaryCore/Search/TextIndex.h"
#include "QuillaryCore/Store/Context.h"

#include <string_view>
#include <vector>

namespace Quillary {

/// The saved products and services whose name (or, less so, details) fits a query; an empty one gives all. In no order.
/// There are few enough of them to be read anew each time.
[[nodiscard]] std::vector<TextIndex::Hit> findCatalogItems(Context& context, std::string_view query);

} // namespace Quillary
