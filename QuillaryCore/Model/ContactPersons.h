#pragma once

#include <vector>

namespace Quillary {

class Context;
struct Client;
struct ContactPerson;

/// The people at a client, the one to turn to first in front. Throws: `StoreError`.
[[nodiscard]] std::vector<const ContactPerson*> contactPersons(Context& context, const Client& client);

} // namespace Quillary
