#pragma once

#include <string>

namespace Quillary {

struct Client;

/// The name a client goes by: an organisation's `name`, a person's first and last name. Where that is empty, whatever
/// else names the client: the other kind's name, the email address, the client number. Empty when nothing does.
[[nodiscard]] std::string displayName(const Client& client);

} // namespace Quillary
