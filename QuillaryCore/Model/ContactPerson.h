#pragma once

#include "QuillaryCore/Store/Field.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace Quillary {

struct Client;

/// A person at a client.
struct ContactPerson : Record<ContactPerson>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::string name;
    std::string role;
    std::string email;
    std::string phone;
    std::int32_t sortIndex = 0;

    Ref<Client> client;

    static constexpr std::string_view entityName = "ContactPerson";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &ContactPerson::uuid},
                          Field{"name", &ContactPerson::name},
                          Field{"role", &ContactPerson::role},
                          Field{"email", &ContactPerson::email},
                          Field{"phone", &ContactPerson::phone},
                          Field{"sortIndex", &ContactPerson::sortIndex}};
    }

    static constexpr auto references()
    {
        return std::tuple{Reference{"client", &ContactPerson::client, WhenTargetGoes::erase}};
    }

    static constexpr auto indexes() { return std::array{Index{"ContactPerson_client", "client"}}; }

    friend bool operator==(const ContactPerson&, const ContactPerson&) = default;
};

} // namespace Quillary
