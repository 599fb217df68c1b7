#include "QuillaryCore/Assistant/Description/ClientDescription.h"
#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/Operations.h"
#include "QuillaryCore/Assistant/Operations/PartyFields.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientKind.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/NumberedKind.h"
#include "QuillaryCore/Model/PersonName.h"
#include "QuillaryCore/Model/ReviewAnswer.h"
#include "QuillaryCore/Money/Currencies.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Numbering/Numbering.h"
#include "QuillaryCore/Numbering/NumberingError.h"
#include "QuillaryCore/Search/LibrarySearch.h"

#include <fmt/format.h>

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

constexpr std::array textFields = {TextField<Client>{"phone", &Client::phone},
                                   TextField<Client>{"address_line", &Client::addressLine},
                                   TextField<Client>{"postal_code", &Client::postalCode},
                                   TextField<Client>{"city", &Client::city},
                                   TextField<Client>{"state", &Client::state},
                                   TextField<Client>{"tax_id", &Client::taxID},
                                   TextField<Client>{"language", &Client::languageCode}};

void setFullName(Client& client, std::string_view fullName)
{
    PersonName name = personName(fullName);
    client.firstName = std::move(name.first);
    client.lastName = std::move(name.last);
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
    if (name && isPerson) {
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

/// Whoever has no VAT ID isn't asked for it again.
void rememberVATID(Context& context, const Client& client, const Arguments& arguments)
{
    if (const auto vatID = arguments.line("vat_id", Limits::lineLength)) {
        ReviewAnswers::setHasNoVATID(context, client, saysNone(*vatID));
    }
}

/// Of the clients that a new one's name or address finds.
constexpr std::size_t comparedClients = 50;

/// What a new client shares with one that is there: most likely it is the same.
struct Likeness
{
    const Client* client;
    std::string advice; ///< how to add it all the same
};

/// "Acme  GmbH" with one space.
std::string inOneSpacing(std::string_view name)
{
    return plainText(name);
}

bool isSame(const std::string& left, const std::string& right)
{
    return !left.empty() && folded(trimmed(left)) == folded(trimmed(right));
}

std::optional<Likeness> likeness(const Client& made, const Client& other)
{
    if (isSame(inOneSpacing(displayName(made)), inOneSpacing(displayName(other)))) {
        return Likeness{&other, "give it a name that tells the two apart, such as the name with the city"};
    }
    if (!made.vatID.empty() && made.vatID == compactVATID(other.vatID)) {
        return Likeness{&other, "add it without the VAT ID and fill that in with update_client"};
    }
    if (isSame(made.email, other.email)) {
        return Likeness{&other, "add it without the email address and fill that in with update_client"};
    }
    return std::nullopt;
}

/// The client with this compact VAT ID, in whatever spelling it was stored.
const Client* withVATID(Context& context, const std::string& vatID)
{
    return vatID.empty() ? nullptr
                         : context.first<Client>("replace(replace(replace(replace(upper(vatID), ' ', ''), '.', ''), "
                                                 "'-', ''), '/', '') = ? ORDER BY id",
                                                 vatID);
}

/// Compares with those whose name, address or number holds `text`.
std::optional<Likeness> likenessBy(const AssistantEnvironment& environment, const std::string& text, const Client& made)
{
    if (text.empty()) {
        return std::nullopt;
    }
    // Not only exact hits: a name that was stored with two spaces is none.
    const TextHits hits = environment.librarySearch().clients(text, TextIndex::Slips::notForgiven);
    for (const TextHit& hit : hits.best(comparedClients)) {
        const Client* other = environment.context.find(Ref<Client>(hit.key));
        if (auto found = other == nullptr ? std::nullopt : likeness(made, *other)) {
            return found;
        }
    }
    return std::nullopt;
}

std::optional<Likeness> findLike(const AssistantEnvironment& environment, const Client& made)
{
    for (const std::string& text : {inOneSpacing(displayName(made)), made.email}) {
        if (auto found = likenessBy(environment, text, made)) {
            return found;
        }
    }
    const Client* other = withVATID(environment.context, made.vatID);
    return other == nullptr ? std::nullopt : likeness(made, *other);
}

/// Nothing was added, and nothing is wrong: the assistant goes on with the client that is there.
ToolResult alreadyThere(const Likeness& found, std::string_view currency)
{
    ToolResult result;
    result.text = fmt::format("Nothing was added, because this client seems to be there already: {}\nUse it, and fill "
                              "in what is missing with update_client. If it really is another client, {}.",
                              clientText(*found.client, currency),
                              found.advice);
    result.data = JSON::object({{"added", false}, {"existing", clientData(*found.client, currency)}});
    result.summary = fmt::format("Found {} already there", plainText(displayName(*found.client)));
    return result;
}

ToolResult saved(const Client& client, std::string_view currency, std::string_view verb)
{
    ToolResult result{.text = fmt::format("{} {}", verb, clientText(client, currency))};
    result.data = clientData(client, currency);
    result.summary = fmt::format("{} {}", verb, plainText(displayName(client)));
    return result;
}

} // namespace

ToolResult ClientOperations::create(const AssistantEnvironment& environment, const Arguments& arguments)
{
    Client details;
    applyFields(details, environment.ownBusiness(), arguments);
    if (const std::optional<Likeness> found = findLike(environment, details)) {
        return alreadyThere(*found, environment.ownBusiness().currencyCode);
    }
    Client& client = environment.context.insert<Client>();
    details.ref = client.ref;
    details.uuid = client.uuid;
    details.createdAt = client.createdAt;
    client = std::move(details);
    rememberVATID(environment.context, client, arguments);
    try {
        client.number = Numbering::assign(environment.context,
                                          NumberedKind::client,
                                          environment.clock.now(),
                                          nullptr,
                                          environment.ownBusiness(),
                                          environment.calendar);
    } catch (const NumberingError& error) {
        throw AssistantError(error.message());
    }
    return saved(client, environment.ownBusiness().currencyCode, "Added the client");
}

ToolResult ClientOperations::update(const AssistantEnvironment& environment, const Arguments& arguments)
{
    const std::string named = arguments.line("client", Limits::lineLength).value_or("");
    Client& client = environment.context.edit(Lookup::client(environment, named));
    applyFields(client, environment.ownBusiness(), arguments);
    rememberVATID(environment.context, client, arguments);
    return saved(client, environment.ownBusiness().currencyCode, "Changed the client");
}

} // namespace Quillary
