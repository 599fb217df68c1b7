#pragma once

#include "QuillaryCore/Assistant/Tools/Arguments.h"
#include "QuillaryCore/Assistant/Tools/AssistantEnvironment.h"

#include <optional>
#include <string>
#include <string_view>

namespace Quillary {

struct CatalogItem;
struct Client;
struct Document;
struct Project;

/// How a call names a record: by the id in brackets, a number or a name. A name that fits several records is never
/// guessed at; the sentence lists them, and for a name that fits none it lists those that come near.
namespace Lookup {

/// The id as every answer shows it in brackets.
[[nodiscard]] std::string idText(const std::optional<UUID>& uuid);

/// The id that a call means, alone or in the brackets that answers put around it. No value: any other text.
[[nodiscard]] std::optional<UUID> idIn(std::string_view asked);

/// A record as the sentences and lists name it, with its id in brackets.
[[nodiscard]] std::string reference(const Client& client);
[[nodiscard]] std::string reference(const Document& document);
[[nodiscard]] std::string reference(const CatalogItem& item);
[[nodiscard]] std::string reference(const Project& project);

/// Throws: `AssistantError` when none or several fit.
[[nodiscard]] const Document& document(const AssistantEnvironment& environment, std::string_view idOrNumber);
/// What the argument “document” names.
[[nodiscard]] const Document& document(const AssistantEnvironment& environment, const Arguments& arguments);
[[nodiscard]] const Client& client(const AssistantEnvironment& environment, std::string_view idOrName);
[[nodiscard]] const Project& project(Context& context, std::string_view idOrName);
[[nodiscard]] const CatalogItem& catalogItem(Context& context, std::string_view idOrName);

} // namespace Lookup

} // namespace Quillary
