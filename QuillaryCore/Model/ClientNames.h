#pragma once

#include "QuillaryCore/Foundation/UUID.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Quillary {

class Context;

/// Who the clients of a report are, read together.
class ClientNames
{
public:
    struct Client
    {
        std::int64_t key = 0;
        std::optional<UUID> id; ///< absent only in damaged or foreign data
        std::string name;       ///< the display name
    };

    /// `keys` in any order, repeated or 0 as they come. Throws: `StoreError`.
    ClientNames(Context& context, std::vector<std::int64_t> keys);

    /// Null: 0, or a client that isn't there any more.
    [[nodiscard]] const Client* find(std::int64_t key) const;

private:
    std::vector<Client> m_clients; ///< ascending by key
};

} // namespace Quillary
