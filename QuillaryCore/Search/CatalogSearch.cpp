#include "QuillaryCore/Search/CatalogSearch.h"

#include "QuillaryCore/Model/CatalogItem.h"

#include <array>

namespace Quillary {

CatalogSearch::CatalogSearch(Context& context)
{
    context.query("SELECT id, createdAt, name, details FROM CatalogItem ORDER BY id", [this](const Statement& row) {
        const std::array<std::string_view, 1> own = {row.text(2)};
        const std::array<std::string_view, 1> further = {row.text(3)};
        m_items.put(row.integer(0), row.isNull(1) ? 0 : row.integer(1), own, further);
    });
}

TextHits CatalogSearch::items(std::string_view query) const
{
    return query.empty() ? m_items.all() : m_items.find(query);
}

} // namespace Quillary
