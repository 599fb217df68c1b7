#pragma once

#include "QuillaryCore/Foundation/JSON.h"

#include <string>
#include <string_view>

namespace Quillary {

struct Client;

/// A client as assistants and terminals read it: one line with its id in brackets and all that is known of it.
/// Hourly rates are kept in the business's currency.
[[nodiscard]] std::string clientText(const Client& client, std::string_view businessCurrency);

/// All of it, as an object.
[[nodiscard]] JSON clientData(const Client& client, std::string_view businessCurrency);

/// The id and the name alone, as documents and lists refer to a client.
[[nodiscard]] JSON clientReference(const Client& client);

} // namespace Quillary
