#pragma once

#include "QuillaryCore/Store/Field.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace Quillary {

/// A customer: an organisation named by `name`, or a person by `firstName` and `lastName`.
struct Client : Record<Client>
{
    std::optional<UUID> uuid; ///< set on insertion; absent only in damaged or foreign data
    std::optional<Instant> createdAt;
    std::int16_t kindRaw = 0; ///< `ClientKind`
    std::string number;       ///< client number
    std::string name;         ///< organisation name
    std::string firstName;
    std::string lastName;
    std::string email;
    std::string phone;
    std::string website;
    std::string notes;
    std::string addressLine; ///< street address
    std::string postalCode;
    std::string city;
    std::string state;
    std::string countryCode;           ///< ISO 3166-1 alpha-2
    std::string currencyCode;          ///< preferred currency; empty for the business's
    std::string languageCode;          ///< preferred document language; empty for the business's
    std::int16_t paymentTermsDays = 0; ///< 0 for the business's
    std::string vatID;
    std::string taxID;
    std::int64_t hourlyRateMinorUnits = 0; ///< in the business currency; 0 for the business's rate

    static constexpr std::string_view entityName = "Client";

    /// The stored attributes in schema order.
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &Client::uuid},
                          Field{"createdAt", &Client::createdAt},
                          Field{"kindRaw", &Client::kindRaw},
                          Field{"number", &Client::number},
                          Field{"name", &Client::name},
                          Field{"firstName", &Client::firstName},
                          Field{"lastName", &Client::lastName},
                          Field{"email", &Client::email},
                          Field{"phone", &Client::phone},
                          Field{"website", &Client::website},
                          Field{"notes", &Client::notes},
                          Field{"addressLine", &Client::addressLine},
                          Field{"postalCode", &Client::postalCode},
                          Field{"city", &Client::city},
                          Field{"state", &Client::state},
                          Field{"countryCode", &Client::countryCode},
                          Field{"currencyCode", &Client::currencyCode},
                          Field{"languageCode", &Client::languageCode},
                          Field{"paymentTermsDays", &Client::paymentTermsDays},
                          Field{"vatID", &Client::vatID},
                          Field{"taxID", &Client::taxID},
                          Field{"hourlyRateMinorUnits", &Client::hourlyRateMinorUnits}};
    }

    static constexpr auto references() { return std::tuple{}; }

    static constexpr auto indexes()
    {
        return std::array{Index{"Client_number", "number"}, Index{"Client_uuid", "uuid"}};
    }

    friend bool operator==(const Client&, const Client&) = default;
};

} // namespace Quillary
