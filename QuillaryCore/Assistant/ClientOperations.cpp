#include "QuillaryCore/Assistant/Lookup.h"
#include "QuillaryCore/Assistant/Operations.h"
#include "QuillaryCore/Assistant/PartyFields.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientKind.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/NumberedKind.h"
#include "QuillaryCore/Money/Currencies.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Numbering/Numbering.h"
#include "QuillaryCore/Numbering/NumberingError.h"

#include <fmt/format.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

constexpr std::int64_t defaultLimit = 10;
constexpr std::int64_t largestLimit = 100;

constexpr std::array textFields = {TextField<Client>{"phone", &Client::phone},
                                   TextField<Client>{"address_line", &Client::addressLine},
                                   TextField<Client>{"postal_code", &Client::postalCode},
                                   TextField<Client>{"city", &Client::city},
                                   TextField<Client>{"state", &Client::state},
                                   TextField<Client>{"tax_id", &Client::taxID},
                                   TextField<Client>{"language", &Client::languageCode}};

/// The last word of a full name is the family name, as in most of the countries whose languages we print.
void setFullName(Client& client, std::string_view fullName)
{
    const std::size_t space = fullName.rfind(' ');
    client.firstName = space == std::string_view::npos ? "" : std::string(trimmed(fullName.substr(0, space)));
    client.lastName = space == std::string_view::npos ? std::string(fullName) : std::string(fullName.substr(space + 1));
}

void applyName(Client& client, const Arguments& arguments)
{
    const std::optional<std::string> name = arguments.line("name", Limits::lineLength);
    const std::optional<std::string> first = arguments.line("first_name", Limits::lineLength);
    const std::optional<std::string> last = arguments.line("last_name", Limits::lineLength);
    const bool wasPerson = kind(client) == ClientKind::person;
    const bool isPerson =
        arguments.flag("is_person").value_or(wasPerson || (!name && client.name.empty() && (first || last)));
    client.kindRaw = static_cast<std::int16_t>(isPerson ? ClientKind::person : ClientKind::organization);
    if (isPerson && !wasPerson && !name && !first && !last) {
        setFullName(client, client.name);
        client.name.clear();
    }
    if (!isPerson && wasPerson && !name) {
        client.name = trimmed(client.firstName + " " + client.lastName);
        client.firstName.clear();
        client.lastName.clear();
    }
    if (name && isPerson && !first && !last) {
        setFullName(client, *name);
    } else if (name && !isPerson) {
        client.name = *name;
    }
    if (first) {
        client.firstName = *first;
    }
    if (last) {
        client.lastName = *last;
    }
}

void applyMoney(Client& client, const Business& business, const Arguments& arguments)
{
    if (auto currency = arguments.line("currency", Limits::lineLength)) {
        *currency = upperCasedASCII(*currency);
        if (!currency->empty() && !Currencies::isKnown(*currency)) {
            arguments.refuse("currency", "must be an ISO currency code such as EUR.");
        }
        client.currencyCode = std::move(*currency);
    }
    if (const auto terms = arguments.wholeNumber("payment_terms_days", 0, Limits::paymentTermsDays)) {
        client.paymentTermsDays = static_cast<std::int16_t>(*terms);
    }
    if (const auto rate = arguments.amount(
            "hourly_rate", "rate", business.currencyCode, Sign::notNegative, Limits::hourlyRateMinorUnits)) {
        client.hourlyRateMinorUnits = *rate;
    }
}

void applyFields(Client& client, const Business& business, const Arguments& arguments)
{
    applyName(client, arguments);
    applyTexts(client, std::span<const TextField<Client>>(textFields), arguments, Limits::lineLength);
    if (auto email = emailArgument(arguments)) {
        client.email = std::move(*email);
    }
    if (auto country = countryArgument(arguments)) {
        client.countryCode = std::move(*country);
    }
    if (auto vatID = vatIDArgument(arguments)) {
        client.vatID = std::move(*vatID);
    }
    applyMoney(client, business, arguments);
    if (client.name.empty() && client.firstName.empty() && client.lastName.empty()) {
        throw AssistantError("Give the client a name: “name”, or “first_name” and “last_name”.");
    }
}

/// Somebody with the same email, VAT ID or name is most likely the same client, so it isn't made twice.
void refuseDuplicate(Context& context, const Client& made)
{
    const std::string name = folded(displayName(made));
    for (const Client* other : context.fetch<Client>("")) {
        const bool same = other->ref != made.ref &&
                          ((!made.email.empty() && folded(other->email) == folded(made.email)) ||
                           (!made.vatID.empty() && other->vatID == made.vatID) || folded(displayName(*other)) == name);
        if (same) {
            throw AssistantError(
                fmt::format("There already is a client {} [{}] with this name, email or VAT ID. Change "
                            "it with update_client, or give the new one a name that tells it apart.",
                            displayName(*other),
                            Lookup::idText(other->uuid)));
        }
    }
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

std::string clientText(const Client& client)
{
    std::string text = fmt::format("{} [{}]", displayName(client), Lookup::idText(client.uuid));
    const std::array facts = {client.number.empty() ? "" : "no. " + client.number,
                              client.email,
                              client.addressLine,
                              std::string(trimmed(client.postalCode + " " + client.city)),
                              client.countryCode,
                              client.vatID};
    for (const std::string& fact : facts) {
        text += fact.empty() ? "" : ", " + fact;
    }
    return text;
}

ToolResult saved(const Client& client, std::string_view verb)
{
    ToolResult result{.text = fmt::format("{} {}", verb, clientText(client))};
    result.data = clientData(client);
    result.summary = fmt::format("{} {}", verb, displayName(client));
    return result;
}

} // namespace

ToolResult ClientOperations::find(const AssistantEnvironment& environment, const Arguments& arguments)
{
    const std::string query = arguments.line("query", Limits::lineLength).value_or("");
    const auto limit = static_cast<std::size_t>(arguments.wholeNumber("limit", 1, largestLimit).value_or(defaultLimit));
    const std::vector<const Client*> found = Lookup::clients(environment.context, query, limit);
    ToolResult result;
    JSON::Array clients;
    for (const Client* client : found) {
        result.text += clientText(*client) + "\n";
        clients.push_back(clientData(*client));
    }
    if (found.empty()) {
        result.text = query.empty() ? "There are no clients yet; create_client adds one."
                                    : fmt::format("No client fits “{}”; create_client adds one.", query);
    }
    result.data = JSON::object({{"clients", std::move(clients)}});
    return result;
}

ToolResult ClientOperations::create(const AssistantEnvironment& environment, const Arguments& arguments)
{
    Context& context = environment.context;
    Client& client = context.insert<Client>();
    applyFields(client, environment.ownBusiness(), arguments);
    refuseDuplicate(context, client);
    try {
        client.number = Numbering::assign(context,
                                          NumberedKind::client,
                                          environment.clock.now(),
                                          nullptr,
                                          environment.ownBusiness(),
                                          environment.calendar);
    } catch (const NumberingError& error) {
        throw AssistantError(error.message());
    }
    return saved(client, "Added the client");
}

ToolResult ClientOperations::update(const AssistantEnvironment& environment, const Arguments& arguments)
{
    const std::string named = arguments.line("client", Limits::lineLength).value_or("");
    Client& client = environment.context.edit(Lookup::client(environment.context, named));
    applyFields(client, environment.ownBusiness(), arguments);
    return saved(client, "Changed the client");
}

} // namespace Quillary
