#include "QuillaryCore/Model/ClientKind.h"

#include "QuillaryCore/Model/Client.h"

namespace Quillary {

std::optional<ClientKind> clientKindFromRaw(std::int16_t raw)
{
    if (raw < 0 || raw > 1) {
        return std::nullopt;
    }
    return static_cast<ClientKind>(raw);
}

ClientKind kind(const Client& client)
{
    return clientKindFromRaw(client.kindRaw).value_or(ClientKind::organization);
}

} // namespace Quillary
