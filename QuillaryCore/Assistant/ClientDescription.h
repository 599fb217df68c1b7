#pragma once

#include "QuillaryCore/Foundation/JSON.h"

#include <string>

namespace Quillary {

struct Client;

/// A client as assistants and terminals read it: one line with its id in brackets and what tells it apart.
[[nodiscard]] std::string clientText(const Client& client);

/// All of it, as an object.
[[nodiscard]] JSON clientData(const Client& client);

/// The id and the name alone, as documents and lists refer to a client.
[[nodiscard]] JSON clientReference(const Client& client);

} // namespace Quillary
