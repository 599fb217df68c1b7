#include "QuillaryCore/Search/CatalogSearch.h"

#include "QuillaryCore/Model/CatalogItem.h"

#include <array>

namespace Quillary {

std::vector<TextIndex::Hit> findCatalogItems(Context& context, std::string_view query)
{
    TextIndex index;
    context.query("SELECT id, createdAt, name, details FROM CatalogItem ORDER BY id", [&index](const Statement& row) {
        const std::array<std::string_view, 1> own = {row.text(2)};
        const std::array<std::string_view, 1> further = {row.text(3)};
        index.put(row.integer(0), row.isNull(1) ? 0 : row.integer(1), own, further);
    });
    return query.empty() ? index.all() : index.find(query);
}

} // namespace Quillary
