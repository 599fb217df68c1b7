#include "QuillaryCore/Assistant/Description/ClientDescription.h"
#include "QuillaryCore/Assistant/Description/DocumentDescription.h"
#include "QuillaryCore/Assistant/Description/DocumentListing.h"
#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/Operations.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/CatalogItem.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Model/TaxRate.h"
#include "QuillaryCore/Money/Money.h"
#include "QuillaryCore/Search/CatalogSearch.h"
#include "QuillaryCore/Search/LibrarySearch.h"

#include <fmt/format.h>

#include <string>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

using Hit = TextHit;

constexpr std::int64_t usualLimit = 10;
constexpr std::int64_t usualDocumentLimit = 20;
constexpr std::int64_t largestLimit = 100;
/// Of a catalog item's details. Unit: bytes.
constexpr std::size_t shownDetails = 300;

std::size_t limitArgument(const Arguments& arguments, std::int64_t usual)
{
    return static_cast<std::size_t>(arguments.wholeNumber("limit", 1, largestLimit).value_or(usual));
}

std::string queryArgument(const Arguments& arguments)
{
    return arguments.line("query", Limits::lineLength).value_or("");
}

/// What a query found.
struct Found
{
    std::size_t count = 0;
    std::vector<Hit> best; ///< as many as are shown, in their order
};

Found bestOf(const TextHits& hits, std::size_t limit)
{
    return {.count = hits.size(), .best = hits.best(limit)};
}

/// The record whose id the query is, if there is one; nothing else is looked for then.
template <class Record>
std::optional<Found> named(Context& context, std::string_view query)
{
    const std::optional<UUID> uuid = Lookup::idIn(query);
    const Record* record = uuid ? context.find<Record>(*uuid) : nullptr;
    return record == nullptr ? std::nullopt : std::optional(Found{.count = 1, .best = {{.key = record->ref.key()}}});
}

/// The list of what was found, under `key`, with the number of those that there is no room for.
template <class Record, class Text, class Data>
ToolResult listed(Context& context, std::string_view key, const Found& found, const Text& text, const Data& data)
{
    ToolResult result;
    ResultLines lines(result.text);
    JSON::Array items;
    for (const Hit& hit : found.best) {
        const Record* record = context.find(Ref<Record>(hit.key));
        JSON item = record == nullptr ? JSON() : data(*record);
        if (record == nullptr || !lines.add(text(*record), item)) {
            break;
        }
        items.push_back(std::move(item));
    }
    const std::size_t left = found.count - items.size();
    if (left > 0) {
        result.text += fmt::format("… and {} more; ask for something narrower to see them.\n", left);
    }
    result.summary = fmt::format("Found {}", found.count);
    result.data = JSON::object({{std::string(key), std::move(items)}, {"more", left}});
    return result;
}

/// The newest clients without filling the index: for a command that asks this and nothing else.
Found newestClients(Context& context, std::size_t limit)
{
    Found found{.count = static_cast<std::size_t>(context.count<Client>("")), .best = {}};
    const auto rows = static_cast<std::int64_t>(limit);
    context.query(
        "SELECT id FROM Client ORDER BY createdAt DESC, id DESC LIMIT ?",
        [&found](const Statement& row) { found.best.push_back({.key = row.integer(0)}); },
        rows);
    return found;
}

Found findClients(const AssistantEnvironment& environment, std::string_view query, std::size_t limit)
{
    if (std::optional<Found> found = named<Client>(environment.context, query)) {
        return *std::move(found);
    }
    LibrarySearch& search = environment.librarySearch();
    return query.empty() && !search.hasClients() ? newestClients(environment.context, limit)
                                                 : bestOf(search.clients(query), limit);
}

Found findItems(Context& context, std::string_view query, std::size_t limit)
{
    if (std::optional<Found> found = named<CatalogItem>(context, query)) {
        return *std::move(found);
    }
    return bestOf(CatalogSearch(context).items(query), limit);
}

/// The rate that an item brings along; none for those that are taxed at the usual rate.
const TaxRate* rateOf(Context& context, const CatalogItem& item)
{
    return item.taxRateID ? context.find<TaxRate>(*item.taxRateID) : nullptr;
}

std::string itemText(Context& context, const CatalogItem& item)
{
    const std::string unit = plainText(item.unit);
    const std::string details = plainText(shortened(item.details, shownDetails));
    const TaxRate* rate = rateOf(context, item);
    return fmt::format("{}, {} {}{}{}{}{}{}",
                       Lookup::reference(item),
                       Money(item.unitPriceMinorUnits, item.currencyCode).plainText(),
                       plainText(item.currencyCode),
                       unit.empty() ? "" : " per ",
                       unit,
                       rate == nullptr ? "" : fmt::format(", tax {}%", rateFigure(rate->basisPoints)),
                       details.empty() ? "" : ", ",
                       details);
}

JSON itemData(Context& context, const CatalogItem& item)
{
    JSON data =
        JSON::object({{"id", Lookup::idText(item.uuid)},
                      {"name", item.name},
                      {"details", shortened(item.details, shownDetails)},
                      {"unit_price", JSON::Number{Money(item.unitPriceMinorUnits, item.currencyCode).plainText()}},
                      {"currency", item.currencyCode},
                      {"unit", item.unit}});
    if (const TaxRate* rate = rateOf(context, item)) {
        data.set("tax_rate", JSON::Number{rateFigure(rate->basisPoints)});
    }
    return data;
}

/// Whether a document belongs under a word of the "status" argument. `open` is everything that was sent and is not
/// settled, so what is overdue is open as well; an expired quote is neither.
bool fitsStatus(DisplayStatus status, std::string_view word)
{
    switch (status) {
    case DisplayStatus::draft:
        return word == "draft";
    case DisplayStatus::sent:
    case DisplayStatus::partlyPaid:
        return word == "open";
    case DisplayStatus::overdue:
        return word == "open" || word == "overdue";
    case DisplayStatus::paid:
        return word == "paid";
    case DisplayStatus::accepted:
        return word == "accepted";
    case DisplayStatus::declined:
        return word == "declined";
    case DisplayStatus::expired:
        return false;
    }
    return false;
}

LibrarySearch::DocumentFacts factsOf(const Document& document)
{
    return {.kindRaw = document.kindRaw,
            .statusRaw = document.statusRaw,
            .client = document.client.key(),
            .dueDate = document.dueDate,
            .validUntil = document.validUntil};
}

/// What a list of documents is narrowed to.
class DocumentFilter
{
public:
    DocumentFilter(const AssistantEnvironment& environment, const Arguments& arguments)
        : m_today(environment.clock.now())
        , m_calendar(environment.calendar)
        , m_kind(arguments.line("kind", Limits::lineLength).value_or("all"))
        , m_status(arguments.line("status", Limits::lineLength).value_or("all"))
    {
        if (const auto named = arguments.line("client", Limits::lineLength); named && !named->empty()) {
            m_client = Lookup::client(environment, *named).ref.key();
        }
    }

    [[nodiscard]] bool accepts(const LibrarySearch::DocumentFacts& facts)
    {
        m_figures.kindRaw = facts.kindRaw;
        if ((m_client && facts.client != *m_client) ||
            (m_kind != "all" && kindWord(kind(m_figures).value_or(DocumentKind::invoice)) != m_kind)) {
            return false;
        }
        if (m_status == "all") {
            return true;
        }
        m_figures.statusRaw = facts.statusRaw;
        m_figures.dueDate = facts.dueDate;
        m_figures.validUntil = facts.validUntil;
        return fitsStatus(displayStatus(m_figures, m_today, m_calendar), m_status);
    }

private:
    Instant m_today;
    const Calendar& m_calendar;
    std::string m_kind;
    std::string m_status;
    std::optional<std::int64_t> m_client;
    Document m_figures; ///< only what kind and status are derived from
};

Found findDocuments(const AssistantEnvironment& environment,
                    DocumentFilter& filter,
                    std::string_view query,
                    std::size_t limit)
{
    if (std::optional<Found> found = named<Document>(environment.context, query)) {
        const Document& document = *environment.context.find(Ref<Document>(found->best.front().key));
        return filter.accepts(factsOf(document)) ? *std::move(found) : Found();
    }
    LibrarySearch& search = environment.librarySearch();
    TextHits hits = search.documents(query);
    hits.keepIf([&](const Hit& hit) { return filter.accepts(search.facts(hit)); });
    return bestOf(hits, limit);
}

} // namespace

ToolResult FindOperations::clients(const AssistantEnvironment& environment, const Arguments& arguments)
{
    const std::string query = queryArgument(arguments);
    ToolResult result = listed<Client>(
        environment.context,
        "clients",
        findClients(environment, query, limitArgument(arguments, usualLimit)),
        [&](const Client& client) { return clientText(client, environment.ownBusiness().currencyCode); },
        [&](const Client& client) { return clientData(client, environment.ownBusiness().currencyCode); });
    if (result.text.empty()) {
        result.text = query.empty() ? "There are no clients yet; create_client adds one."
                                    : fmt::format("No client fits {}; create_client adds one.", inQuotes(query));
    }
    return result;
}

ToolResult FindOperations::catalogItems(const AssistantEnvironment& environment, const Arguments& arguments)
{
    const std::string query = queryArgument(arguments);
    ToolResult result = listed<CatalogItem>(
        environment.context,
        "items",
        findItems(environment.context, query, limitArgument(arguments, usualLimit)),
        [&](const CatalogItem& item) { return itemText(environment.context, item); },
        [&](const CatalogItem& item) { return itemData(environment.context, item); });
    if (result.text.empty()) {
        result.text = query.empty() ? "There are no saved products or services yet. Give lines their title and price."
                                    : fmt::format("No catalog item fits {}.", inQuotes(query));
    }
    return result;
}

ToolResult FindOperations::documents(const AssistantEnvironment& environment, const Arguments& arguments)
{
    const std::string query = queryArgument(arguments);
    const std::size_t limit = limitArgument(arguments, usualDocumentLimit);
    DocumentFilter filter(environment, arguments);
    DocumentListing listing(environment);
    ToolResult result = listed<Document>(
        environment.context,
        "documents",
        findDocuments(environment, filter, query, limit),
        [&listing](const Document& document) { return listing.text(document); },
        [&listing](const Document& document) { return listing.data(document); });
    if (result.text.empty()) {
        const bool isNarrowed = arguments.has("kind") || arguments.has("status") || arguments.has("client");
        result.text = query.empty() ? (isNarrowed ? "There are no such documents." : "There are no documents yet.")
                                    : fmt::format("No {}document fits {}.", isNarrowed ? "such " : "", inQuotes(query));
    }
    return result;
}

} // namespace Quillary
