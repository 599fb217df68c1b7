#pragma once

#include "QuillaryCore/Search/TextIndex.h"
#include "QuillaryCore/Store/Context.h"

#include <string_view>

namespace Quillary {

/// The saved products and services as they are when it is made: there are few enough of them to be read anew each time.
class CatalogSearch
{
public:
    explicit CatalogSearch(Context& context);

    /// By name or, less so, details; an empty query gives all. Valid as long as the search.
    [[nodiscard]] TextHits items(std::string_view query) const;

private:
    TextIndex m_items;
};

} // namespace Quillary
