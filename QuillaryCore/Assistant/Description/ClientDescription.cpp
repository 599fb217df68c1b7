#include "QuillaryCore/Assistant/Description/ClientDescription.h"

#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientKind.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Money/Money.h"

#include <fmt/format.h>

#include <string_view>

namespace Quillary {

namespace {

std::string labelled(std::string_view label, const std::string& value)
{
    return value.empty() ? "" : fmt::format("{}{}", label, value);
}

std::string hourlyRateText(const Client& client, std::string_view businessCurrency)
{
    return Money(client.hourlyRateMinorUnits, businessCurrency).plainText();
}

} // namespace

std::string clientText(const Client& client, std::string_view businessCurrency)
{
    std::string text = fmt::format("{} [{}]", plainText(displayName(client)), Lookup::idText(client.uuid));
    const std::string facts[] = {
        client.number.empty() ? "" : "no. " + client.number,
        client.email,
        client.addressLine,
        client.postalCode + " " + client.city,
        client.state,
        client.countryCode,
        client.vatID,
        labelled("tax no. ", client.taxID),
        labelled("phone ", client.phone),
        labelled("billed in ", client.currencyCode),
        labelled("language ", client.languageCode),
        client.paymentTermsDays > 0 ? fmt::format("terms {} days", client.paymentTermsDays) : "",
        client.hourlyRateMinorUnits > 0
            ? fmt::format("{} {} an hour", hourlyRateText(client, businessCurrency), businessCurrency)
            : "",
        kind(client) == ClientKind::person ? "private person" : "",
        labelled("first name ", client.firstName),
        labelled("last name ", client.lastName)};
    for (const std::string& fact : facts) {
        const std::string plain = plainText(fact);
        text += plain.empty() ? "" : ", " + plain;
    }
    return text;
}

JSON clientData(const Client& client, std::string_view businessCurrency)
{
    JSON data = JSON::object({{"id", Lookup::idText(client.uuid)},
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
                              {"payment_terms_days", client.paymentTermsDays},
                              {"is_person", kind(client) == ClientKind::person}});
    if (client.hourlyRateMinorUnits > 0) {
        data.set("hourly_rate", JSON::Number{hourlyRateText(client, businessCurrency)});
        data.set("hourly_rate_currency", businessCurrency);
    }
    if (!client.firstName.empty()) {
        data.set("first_name", client.firstName);
    }
    if (!client.lastName.empty()) {
        data.set("last_name", client.lastName);
    }
    return data;
}

JSON clientReference(const Client& client)
{
    return JSON::object({{"id", Lookup::idText(client.uuid)}, {"name", displayName(client)}});
}

} // namespace Quillary
