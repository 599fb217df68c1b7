#pragma once

#include "QuillaryCore/Search/TextIndex.h"
#include "QuillaryCore/Store/Context.h"

#include <string_view>

namespace Quillary {

/// The projects that aren't archived, as they are when it is made: there are few enough of them to be read anew each
/// time.
class ProjectSearch
{
public:
    explicit ProjectSearch(Context& context);

    /// By name; an empty query gives all. Valid as long as the search.
    [[nodiscard]] TextHits projects(std::string_view query) const;

private:
    TextIndex m_projects;
};

} // namespace Quillary
