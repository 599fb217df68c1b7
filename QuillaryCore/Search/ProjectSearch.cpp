#include "QuillaryCore/Search/ProjectSearch.h"

#include "QuillaryCore/Model/Project.h"

#include <array>

namespace Quillary {

ProjectSearch::ProjectSearch(Context& context)
{
    context.query("SELECT id, createdAt, name FROM Project WHERE NOT isArchived ORDER BY id",
                  [this](const Statement& row) {
                      const std::array<std::string_view, 1> own = {row.text(2)};
                      m_projects.put(row.integer(0), row.isNull(1) ? 0 : row.integer(1), own, {});
                  });
}

TextHits ProjectSearch::projects(std::string_view query) const
{
    return query.empty() ? m_projects.all() : m_projects.find(query);
}

} // namespace Quillary
