#pragma once

#include "QuillaryCore/Store/Context.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

struct CatalogItem;
struct Client;
struct Document;

/// How a call names a record: by the id in brackets, a number or a name. A name that fits several records is never
/// guessed at; the sentence lists them.
namespace Lookup {

/// The id as every answer shows it in brackets.
[[nodiscard]] std::string idText(const std::optional<UUID>& uuid);

/// Throws: `AssistantError` when none or several fit.
[[nodiscard]] const Document& document(Context& context, std::string_view idOrNumber);
[[nodiscard]] const Client& client(Context& context, std::string_view idOrName);
[[nodiscard]] const CatalogItem& catalogItem(Context& context, std::string_view idOrName);

/// Clients whose name, number, email, city or contact person holds `query` (without case and accents), the best first:
/// exact number or name, then beginnings, then inside; at most `limit`. An empty query gives the newest.
[[nodiscard]] std::vector<const Client*> clients(Context& context, std::string_view query, std::size_t limit);

} // namespace Lookup

} // namespace Quillary
