#include "QuillaryCore/Assistant/ClientDescription.h"

#include "QuillaryCore/Assistant/Lookup.h"
#include "QuillaryCore/Assistant/PlainText.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"

#include <fmt/format.h>

#include <array>

namespace Quillary {

std::string clientText(const Client& client)
{
    std::string text = fmt::format("{} [{}]", plainText(displayName(client)), Lookup::idText(client.uuid));
    const std::array facts = {client.number.empty() ? "" : "no. " + client.number,
                              client.email,
                              client.addressLine,
                              client.postalCode + " " + client.city,
                              client.countryCode,
                              client.vatID};
    for (const std::string& fact : facts) {
        const std::string plain = plainText(fact);
        text += plain.empty() ? "" : ", " + plain;
    }
    return text;
}

JSON clientData(const Client& client)
{
    return JSON::object({{"id", Lookup::idText(client.uuid)},
                         {"number", client.number},
                         {"name", displayName(client)},
                         {"email", client.email},
                         {"phone", client.phone},
                         {"address_line", client.addressLine},
                         {"postal_code", client.postalCode},
                         {"city", client.city},
                         {"state", client.state},
                         {"country", client.countryCode},
                         {"vat_id", client.vatID},
                         {"tax_id", client.taxID},
                         {"currency", client.currencyCode},
                         {"language", client.languageCode},
                         {"payment_terms_days", client.paymentTermsDays}});
}

JSON clientReference(const Client& client)
{
    return JSON::object({{"id", Lookup::idText(client.uuid)}, {"name", displayName(client)}});
}

} // namespace Quillary
