#pragma once

#include <cstdint>
#include <optional>

namespace Quillary {

struct Client;

/// Who a client is, as stored in `Client::kindRaw`.
enum class ClientKind : std::int16_t {
    organization = 0, ///< named by `name`
    person = 1,       ///< named by `firstName` and `lastName`
};

/// No value: a stored number that no kind has.
[[nodiscard]] std::optional<ClientKind> clientKindFromRaw(std::int16_t raw);

/// An unreadable kind is an organisation.
[[nodiscard]] ClientKind kind(const Client& client);

} // namespace Quillary
